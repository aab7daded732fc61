// Fits the panel to the height of the main window.
#pragma once

namespace kehystin {

/// Waits until the window is tall enough and no mouse button is down on the card, then sizes the
/// rows' area, shows the scroll bar if the rows need it, and centres the card.
void paintTimer_Timer();

/// Scrolls the rows.
void scr_pro_Change();

} // namespace kehystin
