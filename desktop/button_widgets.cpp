#include "desktop/button_widgets.h"

#include "desktop/control_painter.h"
#include "desktop/device_pixels.h"
#include "desktop/drag.h"
#include "desktop/keyboard.h"
#include "desktop/mouse.h"
#include "desktop/pictures.h"
#include "desktop/spoken_option.h"
#include "desktop/text.h"
#include "platform/input.h"

#include <QCursor>
#include <QDrag>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>

#include <algorithm>

namespace desktop {

namespace {

/// Takes over a caption with its access key.
void takeOverCaption(QAbstractButton& widget, std::string_view caption) {
    if (auto const text = toQt(caption); widget.text() != text) {
        widget.setText(text);
        widget.setAccessibleName(QString(text).remove(u'&').trimmed());
    }
}

template <class Widget>
void sendClicks(Widget& widget, EventGate& gate) {
    QObject::connect(&widget, &QAbstractButton::clicked, &widget, [&widget, &gate] {
        if (auto* const control = widget.control())
            gate.run([control] { platform::input::click(*control); });
    });
}

} // namespace

ButtonWidget::ButtonWidget(platform::Button& button, QWidget& parent, EventGate& gate)
    : QAbstractButton(&parent), ControlWidget(button, gate) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    connect(this, &QAbstractButton::clicked, this, [this] {
        // A press without mouse or key is a screen reader's.
        if (this->button() && this->button()->ByKey && !releasesMouse_)
            pressByKey();
        else if (this->button())
            this->gate().run([&] { platform::input::click(*this->button()); });
    });
}

void ButtonWidget::takeOver() {
    takeOverLook(*button());
    takeOverCaption(*this, button()->Caption.get());
    setCheckable(button()->Toggles);
    setChecked(button()->Checked);
    update();
}

void ButtonWidget::paintEvent(QPaintEvent*) {
    if (!button())
        return;
    QPainter painter(this);
    constexpr int roomForFrame = 20; // pixels
    if (!button()->Picture.get().empty())
        paintFlat(painter);
    else if (std::min(width(), height()) < roomForFrame)
        paintSmall(painter);
    else
        paintRaised(painter);
}

void ButtonWidget::paintFlat(QPainter& painter) {
    bool const hovered = isEnabled() && underMouse();
    if (hovered || isDown()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(palette().color(QPalette::Dark));
        painter.setBrush(palette().color(isDown() ? QPalette::Mid : QPalette::Midlight));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    if (showsFocus(*this))
        paintFrame(painter, rect(), palette().color(QPalette::Highlight));
    drawPicture(painter, button()->Picture, rect(), Ground::window);
}

/// A caption with no room for a frame of the style's own, as beside the value of a row.
void ButtonWidget::paintSmall(QPainter& painter) {
    bool const hovered = isEnabled() && underMouse();
    auto const face = isDown() ? QPalette::Mid : hovered ? QPalette::Midlight : QPalette::Button;
    painter.fillRect(rect(), palette().color(face));
    paintFrame(painter, rect(),
               palette().color(showsFocus(*this) ? QPalette::Highlight : QPalette::Dark));
    auto const ink = palette().color(QPalette::ButtonText);
    if (text() == QStringLiteral("▾")) {
        paintArrowhead(painter, QRectF(rect()).center(), ink); // not every font has the sign
        return;
    }
    painter.setPen(ink);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine | Qt::TextHideMnemonic, text());
}

void ButtonWidget::paintRaised(QPainter& painter) {
    QStyleOptionButton option;
    option.initFrom(this);
    option.text = text();
    option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    if (button()->Default)
        option.features |= QStyleOptionButton::DefaultButton;
    style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
    // The style marks the default button and the one with the keyboard alike.
    if (!showsFocus(*this))
        return;
    constexpr int inside = 3;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(inside, inside, -inside, -inside);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

void ButtonWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        pressedAt_ = event->position().toPoint();
        if (button() && button()->MouseDown)
            sendPress(*button(), gate(), *event);
    }
    QAbstractButton::mousePressEvent(event);
}

