#include "desktop/mouse.h"

#include "desktop/text.h"
#include "platform/input.h"
#include "platform/system.h"

#include <cmath>

namespace desktop {

namespace {

/// Where a point of a control's widget lies in the form, by the control's own place. It is moved
/// inside the control: what a control's widget takes belongs to that control.
QPointF formPoint(platform::Control const& control, QPoint point) {
    QPointF result(point);
    for (auto const* at = &control; at != &at->form(); at = at->container())
        result += QPointF(toPixels(at->form(), at->Left), toPixels(at->form(), at->Top));
    return result;
}

} // namespace

QPoint wholePixel(QPointF const& position) {
    return {static_cast<int>(std::floor(position.x())), static_cast<int>(std::floor(position.y()))};
}

bool hasModifier(QMouseEvent const& event) {
    return event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
}

int buttonNumber(QMouseEvent const& event) {
    return event.button() == Qt::RightButton ? 2 : event.button() == Qt::MiddleButton ? 4 : 1;
}

void dropLostPress(QMouseEvent const& event) {
    if (event.buttons() == event.button())
        platform::System::current().mouse() = {};
}

void sendPress(platform::Control& control, EventGate& gate, QMouseEvent const& event) {
    auto const point = formPoint(control, wholePixel(event.position()));
    gate.run([&] {
        dropLostPress(event);
        platform::input::mouse_press(control.form(), point.x(), point.y(), hasModifier(event),
                                     buttonNumber(event));
    });
}

void sendMove(platform::Control& control, EventGate& gate, QMouseEvent const& event) {
    auto const point = formPoint(control, wholePixel(event.position()));
    gate.run([&] { platform::input::mouse_move(control.form(), point.x(), point.y()); });
}

void sendRelease(platform::Control& control, EventGate& gate, QMouseEvent const& event) {
    auto const point = formPoint(control, wholePixel(event.position()));
    gate.run([&] { platform::input::mouse_release(control.form(), point.x(), point.y()); });
}

void sendDoublePress(platform::Control& control, EventGate& gate, QMouseEvent const& event) {
    auto const point = formPoint(control, wholePixel(event.position()));
    gate.run([&] {
        platform::input::mouse_double_press(control.form(), point.x(), point.y(),
                                            hasModifier(event));
    });
}

} // namespace desktop
