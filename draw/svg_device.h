// SvgDevice: a drawing in SVG, with clips and real text.
#pragma once

#include <QPaintDevice>
#include <QSizeF>
#include <QString>

#include <memory>

class QIODevice;

namespace draw {

class SvgEngine;

/// What Qt has for this knows no clips, and a text that is longer than its field would run over its
/// neighbours. This one knows what the painting of cards needs: it moves and scales, fills with
/// plain colours, and clips to rectangles.
class SvgDevice : public QPaintDevice {
  public:
    struct Page {
        QSizeF size; ///< as the drawing is shown at first, in pixels
        int detail;  ///< device pixels to a pixel of the painter
        QString title;
    };
    /// Writes to `to` while it is painted on, in pixels of `size`.
    SvgDevice(QIODevice& to, QSize size, Page page);
    ~SvgDevice() override;

    /// Everything so far could be written.
    bool isWhole() const;

    QPaintEngine* paintEngine() const override;

  protected:
    int metric(PaintDeviceMetric metric) const override;

  private:
    QSize size_;
    int detail_;
    std::unique_ptr<SvgEngine> engine_;
};

} // namespace draw