void ButtonWidget::mouseMoveEvent(QMouseEvent* event) {
    constexpr int dragDistance = 4; // pixels; by less a hand trembles without meaning a drag
    bool const held = pressedAt_ && (event->buttons() & Qt::LeftButton);
    bool const drags =
        held && button() && button()->DragMode &&
        (event->position().toPoint() - *pressedAt_).manhattanLength() >= dragDistance;
    if (drags)
        drag();
    else
        QAbstractButton::mouseMoveEvent(event);
}

void ButtonWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        endPress();
    QPointer<ButtonWidget> const alive(this);
    releasesMouse_ = true;
    QAbstractButton::mouseReleaseEvent(event);
    if (alive)
        releasesMouse_ = false;
}

/// For the program the press ends beside the button, as no click: that is for the widget to tell,
/// and a drag is none.
void ButtonWidget::endPress() {
    pressedAt_.reset();
    finishLostPress(gate(), Qt::NoButton);
}

/// Returns when the button was dropped or the drag given up, and then stands as if it had never
/// been pressed: the release went to the drag.
void ButtonWidget::drag() {
    QPointer<ButtonWidget> const alive(this);
    endPress();
    setDown(false);
    if (!button())
        return;
    makeDrag(*this, *button())->exec(Qt::CopyAction);
    if (!alive)
        return;
    // Wayland tells nobody where the pointer goes in a drag, and leaves it where that began.
    bool const known = !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    setAttribute(Qt::WA_UnderMouse, known && rect().contains(mapFromGlobal(QCursor::pos())));
    update();
}

void ButtonWidget::keyPressEvent(QKeyEvent* event) {
    bool const enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    bool const blank = event->key() == Qt::Key_Space && button() && button()->ByKey;
    if ((enter || blank) && button())
        pressByKey();
    else
        QAbstractButton::keyPressEvent(event);
}

void ButtonWidget::pressByKey() {
    gate().run([&] { platform::input::press(*button(), platform::Key::enter); });
}

CheckBoxWidget::CheckBoxWidget(platform::CheckBox& box, QWidget& parent, EventGate& gate)
    : QCheckBox(&parent), ControlWidget(box, gate) {
    setAutoFillBackground(true);
    sendClicks(*this, gate);
}

void CheckBoxWidget::takeOver() {
    auto const& box = static_cast<platform::CheckBox const&>(*control());
    takeOverLook(box);
    takeOverCaption(*this, box.Caption.get());
    setCheckState(box.Value == 0   ? Qt::Unchecked
                  : box.Value == 2 ? Qt::PartiallyChecked
                                   : Qt::Checked);
}

OptionButtonWidget::OptionButtonWidget(platform::OptionButton& option, QWidget& parent,
                                       EventGate& gate)
    : QRadioButton(&parent), ControlWidget(option, gate) {
    setAutoFillBackground(true);
    setAutoExclusive(false); // which others go off is the program's decision
    letOptionsSpeak();
    sendClicks(*this, gate);
}

void OptionButtonWidget::keyPressEvent(QKeyEvent* event) {
    using platform::Key;
    auto const press = [&](Key key) {
        if (auto* const option = control())
            gate().run([&] { platform::input::press(*option, key); });
    };
    switch (event->key()) {
    case Qt::Key_Up:
        return press(Key::up);
    case Qt::Key_Down:
        return press(Key::down);
    case Qt::Key_Left:
        return press(Key::left);
    case Qt::Key_Right:
        return press(Key::right);
    default:
        QRadioButton::keyPressEvent(event);
    }
}

void OptionButtonWidget::takeOver() {
    auto const& option = static_cast<platform::OptionButton const&>(*control());
    takeOverLook(option);
    takeOverCaption(*this, option.Caption.get());
    setChecked(option.Value);
}

} // namespace desktop
