#include "desktop/message_box.h"

#include "desktop/window_place.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QScrollBar>
#include <QTextDocument>
#include <QTextEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace desktop {

namespace {

/// A page to read: a text that has to scroll anyway needs no more of a large screen.
constexpr QSize largestPage(700, 480);

QTextEdit* makePage(QString const& text, QString const& name, QWidget* parent) {
    auto* const page = new QTextEdit(parent);
    page->setAcceptRichText(false);
    page->setReadOnly(true);
    page->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    page->setTabChangesFocus(true);
    page->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere); // a path has no blanks
    page->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    page->setPlainText(text);
    page->setAccessibleName(name);
    auto colours = page->palette();
    colours.setBrush(QPalette::Base, colours.window());
    page->setPalette(colours);
    return page;
}

QLabel* makeLine(QString const& text, QWidget* parent) {
    auto* const line = new QLabel(text, parent);
    line->setTextFormat(Qt::PlainText);
    return line;
}

/// A text and its last line, where that is short enough to stand by itself.
std::pair<QString, QString> withoutLastLine(QString const& text, QFontMetrics const& metrics) {
    constexpr int longest = 400; // pixels
    auto const whole = text.trimmed();
    auto const last = whole.mid(whole.lastIndexOf(u'\n') + 1);
    if (last.size() == whole.size() || metrics.horizontalAdvance(last) > longest)
        return {text, {}};
    return {whole.chopped(last.size()).trimmed(), last};
}

/// Makes the page as large as its text needs, and no larger than the room.
void fitPage(QTextEdit& page, QSize room) {
    int const edges = 2 * page.frameWidth();
    int const margins = 2 * static_cast<int>(std::ceil(page.document()->documentMargin()));
    int const bar = page.verticalScrollBar()->sizeHint().width();
    auto const natural = page.fontMetrics().size(0, page.toPlainText());
    page.setFixedSize(room.boundedTo({natural.width() + edges + margins + bar, room.height()}));
    int const height = static_cast<int>(std::ceil(page.document()->size().height())) + edges;
    page.setFixedHeight(std::min(height, room.height()));
}

} // namespace

MessageBox::MessageBox(QWidget* owner, QList<QRect> inSight)
    : QMessageBox(owner), inSight_(std::move(inSight)) {}

void MessageBox::reject() {
    if (escapeButton())
        QMessageBox::reject();
}

void MessageBox::closeEvent(QCloseEvent* event) {
    if (escapeButton())
        QMessageBox::closeEvent(event);
    else
        event->ignore();
}

void MessageBox::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel) && !escapeButton())
        return; // a lone No would answer
    if (auto* const bar = scrolled_ ? scrolled_->verticalScrollBar() : nullptr) {
        switch (event->key()) {
        case Qt::Key_PageUp:
            return bar->triggerAction(QScrollBar::SliderPageStepSub);
        case Qt::Key_PageDown:
            return bar->triggerAction(QScrollBar::SliderPageStepAdd);
        case Qt::Key_Home:
            return bar->triggerAction(QScrollBar::SliderToMinimum);
        case Qt::Key_End:
            return bar->triggerAction(QScrollBar::SliderToMaximum);
        default:
            break;
        }
    }
    QMessageBox::keyPressEvent(event);
}

void MessageBox::showEvent(QShowEvent* event) {
    QMessageBox::showEvent(event); // only now it has the size that its text asks for
    auto const room = roomFor(parentWidget()).marginsRemoved(frameFor(parentWidget())).size();
    if (!scrolled_ && !fits(room))
        scrollText(room);
    bringIntoRoom();
}

bool MessageBox::fits(QSize room) const {
    return width() <= room.width() && height() <= room.height() &&
           layout()->totalMinimumSize().width() <= width();
}

void MessageBox::scrollText(QSize room) {
    auto* const label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!label)
        return;
    auto const [rest, last] = withoutLastLine(text(), fontMetrics());
    auto* const parts = new QWidget(this);
    auto* const column = new QVBoxLayout(parts);
    column->setContentsMargins({});
    scrolled_ = makePage(rest, windowTitle().trimmed(), parts);
    column->addWidget(scrolled_);
    if (!last.isEmpty())
        column->addWidget(makeLine(last, parts));
    delete layout()->replaceWidget(label, parts);
    label->hide();
    parts->show();
    // Icon, buttons and margins are what the box needs around a page without size.
    scrolled_->setFixedSize(0, 0);
    layout()->activate();
    auto const around = layout()->totalMinimumSize();
    fitPage(*scrolled_, (room - around).boundedTo(largestPage));
    QEvent changed(QEvent::LayoutRequest);
    QMessageBox::event(&changed);                // takes the new size before the box comes up
    scrolled_->verticalScrollBar()->setValue(0); // growing, the page has kept its old middle
}

/// Over the middle of its owner, but inside the room and off what is to stay in sight.
void MessageBox::bringIntoRoom() {
    auto const* const owner = parentWidget() ? parentWidget()->window() : nullptr;
    auto const frame = frameFor(owner);
    auto const room = roomFor(owner);
    auto const around = owner ? owner->geometry() : room;
    auto const usual = around.center() - rect().center() - QPoint(frame.left(), frame.top());
    auto const corner = placeInSightOf(size().grownBy(frame), room, usual, inSight_);
    // Not move(): it does not know the frame of a window that is just coming up.
    setGeometry(QRect(corner + QPoint(frame.left(), frame.top()), size()));
}

} // namespace desktop
