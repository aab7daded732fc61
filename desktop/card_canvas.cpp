#include "desktop/card_canvas.h"

#include "desktop/colours.h"
#include "desktop/control_painter.h"
#include "desktop/drag.h"
#include "desktop/form_painter.h"
#include "desktop/mouse.h"
#include "desktop/spoken_card.h"
#include "platform/input.h"

#include <QPaintEvent>
#include <QPainter>

#include <cmath>
#include <utility>

namespace desktop {

using platform::ControlClass;

CardCanvas::CardCanvas(platform::Form& form, EventGate& gate) : form_(&form), gate_(gate) {
    setMouseTracking(true);
    setAcceptDrops(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setContextMenuPolicy(Qt::PreventContextMenu);
    letCardsSpeak();
}

void CardCanvas::takeOver(platform::Control const& control) {
    if (control.container() != form_)
        return; // a picture box of a card holds pictures, not controls
    ++changes_;
    auto const before = shown_.value(&control);
    Shown now;
    if (control.Visible) {
        now = {placeOf(control), control.control_class()};
        shown_.insert(&control, now);
    } else {
        shown_.remove(&control);
    }
    if (before != now)
        changed(before);
    changed(now);
}

void CardCanvas::changed(Shown const& shown) {
    auto const& place = shown.place;
    if (place.isEmpty())
        return;
    if (!isOutline(shown.kind))
        changedStanding_.add(withEdges(place));
    if (shown.kind != ControlClass::shape)
        return changed_.add(withEdges(place));
    // A shape is only its edge: moving a large one must not repaint what lies inside.
    for (auto const& side : {QRect(place.left(), place.top(), place.width(), 1),
                             QRect(place.left(), place.bottom(), place.width(), 1),
                             QRect(place.left(), place.top(), 1, place.height()),
                             QRect(place.right(), place.top(), 1, place.height())})
        changed_.add(withEdges(side));
}

/// Where a pixel is no whole number of the device's, the outermost of them belong to two: what lies
/// beside a place is then repainted with it.
QRect CardCanvas::withEdges(QRect const& place) const {
    auto const ratio = devicePixelRatioF();
    return ratio == std::floor(ratio) ? place : place.adjusted(-1, -1, 1, 1);
}

void CardCanvas::updateBackground() {
    layersAreOld_ = true;
    update();
}

void CardCanvas::remove(platform::Control const& control) {
    ++changes_;
    changed(shown_.take(&control));
}

void CardCanvas::settle() {
    if (QAccessible::isActive())
        tellChanges(*this);
    if (!changed_.isEmpty())
        update(changed_.take());
}

/// Paints the layers anew, for the part of the canvas that can be seen.
void CardCanvas::paintLayers(QPainter const& onto, QRect const& wanted) {
    auto const place = (visibleRegion().boundingRect() | wanted) & rect();
    background_.cover(place, onto);
    standing_.cover(place, onto);
    background_.image().fill(toColour(form_->BackColor, Ground::card));
    QPainter painter(&background_.image());
    background_.alignPainter(painter);
    paintGround(painter, *form_, rect());
    painter.end();
    changedStanding_ = {};
    paintStanding(place);
    layersAreOld_ = false;
}

void CardCanvas::paintEvent(QPaintEvent* event) {
    if (!form_)
        return;
    QPainter painter(this);
    if (layersAreOld_ || !background_.covers(event->rect(), painter))
        paintLayers(painter, event->rect());
    else if (!changedStanding_.isEmpty())
        paintStanding(changedStanding_.take());
    standing_.show(painter);
    paintOutlines(painter, event->region());
}

void CardCanvas::paintStanding(QRegion region) {
    // A picture comes out a shade different where a clip cuts it: it is painted as a whole, and so
    // are those that it meets.
    for (QRegion before; before != region;) {
        before = region;
        for (auto const& shown : std::as_const(shown_))
            if (shown.kind == ControlClass::picture_box &&
                region.intersects(withEdges(shown.place)))
                region += withEdges(shown.place);
    }
    QPainter painter(&standing_.image());
    standing_.alignPainter(painter);
    painter.setClipRegion(region);
    background_.show(painter);
    paintControls(painter, region, [](ControlClass kind) { return !isOutline(kind); });
}

void CardCanvas::paintOutlines(QPainter& painter, QRegion const& region) {
    for (auto const kind : {ControlClass::line, ControlClass::shape})
        paintControls(painter, region, [kind](ControlClass one) { return one == kind; });
}

template <class Wanted>
void CardCanvas::paintControls(QPainter& painter, QRegion const& region, Wanted const& wanted) {
    for (auto const* const control : form_->children()) {
        auto const found = shown_.constFind(control);
        if (found != shown_.constEnd() && wanted(found->kind) &&
            region.intersects(withEdges(found->place)))
            paintControl(painter, *control, found->place);
    }
}

void CardCanvas::mousePressEvent(QMouseEvent* event) {
    if (form_)
        sendPress(*form_, gate_, *event);
}

void CardCanvas::mouseMoveEvent(QMouseEvent* event) {
    if (form_)
        sendMove(*form_, gate_, *event);
}

void CardCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (form_)
        sendRelease(*form_, gate_, *event);
}

void CardCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!form_)
        return;
    // A quick second press on what knows no double click is a press like any other: a drag may
    // follow.
    auto const point = wholePixel(event->position());
    auto const* const target = platform::input::object_at(*form_, point.x(), point.y());
    if (target && target->DblClick)
        sendDoublePress(*form_, gate_, *event);
    else
        mousePressEvent(event);
}

void CardCanvas::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(form_ && draggedControl(*event->mimeData()));
}

/// The pointer says whether a drop would do anything: what stands on the card takes none.
void CardCanvas::dragMoveEvent(QDragMoveEvent* event) {
    auto const point = wholePixel(event->position());
    bool const free = form_ && platform::input::takes_drop(*form_, point.x(), point.y());
    event->setAccepted(free && draggedControl(*event->mimeData()));
}

void CardCanvas::dropEvent(QDropEvent* event) {
    auto* const source = draggedControl(*event->mimeData());
    if (!form_ || !source)
        return event->ignore();
    event->acceptProposedAction();
    auto const point = wholePixel(event->position());
    gate_.run([&] { platform::input::drop(*source, *form_, point.x(), point.y()); });
}

} // namespace desktop
