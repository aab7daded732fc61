// BarOverflow: the way to the buttons of a bar for which the window is too small.
#pragma once

#include "desktop/event_gate.h"
#include "desktop/form_widgets.h"
#include "platform/controls.h"

#include <QToolButton>

namespace desktop {

/// Stands at the end of a bar while some of its buttons lie behind the end, and opens a menu of
/// them. One that has the keyboard comes into sight before it.
class BarOverflow : public QToolButton {
  public:
    BarOverflow(platform::PictureBox& bar, QWidget& shown, FormWidgets const& widgets,
                EventGate& gate);

    /// To be called when the bar, its buttons or the focus have changed.
    void fit();

  private:
    bool lies() const; // across the window, and not down its side
    bool isCut(platform::Control const& button) const;
    QList<platform::Button*> cutButtons() const;
    void showInSight(platform::Button const& button);
    void openMenu();

    platform::PictureBox& bar_;
    FormWidgets const& widgets_;
    EventGate& gate_;
};

} // namespace desktop
