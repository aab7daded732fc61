#include "desktop/mouse.h"

#include "desktop/text.h"
#include "platform/input.h"
#include "platform/system.h"

#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

/// Where a point of a control's widget lies in the form, by the control's own place. It is moved
/// inside the control: what a control's widget takes belongs to that control.
QPointF formPoint(platform::Control const& control, QMouseEvent const& event) {
    QPointF result(wholePixel(event.position()));
    for (auto const* at = &control; at != &at->form(); at = at->container())
        result += QPointF(toPixels(at->form(), at->Left), toPixels(at->form(), at->Top));
    return result;
}

/// True while Shift, Ctrl or Alt is held.
bool hasModifier(QMouseEvent const& event) {
    return event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
}

/// 1 left, 2 right, 4 middle; 0 for a button that the program does not know.
int numberOf(Qt::MouseButton button) {
    constexpr auto known = Qt::LeftButton | Qt::RightButton | Qt::MiddleButton;
    return static_cast<int>(button & known);
}

platform::System::Mouse const& mouse() {
    return platform::System::current().mouse();
}

/// Sends what is no release. Where this event is the first to tell that the button of an earlier
/// press is up again, that press is finished before.
template <class Call>
void send(platform::Control& control, EventGate& gate, QMouseEvent const& event, Call const& call) {
    auto& form = control.form();
    auto const point = formPoint(control, event);
    auto down = event.buttons();
    if (event.type() != QEvent::MouseMove)
        down.setFlag(event.button(), false); // it has just come down
    finishLostPress(gate, down);
    auto const& forms = platform::System::current().forms();
    if (std::find(forms.begin(), forms.end(), &form) != forms.end())
        gate.run([&] { call(form, point); });
}

} // namespace

QPoint wholePixel(QPointF const& position) {
    return {static_cast<int>(std::floor(position.x())), static_cast<int>(std::floor(position.y()))};
}

void finishLostPress(EventGate& gate, Qt::MouseButtons down) {
    if (mouse().captured && !(static_cast<int>(down) & mouse().button))
        gate.run([&] {
            if (auto* const captured = mouse().captured)
                platform::input::mouse_release(captured->form(), -1, -1);
        });
}

void sendPress(platform::Control& control, EventGate& gate, QMouseEvent const& event) {
    int const button = numberOf(event.button());
    if (button != 0)
        send(control, gate, event, [&](platform::Form& form, QPointF point) {
            platform::input::mouse_press(form, point.x(), point.y(), hasModifier(event), button);
        });
}

void sendMove(platform::Control& control, EventGate& gate, QMouseEvent const& event) {
    send(control, gate, event, [](platform::Form& form, QPointF point) {
        platform::input::mouse_move(form, point.x(), point.y());
    });
}

void sendRelease(platform::Control& control, EventGate& gate, QMouseEvent const& event) {
    if (!mouse().captured || numberOf(event.button()) != mouse().button)
        return;
    auto const point = formPoint(control, event);
    gate.run([&] { platform::input::mouse_release(control.form(), point.x(), point.y()); });
}

void sendDoublePress(platform::Control& control, EventGate& gate, QMouseEvent const& event) {
    if (event.button() != Qt::LeftButton)
        return sendPress(control, gate, event);
    send(control, gate, event, [&](platform::Form& form, QPointF point) {
        if (!mouse().captured) // another button may be down
            platform::input::mouse_double_press(form, point.x(), point.y(), hasModifier(event));
    });
}

} // namespace desktop
