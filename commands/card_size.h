// Where the card stands in the main window, and how large it is.
#pragma once

namespace kehystin {

/// Moves the card's window to the middle of what the bars leave free. Does nothing without a card.
void center_card();
void cmd_card_center_Click();
void cmd_card_autocenter_Click();

/// The card's own frame takes the size of a card of `width` by `height` pixels.
void size_card_frame(double width, double height);

} // namespace kehystin
