// The mouse on a control's own widget, as the program wants to hear of it: as points of the form.
#pragma once

#include "desktop/event_gate.h"
#include "platform/control.h"

#include <QMouseEvent>

namespace desktop {

void sendPress(platform::Control& control, EventGate& gate, QMouseEvent const& event);
void sendMove(platform::Control& control, EventGate& gate, QMouseEvent const& event);
void sendRelease(platform::Control& control, EventGate& gate, QMouseEvent const& event);
void sendDoublePress(platform::Control& control, EventGate& gate, QMouseEvent const& event);

/// A point in pixels without its fraction.
QPoint wholePixel(QPointF const& position);
/// True while Shift, Ctrl or Alt is held.
bool hasModifier(QMouseEvent const& event);
/// 1 left, 2 right, 4 middle.
int buttonNumber(QMouseEvent const& event);
/// Forgets a press whose release was taken by a box that came up meanwhile: this is the only button
/// that is down.
void dropLostPress(QMouseEvent const& event);

} // namespace desktop
