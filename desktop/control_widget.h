// ControlWidget: one Qt widget that shows one control.
#pragma once

#include "desktop/event_gate.h"
#include "platform/controls.h"

#include <QWidget>

namespace desktop {

/// The part of a widget that knows its control. The classes that follow from it are each a Qt
/// widget too; its parent widget owns it.
class ControlWidget {
  public:
    ControlWidget(platform::Control& control, EventGate& gate) : control_(&control), gate_(gate) {}
    virtual ~ControlWidget() = default;
    ControlWidget(ControlWidget const&) = delete;
    ControlWidget& operator=(ControlWidget const&) = delete;

    virtual QWidget& widget() = 0;
    /// Takes over the properties of the control's class; place and visibility are the caller's.
    virtual void takeOver() = 0;
    /// The widget that the mouse touches: for some it is one inside.
    virtual QWidget& mouseWidget() { return widget(); }

    /// Puts on the colours of another desktop palette.
    void takeOverPalette();

    /// Null once the control has gone, while events of the widget may still be running.
    platform::Control* control() const { return control_; }
    void forgetControl() { control_ = nullptr; }

  protected:
    EventGate& gate() const { return gate_; }
    /// Font and colours of a control that shows text.
    void takeOverLook(platform::TextControl const& control);

  private:
    platform::Control* control_;
    EventGate& gate_;
    platform::Font font_;
    platform::Colour fore_ = -1;
    platform::Colour back_ = -1;
    bool hasLook_ = false;
};

/// Makes the widget of a control's class; null for a class that shows nothing.
ControlWidget* makeControlWidget(platform::Control& control, QWidget& parent, EventGate& gate);

} // namespace desktop
