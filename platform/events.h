// Events: plain members of a control that hold its handler. Wiring one is assigning to it.
#pragma once

#include <concepts>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace platform {

class Control;

/// Takes a handler without arguments, or one that wants the index of the control that raised it
/// (for the elements of a collection).
class Event {
  public:
    Event() = default;

    template <std::invocable<> Handler>
    Event& operator=(Handler handler) {
        handler_ = [handler = std::move(handler)](int) { handler(); };
        return *this;
    }
    template <std::invocable<int> Handler>
    Event& operator=(Handler handler) {
        handler_ = std::move(handler);
        return *this;
    }

    explicit operator bool() const { return static_cast<bool>(handler_); }
    void operator()(int index) const {
        // A copy: the handler may take away the control that holds it.
        if (auto const handler = handler_)
            handler(index);
    }

  private:
    std::function<void(int)> handler_;
};

/// Where a mouse event happened. `Shift` is non-zero while any modifier key is held. The unit of
/// X and Y is the one that the receiving object's container counts in.
struct MouseArguments {
    int Button = 1;
    int Shift = 0;
    double X = 0;
    double Y = 0;
};

using MouseEvent = std::function<void(int index, MouseArguments const& mouse)>;

/// The handler may change the key, or set it to 0 to swallow it.
using KeyPressEvent = std::function<void(int index, char32_t& key)>;

/// A control of this tag is dropped on a form, at a point in the form's unit.
using DragDropEvent = std::function<void(Control& source, double X, double Y)>;

/// Files from outside are dropped on a form: their names.
using FilesDroppedEvent = std::function<void(std::vector<std::string> const& files)>;

/// `user` is true when the close comes from the window's own button; setting `cancel` keeps the
/// form loaded.
using QueryUnloadEvent = std::function<void(bool user, bool& cancel)>;

} // namespace platform
