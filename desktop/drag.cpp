#include "desktop/drag.h"

#include "desktop/control_widget.h"
#include "desktop/device_pixels.h"
#include "desktop/icons.h"
#include "desktop/pictures.h"

#include <QDrag>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPointer>
#include <QUrl>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

/// Stays inside the process, so it can carry the widget itself; that may go while it is dragged.
class ControlMimeData : public QMimeData {
  public:
    explicit ControlMimeData(QWidget& widget) : dragged(&widget) {
        setData(QStringLiteral("application/x-kehystin-control"), QByteArray("1"));
    }
    QPointer<QWidget> dragged;
};

/// The size of what will be dropped, or of the button where that is not known.
QSize dropSize(QWidget const& widget, platform::Button const& button) {
    QSize const size(static_cast<int>(std::lround(button.DragWidth.get())),
                     static_cast<int>(std::lround(button.DragHeight.get())));
    return size.isEmpty() ? widget.size() : size;
}

/// A rectangle that what lies below shines through, with the button's icon where there is room.
QPixmap dropOutline(QWidget const& widget, platform::Button const& button) {
    QRect const place(QPoint(), dropSize(widget, button));
    auto const ratio = widget.devicePixelRatioF();
    QPixmap pixmap((QSizeF(place.size()) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    auto const colour = widget.palette().color(QPalette::Highlight);
    auto light = colour.lighter();
    light.setAlpha(70);
    painter.fillRect(place, light);
    paintFrame(painter, place, colour);
    constexpr int margin = 2;
    constexpr int smallest = 10; // an icon says nothing below this
    int const icon = std::min({iconSize, place.height() - 2 * margin, place.width() - 2 * margin});
    if (icon >= smallest)
        drawPicture(painter, button.Picture, QRect(margin, margin, icon, icon), Ground::card);
    return pixmap;
}

} // namespace

QDrag* makeDrag(QWidget& widget, platform::Button& button) {
    // The pointer is a little inside the corner where the dropped thing's own corner comes to
    // stand.
    constexpr QPoint hotSpot(5, 5);
    auto* const drag = new QDrag(&widget);
    drag->setMimeData(new ControlMimeData(widget));
    drag->setPixmap(dropOutline(widget, button));
    drag->setHotSpot(hotSpot);
    return drag;
}

QStringList draggedFiles(QMimeData const& data) {
    QStringList files;
    for (auto const& url : data.urls())
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    return files;
}

platform::Control* draggedControl(QMimeData const& data) {
    auto const* const own = dynamic_cast<ControlMimeData const*>(&data);
    auto const* const widget =
        own ? dynamic_cast<ControlWidget const*>(own->dragged.data()) : nullptr;
    return widget ? widget->control() : nullptr;
}

} // namespace desktop
