#include "platform/system.h"

#include "platform/base.h"

#include <algorithm>
#include <cassert>
#include <new>

namespace platform {

namespace {
System* running = nullptr;
}

System::System(Host& host) : host_(host) {
    assert(!running);
    running = this;
}

System::~System() {
    running = nullptr;
}

System& System::current() {
    assert(running);
    return *running;
}

Host& host() {
    return System::current().host();
}

Size Host::inner_size(Form const& form) const {
    auto const screen = metrics();
    double const frames = 2.0 * screen.frame_width;
    double const heading = screen.caption_height + screen.menu_height;
    return {form.Width - frames * screen.TwipsPerPixelX,
            form.Height - (frames + heading) * screen.TwipsPerPixelY};
}

Area Host::visible_part(Form const& form) const {
    auto const inside = inner_size(form);
    return {0, 0, inside.width / twips_per_pixel, inside.height / twips_per_pixel};
}

Bounds Host::normal_bounds(Form const& form) const {
    return {form.Left, form.Top, form.Width, form.Height};
}

void Host::End() {
    ending();
    throw SessionEnd{};
}

void System::set_MousePointer(int number) {
    if (pointer_ == number)
        return;
    pointer_ = number;
    host_.pointer_changed(number);
}

void System::move_focus(Control* control) {
    if (focused_ == control)
        return;
    auto* const before = std::exchange(focused_, control);
    host_.focus_changed(control);
    if (before)
        before->LostFocus(before->index());
    // The handler above may have moved the focus on, or taken the control away.
    if (control && focused_ == control)
        control->GotFocus(control->index());
}

void System::forget(Control const& control) {
    if (focused_ == &control)
        focused_ = nullptr;
    std::replace(focus_before_.begin(), focus_before_.end(), const_cast<Control*>(&control),
                 static_cast<Control*>(nullptr));
    if (mouse_.captured == &control)
        mouse_ = {};
}

void System::about_to_ask() {
    try {
        if (before_box)
            before_box();
    } catch (std::exception const&) {
        // The box may be about the same failure.
    }
}

void System::run_at_edge(void (*call)(void const*), void const* handler) {
    auto& system = current();
    try {
        with_memory_checked([&] { call(handler); });
    } catch (RuntimeError const& error) {
        if (system.on_failure)
            system.on_failure(error);
        else
            system.host().unhandled(error.text());
    } catch (std::exception const& error) {
        system.host().unhandled(error.what());
    }
}

} // namespace platform
