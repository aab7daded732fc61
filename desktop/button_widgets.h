// Buttons, check boxes and option buttons. A click only tells the program; what they then show is
// what the program has made of it.
#pragma once

#include "desktop/control_widget.h"

#include <QCheckBox>
#include <QRadioButton>

#include <optional>

namespace desktop {

/// With a picture a flat button, as on a tool bar; otherwise a push button.
class ButtonWidget : public QAbstractButton, public ControlWidget {
  public:
    ButtonWidget(platform::Button& button, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    void takeOver() override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void nextCheckState() override {} // the program sets it

  private:
    platform::Button* button() const { return static_cast<platform::Button*>(control()); }
    void endPress();
    void drag();
    void pressByKey();
    void paintFlat(QPainter& painter);
    void paintSmall(QPainter& painter);
    void paintRaised(QPainter& painter);

    std::optional<QPoint> pressedAt_; // until released or dragged
    bool releasesMouse_ = false;      // while Qt looks whether a release was a click
};

class CheckBoxWidget : public QCheckBox, public ControlWidget {
  public:
    CheckBoxWidget(platform::CheckBox& box, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    void takeOver() override;

  protected:
    void nextCheckState() override {} // the program sets it
};

class OptionButtonWidget : public QRadioButton, public ControlWidget {
  public:
    OptionButtonWidget(platform::OptionButton& option, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    void takeOver() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void nextCheckState() override {} // the program sets it
};

} // namespace desktop
