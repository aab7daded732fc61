// CardLayer: a picture of what stands still on a card.
#pragma once

#include "desktop/device_pixels.h"

#include <QImage>
#include <QRect>
#include <QRegion>

class QPainter;

namespace desktop {

/// Places that have changed. A few are kept one by one; many become the one rectangle around them,
/// for working with a thousand of them takes longer than painting what lies between.
class ChangedPlaces {
  public:
    void add(QRect const& place);
    /// Hands out what has been collected, and begins anew.
    QRegion take();
    bool isEmpty() const { return places_.isEmpty(); }

  private:
    QList<QRect> places_; // the first of them
    QRect around_;        // all
};

/// A part of a widget as pixels, exactly those that the widget's own painter would paint. It is as
/// large as what can be seen of the widget, not as the widget: a card may be far larger than its
/// window.
class CardLayer {
  public:
    /// Makes room for a part of what `painter` paints on. What was there is gone.
    void cover(QRect const& place, QPainter const& painter);
    bool covers(QRect const& place, QPainter const& painter) const;
    QRect const& place() const { return place_; }

    /// The pixels; a painter on them works in the widget's coordinates after `alignPainter`.
    QImage& image() { return image_; }
    void alignPainter(QPainter& painter) const;

    /// Puts the layer where it belongs, as far as the painter's clip lets it.
    void show(QPainter& painter) const;

  private:
    QImage image_;
    QRect place_;
    DeviceGrid grid_;
    QPoint corner_; // of the image, in device pixels from the one of the widget's origin
};

} // namespace desktop
