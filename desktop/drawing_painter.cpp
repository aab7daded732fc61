#include "desktop/drawing_painter.h"

#include "desktop/colours.h"
#include "desktop/device_pixels.h"
#include "desktop/fonts.h"
#include "desktop/pictures.h"
#include "desktop/text.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <variant>

namespace desktop {

namespace {

/// Paints one item after the other, all lengths in whole pixels.
class DrawingPainter {
  public:
    DrawingPainter(QPainter& painter, platform::TextControl const& owner, double pixelsPerUnit)
        : painter_(painter), owner_(owner), ground_(groundOf(owner)), scale_(pixelsPerUnit) {}

    void operator()(platform::DrawingLayer::Dots const& dots) {
        auto const colour = toColour(dots.colour, ground_);
        // A grid is a hundred thousand dots: they go straight into the picture where there is one.
        auto* const image = dynamic_cast<QImage*>(painter_.device());
        bool const direct = image && image->depth() == 32 && image->devicePixelRatio() == 1 &&
                            !painter_.hasClipping() &&
                            painter_.transform().type() <= QTransform::TxTranslate;
        if (direct)
            return fillDots(*image, dots, colour.rgb());
        // Of one size each, or some rows of the grid would be brighter than others.
        auto const to = painter_.deviceTransform();
        int const size = std::max(1, static_cast<int>(to.m11()));
        painter_.save();
        useDevicePixels(painter_);
        for (auto const& [x, y] : dots.points) {
            auto const place = to.map(QPointF(pixel(x), pixel(y))).toPoint();
            painter_.fillRect(place.x(), place.y(), size, size, colour);
        }
        painter_.restore();
    }

    void operator()(platform::DrawingLayer::Line const& line) {
        painter_.setPen(toColour(line.colour, ground_));
        painter_.drawLine(pixel(line.x1), pixel(line.y1), pixel(line.x2), pixel(line.y2));
    }

    void operator()(platform::DrawingLayer::FilledBox const& box) {
        // Both corners belong to the box.
        QRect const area(QPoint(pixel(box.x1), pixel(box.y1)),
                         QPoint(pixel(box.x2), pixel(box.y2)));
        painter_.fillRect(area.normalized(), toColour(box.colour, ground_));
    }

    void operator()(platform::DrawingLayer::Text const& text) {
        painter_.setFont(fontFor(owner_.font()));
        painter_.setPen(toColour(owner_.ForeColor, ground_));
        QRectF const area(text.x * scale_, text.y * scale_, 1e4, 1e4);
        painter_.drawText(area, Qt::AlignLeft | Qt::AlignTop, toQt(text.text));
    }

    void operator()(platform::DrawingLayer::PaintedPicture const& painted) {
        drawStretched(painter_, painted.picture,
                      QRectF(painted.x * scale_, painted.y * scale_, painted.width * scale_,
                             painted.height * scale_));
    }

  private:
    int pixel(double length) const { return static_cast<int>(std::floor(length * scale_ + 0.5)); }

    void fillDots(QImage& image, platform::DrawingLayer::Dots const& dots, QRgb colour) {
        auto* const bits = reinterpret_cast<QRgb*>(image.bits());
        auto const stride = image.bytesPerLine() / qsizetype{sizeof(QRgb)};
        int const right = static_cast<int>(painter_.transform().dx());
        int const down = static_cast<int>(painter_.transform().dy());
        for (auto const& [left, top] : dots.points) {
            int const x = pixel(left) + right;
            int const y = pixel(top) + down;
            if (x >= 0 && y >= 0 && x < image.width() && y < image.height())
                bits[y * stride + x] = colour;
        }
    }

    QPainter& painter_;
    platform::TextControl const& owner_;
    Ground ground_;
    double scale_;
};

} // namespace

void paintDrawing(QPainter& painter, platform::DrawingLayer const& drawing,
                  platform::TextControl const& owner, double pixelsPerUnit) {
    DrawingPainter paint(painter, owner, pixelsPerUnit);
    for (auto const& item : drawing.items())
        std::visit(paint, item);
}

} // namespace desktop
