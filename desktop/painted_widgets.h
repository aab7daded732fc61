// Widgets that are painted from their control and do nothing by themselves.
#pragma once

#include "desktop/control_widget.h"

#include <QLabel>

#include <vector>

namespace desktop {

/// A label, a picture box with what stands in it, a shape or a line. Clicks and moves of the mouse
/// go to the program as they come. A QLabel without a text of its own: only so does Qt tell readers
/// what a caption is the caption of.
class PaintedWidget : public QLabel, public ControlWidget {
  public:
    PaintedWidget(platform::Control& control, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    void takeOver() override;
    /// What Enter does to a link.
    void pressByKey();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool takesMouse() const;
    void takeOverAccessKey(QString const& caption);

    int accessKey_ = 0;
    QString accessKeyCaption_;
};

/// A row of panels, each as wide as the widest text that it has shown.
class StatusBarWidget : public QWidget, public ControlWidget {
  public:
    StatusBarWidget(platform::StatusBar& bar, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    void takeOver() override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::vector<int> widths_;
};

} // namespace desktop
