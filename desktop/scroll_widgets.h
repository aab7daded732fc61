// Scroll bars; one too short for a thumb is a pair of arrows.
#pragma once

#include "desktop/control_widget.h"

#include <QScrollBar>
#include <QTimer>

#include <optional>

namespace desktop {

/// Tells the value that the user wants, and shows the one that the program has. Min may be larger
/// than Max: the bar then runs the other way.
class ScrollBarWidget : public QScrollBar, public ControlWidget {
  public:
    ScrollBarWidget(platform::ScrollBar& bar, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    void takeOver() override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    /// Between the program's value and Qt's; its own inverse.
    int turned(int value) const;
};

/// Two arrows: the upper one goes towards Min, the lower one towards Max, and on while held.
class ArrowPair : public QWidget, public ControlWidget {
  public:
    ArrowPair(platform::ScrollBar& bar, QWidget& parent, EventGate& gate);

    QWidget& widget() override { return *this; }
    void takeOver() override;
    /// The user takes the bar to a value from Min to Max.
    void scrollTo(int value);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    enum class Arrow { none, up, down };
    void step(Arrow arrow);
    void hold(Arrow arrow);

    Arrow held_ = Arrow::none;
    std::optional<int> told_; // the value that screen readers know
    QTimer repeat_;
};

ControlWidget* makeScrollWidget(platform::ScrollBar& bar, QWidget& parent, EventGate& gate);

} // namespace desktop
