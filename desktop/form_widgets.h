// FormWidgets: the widgets of a form whose controls are real ones.
#pragma once

#include "desktop/control_widget.h"
#include "platform/form.h"

#include <QHash>
#include <QObject>
#include <QSet>

namespace desktop {

/// Makes the widget of a control when it is first shown: what never shows costs nothing. Focus,
/// keys and the moves of the mouse over any of them go to the program from here.
class FormWidgets : public QObject {
  public:
    /// `surface` is what the controls of the form itself stand on.
    FormWidgets(platform::Form& form, QWidget& surface, EventGate& gate);

    void takeOver(platform::Control& control);
    /// Makes what the form shows that has no widget yet.
    void showAll();
    void remove(platform::Control const& control);
    /// Puts widgets that overlap into the order of their controls, and captions to what they name.
    void settle();

    /// Puts on the colours of another desktop palette.
    void takeOverPalette();

    QWidget* find(platform::Control const& control) const;
    /// The control whose widget this is, or is inside of; null for none.
    platform::Control* controlOf(QWidget const* widget) const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    ControlWidget* ensure(platform::Control& control);
    ControlWidget* make(platform::Control& control);
    void showChildren(platform::Control& container);
    void place(ControlWidget& shown);
    void restack(platform::Control& container);
    bool tellCaption(platform::Control const& label);

    platform::Form& form_;
    QWidget& surface_;
    EventGate& gate_;
    QHash<platform::Control const*, ControlWidget*> widgets_;
    QHash<QObject const*, ControlWidget*> owners_;
    QSet<platform::Control*> unordered_;
    QSet<platform::Control const*> uncaptioned_; // labels whose caption_of is not yet told
};

} // namespace desktop
