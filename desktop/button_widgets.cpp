#include "desktop/button_widgets.h"

#include "desktop/drag.h"
#include "desktop/pictures.h"
#include "desktop/text.h"
#include "platform/input.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>

namespace desktop {

namespace {

/// Takes over a caption with its access key.
void takeOverCaption(QAbstractButton& widget, std::string_view caption) {
    if (auto const text = toQt(caption); widget.text() != text) {
        widget.setText(text);
        widget.setAccessibleName(QString(text).remove(u'&'));
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
    sendClicks(*this, gate);
}

void ButtonWidget::takeOver() {
    takeOverLook(*button());
    takeOverCaption(*this, button()->Caption.get());
    update();
}

void ButtonWidget::paintEvent(QPaintEvent*) {
    if (!button())
        return;
    QPainter painter(this);
    if (button()->Picture.get().empty())
        paintRaised(painter);
    else
        paintFlat(painter);
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
    // Only who walks with the keyboard needs to see where it is.
    if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange)) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    drawPicture(painter, button()->Picture, rect());
}

void ButtonWidget::paintRaised(QPainter& painter) {
    QStyleOptionButton option;
    option.initFrom(this);
    option.text = text();
    option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    if (button()->Default)
        option.features |= QStyleOptionButton::DefaultButton;
    style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
}

void ButtonWidget::mousePressEvent(QMouseEvent* event) {
    pressedAt_ = event->position().toPoint();
    QAbstractButton::mousePressEvent(event);
}

void ButtonWidget::mouseMoveEvent(QMouseEvent* event) {
    auto const distance = (event->position().toPoint() - pressedAt_).manhattanLength();
    bool const drags = button() && button()->DragMode && (event->buttons() & Qt::LeftButton) &&
                       distance >= QApplication::startDragDistance();
    if (!drags)
        return QAbstractButton::mouseMoveEvent(event);
    setDown(false);
    dragButton(*this, *button());
}

void ButtonWidget::keyPressEvent(QKeyEvent* event) {
    bool const enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && button())
        gate().run([&] { platform::input::click(*button()); });
    else
        QAbstractButton::keyPressEvent(event);
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
    sendClicks(*this, gate);
}

void OptionButtonWidget::takeOver() {
    auto const& option = static_cast<platform::OptionButton const&>(*control());
    takeOverLook(option);
    takeOverCaption(*this, option.Caption.get());
    setChecked(option.Value);
}

} // namespace desktop
