// FormView: what shows one form.
#pragma once

#include <QWidget>

namespace platform {
class Control;
class Form;
} // namespace platform

namespace desktop {

/// One for each form, of the form's kind. All are told of changes at the same moment, once an
/// event.
class FormView {
  public:
    virtual ~FormView() = default;

    virtual QWidget& windowWidget() = 0;
    /// Takes over what has changed in a control of the form, or in the form itself.
    virtual void takeOver(platform::Control& control) = 0;
    /// The control is going; only its address is still good.
    virtual void remove(platform::Control const& control) = 0;
    /// All changed controls have been taken over: the window as a whole follows, shown or hidden.
    virtual void settle() = 0;
    /// The widget that the keyboard goes to while this control has the focus; null without one.
    virtual QWidget* focusWidgetOf(platform::Control const& control) = 0;
    /// The control at a point of one of the view's widgets; null for none.
    virtual platform::Control* controlAt(QWidget& widget, QPoint point) = 0;
    /// Where a control shows on the screen: what can be seen of it. Empty when nothing can.
    virtual QRect placeOnScreen(platform::Control const& control) = 0;
    /// What shows the form's inside, where a part of it may be out of sight; null elsewhere.
    virtual QWidget* inside() { return nullptr; }
    /// The pointer shape over the form's free surface.
    virtual void setPointer(Qt::CursorShape) {}
    /// The form is going: the window disappears, and is deleted when no event of it is running.
    virtual void discard() = 0;
};

/// The part of a place in a widget that can be seen, on the screen.
inline QRect visiblePartOnScreen(QWidget const& widget, QRect place) {
    if (!widget.isVisible())
        return {};
    auto const seen = widget.visibleRegion().intersected(place).boundingRect();
    return {widget.mapToGlobal(seen.topLeft()), seen.size()};
}

} // namespace desktop
