#include "desktop/card_canvas.h"

#include "desktop/control_painter.h"
#include "desktop/drag.h"
#include "desktop/drawing_painter.h"
#include "desktop/look.h"
#include "desktop/mouse.h"
#include "desktop/pictures.h"
#include "desktop/text.h"
#include "platform/input.h"

#include <QPaintEvent>
#include <QPainter>

namespace desktop {

namespace {

using platform::ControlClass;

bool isOutline(platform::Control const& control) {
    auto const kind = control.control_class();
    return kind == ControlClass::shape || kind == ControlClass::line;
}

QRect placeOf(platform::Control const& control) {
    if (control.control_class() == ControlClass::line)
        return lineBounds(static_cast<platform::Line const&>(control));
    auto place = rectOf(control);
    // An outline without width or height still shows.
    if (control.control_class() == ControlClass::shape)
        place.setSize(place.size().expandedTo({1, 1}));
    return place;
}

} // namespace

CardCanvas::CardCanvas(platform::Form& form, EventGate& gate) : form_(&form), gate_(gate) {
    setMouseTracking(true);
    setAcceptDrops(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void CardCanvas::takeOver(platform::Control const& control) {
    if (control.container() != form_)
        return; // a picture box of a card holds pictures, not controls
    bool const shown = control.Visible;
    auto const before = places_.value(&control);
    auto const now = shown ? placeOf(control) : QRect();
    if (shown)
        places_.insert(&control, now);
    else
        places_.remove(&control);
    if (before != now)
        repaintPlace(control, before);
    repaintPlace(control, now);
}

void CardCanvas::repaintPlace(platform::Control const& control, QRect const& place) {
    if (place.isEmpty())
        return;
    // A shape is only its edge: moving a large one must not repaint what lies inside.
    if (control.control_class() == ControlClass::shape)
        update(QRegion(place).subtracted(place.adjusted(1, 1, -1, -1)));
    else
        update(place);
}

void CardCanvas::updateBackground() {
    backgroundIsOld_ = true;
    update();
}

void CardCanvas::remove(platform::Control const& control) {
    auto const place = places_.take(&control);
    if (!place.isEmpty())
        update(place);
}

/// Paints what lies under the controls, for the part of the canvas that can be seen: a card may be
/// far larger than its window.
void CardCanvas::paintBackground(QRect const& wanted) {
    auto const ratio = devicePixelRatioF();
    backgroundPlace_ = (visibleRegion().boundingRect() | wanted) & rect();
    auto const pixels = (QSizeF(backgroundPlace_.size()) * ratio).toSize();
    if (background_.size() != pixels)
        background_ = QImage(pixels, QImage::Format_RGB32);
    background_.setDevicePixelRatio(ratio);
    background_.fill(toColour(form_->BackColor));
    QPainter painter(&background_);
    painter.translate(-backgroundPlace_.topLeft());
    drawPicture(painter, form_->Picture, rect());
    paintDrawing(painter, form_->drawing(), *form_, toPixels(*form_, 1));
    backgroundIsOld_ = false;
}

void CardCanvas::paintEvent(QPaintEvent* event) {
    if (!form_)
        return;
    auto const ratio = devicePixelRatioF();
    if (backgroundIsOld_ || background_.devicePixelRatio() != ratio ||
        !backgroundPlace_.contains(event->rect()))
        paintBackground(event->rect());
    QPainter painter(this);
    for (auto const& area : event->region()) {
        QPointF const from(area.topLeft() - backgroundPlace_.topLeft());
        painter.drawImage(QRectF(area), background_,
                          QRectF(from * ratio, QSizeF(area.size()) * ratio));
    }
    paintStanding(painter, event->region());
}

void CardCanvas::paintStanding(QPainter& painter, QRegion const& region) {
    auto const paintAll = [&](auto const& wanted) {
        for (auto const* const control : form_->children()) {
            auto const found = wanted(*control) ? places_.constFind(control) : places_.constEnd();
            if (found != places_.constEnd() && region.intersects(*found))
                paintControl(painter, *control, *found);
        }
    };
    paintAll([](auto const& control) { return !isOutline(control); });
    paintAll([](auto const& control) { return control.control_class() == ControlClass::line; });
    paintAll([](auto const& control) { return control.control_class() == ControlClass::shape; });
}

void CardCanvas::mousePressEvent(QMouseEvent* event) {
    auto const point = wholePixel(event->position());
    gate_.run([&] {
        dropLostPress(*event);
        platform::input::mouse_press(*form_, point.x(), point.y(), hasModifier(*event),
                                     buttonNumber(*event));
    });
}

void CardCanvas::mouseMoveEvent(QMouseEvent* event) {
    auto const point = wholePixel(event->position());
    gate_.run([&] { platform::input::mouse_move(*form_, point.x(), point.y()); });
}

void CardCanvas::mouseReleaseEvent(QMouseEvent* event) {
    auto const point = wholePixel(event->position());
    gate_.run([&] { platform::input::mouse_release(*form_, point.x(), point.y()); });
}

void CardCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    auto const point = wholePixel(event->position());
    gate_.run([&] {
        platform::input::mouse_double_press(*form_, point.x(), point.y(), hasModifier(*event));
    });
}

void CardCanvas::dragEnterEvent(QDragEnterEvent* event) {
    if (draggedControl(*event->mimeData()))
        event->acceptProposedAction();
}

void CardCanvas::dropEvent(QDropEvent* event) {
    auto* const source = draggedControl(*event->mimeData());
    if (!source)
        return;
    event->acceptProposedAction();
    auto const point = wholePixel(event->position());
    gate_.run([&] { platform::input::drop(*source, *form_, point.x(), point.y()); });
}

} // namespace desktop
