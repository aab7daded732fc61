#include "desktop/card_layer.h"

#include <QPainter>

#include <cmath>
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

void CardLayer::cover(QRect const& place, double ratio) {
    place_ = place;
    QSize const pixels(static_cast<int>(std::ceil(place.width() * ratio)),
                       static_cast<int>(std::ceil(place.height() * ratio)));
    if (image_.size() != pixels)
        image_ = QImage(pixels, QImage::Format_RGB32);
    image_.setDevicePixelRatio(ratio);
}

bool CardLayer::covers(QRect const& place, double ratio) const {
    return image_.devicePixelRatio() == ratio && place_.contains(place);
}

void CardLayer::alignPainter(QPainter& painter) const {
    painter.translate(-place_.topLeft());
}

void CardLayer::show(QPainter& painter) const {
    painter.drawImage(place_.topLeft(), image_);
}

} // namespace desktop
