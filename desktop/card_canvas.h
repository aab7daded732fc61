// CardCanvas: the inside of a child form, painted as one widget.
#pragma once

#include "desktop/card_layer.h"
#include "desktop/event_gate.h"
#include "platform/form.h"

#include <QHash>
#include <QWidget>

namespace desktop {

/// Background, picture and drawing layer; on them the controls in stacking order; over those the
/// lines, and the shapes topmost. A control costs no widget. Background and controls are kept as
/// pictures: moving outlines over them, as a drag does, paints nothing but the outlines.
class CardCanvas : public QWidget {
  public:
    CardCanvas(platform::Form& form, EventGate& gate);

    /// What the control covered and what it covers now has changed.
    void takeOver(platform::Control const& control);
    /// Background, picture or drawing have changed.
    void updateBackground();
    void remove(platform::Control const& control);
    /// Where a control shows on the canvas; empty while it does not.
    QRect shownPlace(platform::Control const& control) const {
        return shown_.value(&control).place;
    }
    /// Everything has been taken over: what has changed is repainted, in one go.
    void settle();
    void forgetForm() { form_ = nullptr; }

    /// Null once the form has gone.
    platform::Form const* form() const { return form_; }
    /// Whether the control shows. One that has gone does not, so its address does no harm here.
    bool shows(platform::Control const* control) const { return form_ && shown_.contains(control); }
    /// Grows whenever a control comes, changes or goes.
    unsigned changes() const { return changes_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    /// What is remembered of a control that shows; enough to take it away when it has gone.
    struct Shown {
        QRect place;
        platform::ControlClass kind = platform::ControlClass::label;
        bool operator==(Shown const&) const = default;
    };
    void changed(Shown const& shown);
    QRect withEdges(QRect const& place) const;
    void paintLayers(QPainter const& onto, QRect const& wanted);
    void paintStanding(QRegion region);
    void paintOutlines(QPainter& painter, QRegion const& region);
    /// Paints the visible controls of the wanted classes, in stacking order.
    template <class Wanted>
    void paintControls(QPainter& painter, QRegion const& region, Wanted const& wanted);

    platform::Form* form_;
    EventGate& gate_;
    CardLayer background_;
    CardLayer standing_; // the background with the controls that are no outlines
    bool layersAreOld_ = true;
    ChangedPlaces changed_;
    ChangedPlaces changedStanding_; // where the layer no longer shows what stands there
    QHash<platform::Control const*, Shown> shown_;
    unsigned changes_ = 0;
};

} // namespace desktop
