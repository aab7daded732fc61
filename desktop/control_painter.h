// Paints controls that have no widget of their own: everything on a card, and labels and picture
// boxes elsewhere.
#pragma once

#include "platform/controls.h"

#include <QPointF>
#include <QRect>

class QColor;
class QPainter;

namespace desktop {

/// Whether '&' in a caption marks an access key or stands for itself.
enum class Ampersand { accessKey, plain };

void paintLabel(QPainter& painter, platform::Label const& label, QRect const& place,
                Ampersand ampersand);
/// Background, border, picture and drawing; not what stands in the box.
void paintPictureBox(QPainter& painter, platform::PictureBox const& box, QRect const& place);
/// A one pixel outline, which lies inside the shape's rectangle.
void paintShape(QPainter& painter, platform::Shape const& shape, QRect const& place);
/// A line between two points of its form.
void paintLine(QPainter& painter, platform::Line const& line);
/// The pixels that a line can touch.
QRect lineBounds(platform::Line const& line);

/// The sign of what opens a list, and the same to the pixel whatever the clip: the style's own is a
/// picture, which a clip leaves a shade different where a scale is no whole number.
void paintArrowhead(QPainter& painter, QPointF middle, QColor const& colour);

/// Any control as it looks on a card, drawn with the style's own parts.
void paintControl(QPainter& painter, platform::Control const& control, QRect const& place);

} // namespace desktop
