// Paints what code drew on a form or a picture box.
#pragma once

#include "platform/controls.h"

class QPainter;

namespace desktop {

/// Paints a drawing layer with its corner at the painter's origin. `pixelsPerUnit` turns the
/// lengths of the layer into pixels; texts are written in the font and colour of `owner`.
void paintDrawing(QPainter& painter, platform::DrawingLayer const& drawing,
                  platform::TextControl const& owner, double pixelsPerUnit);

} // namespace desktop
