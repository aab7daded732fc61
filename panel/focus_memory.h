// Which row of the panel has the keyboard, kept over changes of the selection.
#pragma once

namespace kehystin {

/// Puts the keyboard back on the row in use, or on the first of a few that stands. The timer turns
/// itself off: it only leaves the event in which the rows changed, where the focus cannot be moved.
void focusTimer_Timer();

} // namespace kehystin
