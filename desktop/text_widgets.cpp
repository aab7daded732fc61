#include "desktop/text_widgets.h"

#include "desktop/drag.h"
#include "desktop/text.h"
#include "platform/input.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace desktop {

namespace input = platform::input;

namespace {

constexpr Qt::KeyboardModifiers commandKeys =
    Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

platform::Menu const* reachableEntry(platform::Form const& form, QKeySequence const& keys) {
    for (auto const* const control : form.controls()) {
        if (control->control_class() != platform::ControlClass::menu)
            continue;
        auto const* const entry = static_cast<platform::Menu const*>(control);
        if (!entry->Shortcut.get().empty() && entry->is_shown() && entry->is_enabled() &&
            QKeySequence(toQt(entry->Shortcut.get())) == keys)
            return entry;
    }
    return nullptr;
}

/// The stretch of two texts that differs: [start, end of old) becomes [start, end of new).
struct Difference {
    int start;
    int oldEnd;
    int newEnd;
};

Difference differenceBetween(QString const& before, QString const& after) {
    auto const shorter = std::min(before.size(), after.size());
    qsizetype start = 0;
    while (start < shorter && before.at(start) == after.at(start))
        ++start;
    qsizetype tail = 0;
    while (tail < shorter - start &&
           before.at(before.size() - 1 - tail) == after.at(after.size() - 1 - tail))
        ++tail;
    return {static_cast<int>(start), static_cast<int>(before.size() - tail),
            static_cast<int>(after.size() - tail)};
}

} // namespace

bool TextInput::sendKey(QKeyEvent const& event) {
    if (!box())
        return true;
    bool const plain = !(event.modifiers() & commandKeys);
    auto const press = [&](platform::Key key) {
        gate().run([&] { input::press(*box(), key); });
        return true;
    };
    auto const open = [&] {
        bool opened = false;
        gate().run([&] { opened = input::open_beside(*box()); });
        return opened;
    };
    auto const step = [&](int steps) {
        bool stepped = false;
        gate().run([&] { stepped = input::step_beside(*box(), steps); });
        return stepped;
    };
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // What a double click does in a row has no other key.
        if ((event.modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier && box()->DblClick) {
            gate().run([&] { input::double_click(*box()); });
            return true;
        }
        return box()->MultiLine ? false : press(platform::Key::enter);
    case Qt::Key_Escape:
        return press(platform::Key::escape);
    case Qt::Key_F4:
        return event.modifiers() == Qt::NoModifier && open();
    case Qt::Key_Up:
    case Qt::Key_Down:
        return event.key() == Qt::Key_Down && event.modifiers() == Qt::AltModifier
                   ? open()
                   : event.modifiers() == Qt::NoModifier &&
                         step(event.key() == Qt::Key_Up ? -1 : 1);
    case Qt::Key_Backspace:
        return plain && press(platform::Key::backspace);
    case Qt::Key_Delete:
        return event.modifiers() == Qt::NoModifier && press(platform::Key::del);
    default:
        break;
    }
    auto const text = event.text();
    if (!plain || text.isEmpty() || !(text.at(0).isPrint() || text.at(0).isSurrogate()))
        return false;
    sendTyped(text);
    return true;
}

void TextInput::sendTyped(QString const& text) {
    gate().run([&] { input::type(*box(), fromQt(text)); });
}

bool TextInput::sendCommitted(QInputMethodEvent const& event) {
    bool const finished = event.preeditString().isEmpty() && event.replacementLength() == 0;
    if (!box() || !finished || event.commitString().isEmpty())
        return false;
    sendTyped(event.commitString());
    return true;
}

bool TextInput::isMenuShortcut(QKeyEvent const& event) const {
    if (!box() || event.modifiers() == Qt::NoModifier)
        return false;
    return reachableEntry(box()->form(), QKeySequence(event.keyCombination())) != nullptr;
}

