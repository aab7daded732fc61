// Frames: a line around the controls that stand inside.
#pragma once

#include "desktop/control_widget.h"

#include <QGroupBox>

namespace desktop {

class FrameWidget : public QGroupBox, public ControlWidget {
  public:
    FrameWidget(platform::Frame& frame, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    void takeOver() override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    platform::Frame* frame() const { return static_cast<platform::Frame*>(control()); }
    void paintBorder(QPainter& painter);

    QString caption_;
};

} // namespace desktop
