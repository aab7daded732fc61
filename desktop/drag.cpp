#include "desktop/drag.h"

#include "desktop/pictures.h"
#include "platform/controls.h"

#include <QDrag>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QWidget>

namespace desktop {

namespace {

/// Stays inside the process, so the address is enough.
class ControlMimeData : public QMimeData {
  public:
    explicit ControlMimeData(platform::Control& dragged) : control(dragged) {
        setData(QStringLiteral("application/x-kehystin-control"), QByteArray("1"));
    }
    platform::Control& control;
};

QPixmap outlinedPicture(QWidget const& widget, platform::Button const& button) {
    auto const ratio = widget.devicePixelRatioF();
    QPixmap pixmap((QSizeF(widget.size()) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setOpacity(0.8);
    painter.fillRect(widget.rect(), QColor(255, 255, 255, 160));
    drawPicture(painter, button.Picture, widget.rect());
    painter.setPen(widget.palette().color(QPalette::Shadow));
    painter.drawRect(widget.rect().adjusted(0, 0, -1, -1));
    return pixmap;
}

} // namespace

void dragButton(QWidget& widget, platform::Button& button) {
    // The point a little inside the corner is where the dropped thing's own corner comes to stand.
    constexpr QPoint hotSpot(5, 5);
    auto* const drag = new QDrag(&widget);
    drag->setMimeData(new ControlMimeData(button));
    drag->setPixmap(outlinedPicture(widget, button));
    drag->setHotSpot(hotSpot);
    drag->exec(Qt::CopyAction);
}

platform::Control* draggedControl(QMimeData const& data) {
    auto const* const own = dynamic_cast<ControlMimeData const*>(&data);
    return own ? &own->control : nullptr;
}

} // namespace desktop