void TextInput::sendText(QString const& text, int caret) {
    if (!box())
        return;
    int const characters = toCharacters(text, caret);
    gate().run([&] { input::paste(*box(), fromQt(text), characters); });
}

void TextInput::sendSelection(QString const& text, int start, int end) {
    if (!box())
        return;
    int const first = toCharacters(text, start);
    int const length = toCharacters(text, end) - first;
    if (box()->SelStart != first || box()->SelLength != length)
        gate().run([&] { input::select(*box(), first, length); });
}

TextField::TextField(platform::TextBox& box, QWidget& parent, EventGate& gate)
    : QLineEdit(&parent), TextInput(box, gate) {
    connect(this, &QLineEdit::textChanged, this, [this](QString const& changed) {
        if (!this->gate().isRefreshing())
            sendText(changed, cursorPosition());
    });
    auto const sendOwnSelection = [this] {
        if (this->gate().isRefreshing() || !this->box() || losesFocus_)
            return;
        // Undoing moves the caret before it tells of the text.
        if (text() != toQt(this->box()->Text.get()))
            return sendText(text(), cursorPosition());
        int const start = hasSelectedText() ? selectionStart() : cursorPosition();
        sendSelection(text(), start, hasSelectedText() ? selectionEnd() : start);
    };
    connect(this, &QLineEdit::selectionChanged, this, sendOwnSelection);
    connect(this, &QLineEdit::cursorPositionChanged, this, sendOwnSelection);
}

void TextField::takeOver() {
    takeOverLook(*box());
    constexpr int roomForFrame = 4;
    bool const framed = rectOf(*box()).height() >= fontMetrics().height() + roomForFrame;
    if (hasFrame() != framed)
        setFrame(framed);
    if (!framed)
        setTextMargins(-2, -1, 0, 0); // the widget's own margins, which only a frame needs
    constexpr int unlimited = 32767;
    int const longest = box()->MaxLength > 0 ? box()->MaxLength.get() : unlimited;
    if (maxLength() != longest)
        setMaxLength(longest); // forgets what could be undone
    setReadOnly(box()->Locked);
    takeOverText();
    takeOverSelection();
}

void TextField::takeOverText() {
    auto const wanted = toQt(box()->Text.get());
    auto const shown = text();
    if (shown == wanted)
        return;
    if (!hasFocus()) {
        setText(wanted);
        setCursorPosition(0); // a long text shows its beginning
        return;
    }
    // Only the difference is put in, so that what the user did before can still be undone.
    auto const difference = differenceBetween(shown, wanted);
    setSelection(difference.start, difference.oldEnd - difference.start);
    insert(wanted.mid(difference.start, difference.newEnd - difference.start));
    if (text() != wanted)
        setText(wanted);
}

void TextField::takeOverSelection() {
    if (!hasFocus())
        return; // a selection shows where the keyboard is
    auto const shown = text();
    int const start = toUnits(shown, box()->SelStart);
    int const end = toUnits(shown, box()->SelStart + box()->SelLength);
    bool const same = start == end ? !hasSelectedText() && cursorPosition() == start
                                   : selectionStart() == start && selectionEnd() == end;
    if (same)
        return;
    if (start == end) {
        deselect();
        setCursorPosition(start);
    } else {
        setSelection(start, end - start);
    }
}

bool TextField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        isMenuShortcut(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return true;
    }
    return QLineEdit::event(event);
}

void TextField::keyPressEvent(QKeyEvent* event) {
    if (sendKey(*event))
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}

void TextField::inputMethodEvent(QInputMethodEvent* event) {
    if (!sendCommitted(*event)) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    // What was being composed is finished; nothing of it stays in the widget.
    QInputMethodEvent finished;
    QLineEdit::inputMethodEvent(&finished);
    event->accept();
}

void TextField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (box())
        takeOverSelection();
    if (event->reason() == Qt::MouseFocusReason)
        press_ = Press::bringsFocus;
}

