#include "desktop/frame_widget.h"

#include "desktop/device_pixels.h"
#include "desktop/text.h"

#include <QPainter>

namespace desktop {

FrameWidget::FrameWidget(platform::Frame& frame, QWidget& parent, EventGate& gate)
    : QGroupBox(&parent), ControlWidget(frame, gate) {}

void FrameWidget::takeOver() {
    takeOverLook(*frame());
    // Not as the widget's title: Qt would tell it as the caption of all that stands in the frame.
    caption_ = toQt(frame()->Caption.get());
    setAccessibleName(caption_.trimmed());
    update();
}

void FrameWidget::paintEvent(QPaintEvent*) {
    if (!frame())
        return;
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    if (frame()->BorderStyle != 0)
        paintBorder(painter);
}

/// The line runs through the middle of the caption, which brings its own distance in blanks.
void FrameWidget::paintBorder(QPainter& painter) {
    constexpr int captionLeft = 8;
    int const above = fontMetrics().height() / 2;
    paintFrame(painter, rect().adjusted(0, above, 0, 0), palette().color(QPalette::Dark));
    if (caption_.isEmpty())
        return;
    QRect const place(captionLeft, 0, fontMetrics().horizontalAdvance(caption_),
                      fontMetrics().height());
    painter.fillRect(place, palette().color(QPalette::Window));
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, caption_);
}

} // namespace desktop
