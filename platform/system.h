// System: what one running session shares over all its forms. There is one at a time.
#pragma once

#include "platform/base.h"
#include "platform/form.h"
#include "platform/host.h"

#include <functional>
#include <vector>

namespace platform {

class System {
  public:
    explicit System(Host& host);
    ~System();
    System(System const&) = delete;
    System& operator=(System const&) = delete;

    /// The running one. Calling it without one is a programming error.
    static System& current();

    Host& host() { return host_; }

    /// All loaded forms, in the order in which they were loaded.
    std::vector<Form*> const& forms() const { return forms_; }
    /// The modal form that takes all input, or null.
    Form* active_modal() const { return modal_.empty() ? nullptr : modal_.back(); }
    /// The control with the keyboard focus, or null.
    Control* focused() const { return focused_; }
    /// All timers, enabled or not.
    std::vector<Timer*> const& timers() const { return timers_; }

    int MousePointer() const { return pointer_; }
    void set_MousePointer(int number);

    /// Moves the keyboard focus, raising LostFocus and GotFocus. Null takes it from everything.
    void move_focus(Control* control);

    /// Runs a handler at the outer edge of an event. A run-time error goes to on_failure, anything
    /// else to Host::unhandled: nothing but the end of the session leaves an event.
    template <class Handler>
    static void at_edge(Handler const& handler) {
        // Needs no memory of its own, which may have run out.
        run_at_edge([](void const* one) { (*static_cast<Handler const*>(one))(); }, &handler);
    }
    /// Shows the box for a run-time error that no command caught itself.
    std::function<void(RuntimeError const&)> on_failure;

    /// Called by the host when a box is about to wait for the user. What fails in it keeps no box
    /// from coming.
    void about_to_ask();
    std::function<void()> before_box;

    /// The mouse between a press and its release: the object that took the press gets everything
    /// up to the release. The form itself stands for the press on its bare surface.
    struct Mouse {
        Control* captured = nullptr;
        int button = 0;
        int shift = 0;
    };
    Mouse& mouse() { return mouse_; }

    /// Called for a control that goes: it keeps neither focus nor mouse.
    void forget(Control const& control);

  private:
    static void run_at_edge(void (*call)(void const*), void const* handler);

    friend class Form;
    friend class Timer;
    friend class Control;
    Host& host_;
    std::vector<Form*> forms_;
    std::vector<Form*> modal_;
    std::vector<Timer*> timers_;
    Control* focused_ = nullptr;
    /// Who had the keyboard before each modal form, null where nobody did or it is gone.
    std::vector<Control*> focus_before_;
    int pointer_ = 0;
    Mouse mouse_;
};

} // namespace platform
