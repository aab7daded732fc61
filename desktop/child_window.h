// ChildWindow: a child form in the main window.
#pragma once

#include "desktop/card_canvas.h"
#include "desktop/form_view.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace desktop {

/// Its outer size, frame and caption included, is the form's. The user drags its border; only the
/// program closes it.
class ChildWindow : public QMdiSubWindow, public FormView {
  public:
    ChildWindow(platform::Form& form, QMdiArea& area, EventGate& gate);

    QWidget& windowWidget() override { return *this; }
    void takeOver(platform::Control& control) override;
    void remove(platform::Control const& control) override;
    void settle() override;
    QWidget* focusWidgetOf(platform::Control const& control) override;
    QRect placeOnScreen(platform::Control const& control) override;
    QWidget* inside() override { return canvas_; }
    platform::Control* controlAt(QWidget& widget, QPoint point) override;
    void setPointer(Qt::CursorShape shape) override { canvas_->setCursor(shape); }
    void discard() override;

    QSize minimumSizeHint() const override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    void takeOverForm();
    void sendGeometry();
    QRect formGeometry() const;

    platform::Form* form_;
    EventGate& gate_;
    CardCanvas* canvas_;
};

} // namespace desktop
