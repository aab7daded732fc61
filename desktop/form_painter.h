// A form without widgets in it, painted as a whole or in the steps that a canvas keeps apart.
#pragma once

#include "platform/form.h"

#include <QRect>

class QPainter;

namespace desktop {

/// Lines and shapes lie over everything else, the shapes topmost.
bool isOutline(platform::ControlClass kind);

/// What a control of the form covers, in pixels from the form's corner.
QRect placeOf(platform::Control const& control);

/// What lies on the form's own colour and under its controls: its picture, cut to `inside`, and
/// what was drawn on it.
void paintGround(QPainter& painter, platform::Form const& form, QRect const& inside);

/// The form as its window shows it: colour, ground and visible controls, in stacking order.
void paintForm(QPainter& painter, platform::Form const& form, QRect const& inside);

} // namespace desktop
