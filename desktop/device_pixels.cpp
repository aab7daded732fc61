#include "desktop/device_pixels.h"

#include <QColor>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

constexpr double tiny = 1e-6; // what is lost in dividing by a ratio and multiplying by it again

/// The device pixels of a rectangle, its edges rounded: neighbours that touch go on touching.
QRect devicePixels(QPainter const& painter, QRectF const& place) {
    auto const exact = painter.deviceTransform().mapRect(place);
    auto const rounded = [](double length) { return static_cast<int>(std::floor(length + 0.5)); };
    QPoint const corner(rounded(exact.left()), rounded(exact.top()));
    return {corner, QPoint(rounded(exact.right()) - 1, rounded(exact.bottom()) - 1)};
}

} // namespace

void useDevicePixels(QPainter& painter) {
    painter.setWorldTransform(painter.deviceTransform().inverted() * painter.worldTransform());
}

DeviceGrid DeviceGrid::of(QPainter const& painter) {
    auto const& to = painter.deviceTransform();
    QPoint const corner(static_cast<int>(std::floor(to.dx() + tiny)),
                        static_cast<int>(std::floor(to.dy() + tiny)));
    return {to.m11(), QPointF(to.dx(), to.dy()) - corner, corner};
}

bool DeviceGrid::isLike(DeviceGrid const& other) const {
    auto const shift = phase - other.phase;
    return std::abs(ratio - other.ratio) < tiny && std::abs(shift.x()) < tiny &&
           std::abs(shift.y()) < tiny;
}

void drawDevicePixels(QPainter& painter, QPoint corner, QImage const& image) {
    // The image's own ratio would have it drawn smaller.
    QImage const pixels(image.constBits(), image.width(), image.height(), image.bytesPerLine(),
                        image.format());
    painter.save();
    useDevicePixels(painter);
    painter.drawImage(corner, pixels);
    painter.restore();
}

void clipToPixels(QPainter& painter, QRectF const& place) {
    auto const pixels = devicePixels(painter, place);
    auto const before = painter.worldTransform();
    useDevicePixels(painter);
    painter.setClipRect(pixels.isEmpty() ? QRect() : pixels, Qt::IntersectClip);
    painter.setWorldTransform(before);
}

void paintFrame(QPainter& painter, QRect const& place, QColor const& colour, Corners corners) {
    paintFilledFrame(painter, place, colour, QColor(), corners);
}

void paintFilledFrame(QPainter& painter, QRect const& place, QColor const& colour,
                      QColor const& inside, Corners corners) {
    auto const whole = devicePixels(painter, place);
    if (whole.isEmpty())
        return;
    int const width = std::max(1, static_cast<int>(painter.deviceTransform().m11() + tiny));
    int const across = std::min(width, whole.width());
    int const down = std::min(width, whole.height());
    auto const enclosed = whole.adjusted(across, down, -across, -down);
    auto const level = corners == Corners::square ? whole : whole.adjusted(across, 0, -across, 0);
    painter.save();
    useDevicePixels(painter);
    if (inside.isValid() && !enclosed.isEmpty())
        painter.fillRect(enclosed, inside);
    for (auto const& side :
         {QRect(level.left(), whole.top(), level.width(), down),
          QRect(level.left(), enclosed.bottom() + 1, level.width(), down),
          QRect(whole.left(), enclosed.top(), across, enclosed.height()),
          QRect(enclosed.right() + 1, enclosed.top(), across, enclosed.height())})
        if (!side.isEmpty())
            painter.fillRect(side, colour);
    painter.restore();
}

} // namespace desktop