void TextField::focusOutEvent(QFocusEvent* event) {
    // The widget forgets its selection, the program does not. It must not be told anything now: it
    // has yet to hear where the keyboard goes, and would take it back.
    losesFocus_ = true;
    QLineEdit::focusOutEvent(event);
    // Behind a menu of the widget's own, or another window, the keyboard comes back here.
    bool const comesBack =
        event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
    if (!comesBack)
        setCursorPosition(0);
    losesFocus_ = false;
}

void TextField::mousePressEvent(QMouseEvent* event) {
    pressedAt_ = event->position().toPoint();
    if (press_ != Press::bringsFocus) {
        press_ = Press::plain;
        QLineEdit::mousePressEvent(event);
        return;
    }
    event->accept();
}

void TextField::mouseMoveEvent(QMouseEvent* event) {
    if (press_ == Press::bringsFocus) {
        auto const distance = (event->position().toPoint() - pressedAt_).manhattanLength();
        if (distance < QApplication::startDragDistance())
            return;
        // A real drag after all: it selects from where it began.
        press_ = Press::plain;
        setCursorPosition(cursorPositionAt(pressedAt_));
    }
    QLineEdit::mouseMoveEvent(event);
}

void TextField::mouseReleaseEvent(QMouseEvent* event) {
    bool const broughtFocus = std::exchange(press_, Press::none) == Press::bringsFocus;
    if (!broughtFocus)
        QLineEdit::mouseReleaseEvent(event);
    if (box() && box()->Click && rect().contains(event->position().toPoint()))
        gate().run([&] { input::click(*box()); });
}

void TextField::mouseDoubleClickEvent(QMouseEvent* event) {
    QLineEdit::mouseDoubleClickEvent(event);
    if (box() && box()->DblClick)
        gate().run([&] { input::double_click(*box()); });
}

TextArea::TextArea(platform::TextBox& box, QWidget& parent, EventGate& gate)
    : QPlainTextEdit(&parent), TextInput(box, gate) {
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (!this->gate().isRefreshing())
            sendText(toPlainText(), textCursor().position());
    });
    connect(this, &QPlainTextEdit::selectionChanged, this, [this] {
        if (!this->gate().isRefreshing())
            sendSelection(toPlainText(), textCursor().selectionStart(),
                          textCursor().selectionEnd());
    });
}

void TextArea::takeOver() {
    takeOverLook(*box());
    setReadOnly(box()->Locked);
    setVerticalScrollBarPolicy(box()->ScrollBars ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    auto const wanted = toQtLines(box()->Text.get());
    if (toPlainText() != wanted)
        setPlainText(wanted);
    auto cursor = textCursor();
    int const start = toUnits(wanted, box()->SelStart);
    int const end = toUnits(wanted, box()->SelStart + box()->SelLength);
    if (cursor.selectionStart() == start && cursor.selectionEnd() == end)
        return;
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

bool TextArea::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        isMenuShortcut(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return true;
    }
    return QPlainTextEdit::event(event);
}

void TextArea::keyPressEvent(QKeyEvent* event) {
    if (sendKey(*event))
        event->accept();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void TextArea::inputMethodEvent(QInputMethodEvent* event) {
    if (!sendCommitted(*event)) {
        QPlainTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent finished;
    QPlainTextEdit::inputMethodEvent(&finished);
    event->accept();
}

/// Files are for the window, though they come as text too.
void TextField::dragEnterEvent(QDragEnterEvent* event) {
    if (draggedFiles(*event->mimeData()).isEmpty())
        QLineEdit::dragEnterEvent(event);
    else
        event->ignore();
}

void TextArea::dragEnterEvent(QDragEnterEvent* event) {
    if (draggedFiles(*event->mimeData()).isEmpty())
        QPlainTextEdit::dragEnterEvent(event);
    else
        event->ignore();
}

} // namespace desktop
