// The mouse on the widget of a control or on a form, as the program wants to hear of it: as points
// of the form, one button at a time, and each press with its release.
#pragma once

#include "desktop/event_gate.h"
#include "platform/control.h"

#include <QMouseEvent>

namespace desktop {

/// `control` may be the form itself. Another button than the one that is down is left alone, its
/// press as well as its release.
void sendPress(platform::Control& control, EventGate& gate, QMouseEvent const& event);
void sendMove(platform::Control& control, EventGate& gate, QMouseEvent const& event);
void sendRelease(platform::Control& control, EventGate& gate, QMouseEvent const& event);
void sendDoublePress(platform::Control& control, EventGate& gate, QMouseEvent const& event);

/// Releases, beside everything, a press whose own release went elsewhere, as to a box that came up.
/// Does nothing while that button is down.
void finishLostPress(EventGate& gate, Qt::MouseButtons down);

/// A point in pixels without its fraction.
QPoint wholePixel(QPointF const& position);

} // namespace desktop
