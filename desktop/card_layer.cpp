#include "desktop/card_layer.h"

#include <QPainter>

#include <utility>

namespace desktop {

namespace {

constexpr qsizetype enough = 16;

} // namespace

void ChangedPlaces::add(QRect const& place) {
    if (place.isEmpty())
        return;
    around_ |= place;
    if (places_.size() <= enough)
        places_.append(place);
}

QRegion ChangedPlaces::take() {
    QRegion all;
    if (places_.size() > enough)
        all = around_;
    else
        for (auto const& place : std::as_const(places_))
            all += place;
    *this = {};
    return all;
}

void CardLayer::cover(QRect const& place, QPainter const& painter) {
    place_ = place;
    grid_ = DeviceGrid::of(painter);
    QRectF const exact(QPointF(place.topLeft()) * grid_.ratio + grid_.phase,
                       QSizeF(place.size()) * grid_.ratio);
    auto const pixels = exact.toAlignedRect();
    corner_ = pixels.topLeft();
    if (image_.size() != pixels.size())
        image_ = QImage(pixels.size(), QImage::Format_RGB32);
    image_.setDevicePixelRatio(grid_.ratio);
}

bool CardLayer::covers(QRect const& place, QPainter const& painter) const {
    return place_.contains(place) && grid_.isLike(DeviceGrid::of(painter));
}

void CardLayer::alignPainter(QPainter& painter) const {
    painter.translate((grid_.phase - corner_) / grid_.ratio);
}

void CardLayer::show(QPainter& painter) const {
    drawDevicePixels(painter, DeviceGrid::of(painter).corner + corner_, image_);
}

} // namespace desktop
