// CardCanvas: the inside of a child form, painted as one widget.
#pragma once

#include "desktop/event_gate.h"
#include "platform/form.h"

#include <QHash>
#include <QImage>
#include <QWidget>

namespace desktop {

/// Background, picture and drawing layer; on them the controls in stacking order; over those the
/// lines, and the shapes topmost. A control costs no widget, and a change repaints its own pixels.
class CardCanvas : public QWidget {
  public:
    CardCanvas(platform::Form& form, EventGate& gate);

    /// Repaints what the control covered and what it covers now.
    void takeOver(platform::Control const& control);
    /// Background, picture or drawing have changed.
    void updateBackground();
    void remove(platform::Control const& control);
    void forgetForm() { form_ = nullptr; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void repaintPlace(platform::Control const& control, QRect const& place);
    void paintBackground(QRect const& wanted);
    void paintStanding(QPainter& painter, QRegion const& region);

    platform::Form* form_;
    EventGate& gate_;
    QImage background_;
    QRect backgroundPlace_;
    bool backgroundIsOld_ = true;
    /// Where the visible controls stand.
    QHash<platform::Control const*, QRect> places_;
};

} // namespace desktop
