// CardLayer: a picture of what stands still on a card.
#pragma once

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

/// A part of a widget as pixels. It is as large as what can be seen of the widget, not as the
/// widget: a card may be far larger than its window.
class CardLayer {
  public:
    /// Makes room for a part of the widget, in its own device pixels. What was there is gone.
    void cover(QRect const& place, double ratio);
    bool covers(QRect const& place, double ratio) const;
    QRect const& place() const { return place_; }

    /// The pixels; a painter on them works in the widget's coordinates after `alignPainter`.
    QImage& image() { return image_; }
    void alignPainter(QPainter& painter) const;

    /// Puts the layer where it belongs, as far as the painter's clip lets it. Always as a whole:
    /// cut at a widget's pixels it would not fit its own where those are no whole number.
    void show(QPainter& painter) const;

  private:
    QImage image_;
    QRect place_;
};

} // namespace desktop
