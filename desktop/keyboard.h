// Keys that belong to a whole form, wherever in it the keyboard is.
#pragma once

#include "desktop/event_gate.h"
#include "platform/form.h"

#include <QKeyEvent>

namespace desktop {

/// Enter and Escape that no widget wanted press the form's default and cancel buttons. False for
/// any other key.
bool sendDialogKey(platform::Form& form, EventGate& gate, QKeyEvent const& event);

/// A function key that no widget wanted goes to the form as a shortcut. False for any other key.
bool sendFunctionKey(platform::Form& form, EventGate& gate, QKeyEvent const& event);

/// Whether the window shows which of its widgets has the keyboard. Only a press of the mouse on
/// that widget itself needs no mark.
void showFocusIn(QWidget& window, bool shows);
bool showsFocus(QWidget const& widget);

/// The keys that lead from bar to bar. False for any other key.
bool sendBarKey(platform::Form& form, EventGate& gate, QKeyEvent const& event);

/// The keyboard goes to the next or previous control in the form's tab order.
bool walkFocus(platform::Form& form, EventGate& gate, bool next);

} // namespace desktop
