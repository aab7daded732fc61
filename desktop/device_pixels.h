// Painting in whole pixels of the device, also where a pixel of the program is no whole number of
// them.
#pragma once

#include <QPointF>
#include <QRectF>

class QColor;
class QImage;
class QPainter;

namespace desktop {

/// How a painter's lengths lie on the pixels of its device. Two painters of the same grid paint the
/// same pixels, shifted by a whole number of them.
struct DeviceGrid {
    double ratio = 0; // device pixels to one of the painter's
    QPointF phase;    // of the painter's origin, inside a device pixel
    QPoint corner;    // the device pixel that the origin lies in

    static DeviceGrid of(QPainter const& painter);
    bool isLike(DeviceGrid const& other) const;
};

/// From here on the painter works in pixels of its device.
void useDevicePixels(QPainter& painter);

/// Puts an image on device pixels, each of its pixels on one of them.
void drawDevicePixels(QPainter& painter, QPoint corner, QImage const& image);

/// Nothing outside the rectangle is painted from here on: exactly what filling it would fill, which
/// a clip of the painter's own is not.
void clipToPixels(QPainter& painter, QRectF const& place);

enum class Corners { square, takenOff };

/// A frame as thin as a pixel of the painter, in whole device pixels, inside the rectangle: a pen
/// would touch pixels outside of it. Where there is no room for two sides they are one line.
void paintFrame(QPainter& painter, QRect const& place, QColor const& colour,
                Corners corners = Corners::square);
/// The same with what it encloses: between the two nothing shows of what is below.
void paintFilledFrame(QPainter& painter, QRect const& place, QColor const& colour,
                      QColor const& inside, Corners corners = Corners::square);

} // namespace desktop
