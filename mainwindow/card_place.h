// Where the card stands in the main window.
#pragma once

namespace kehystin {

/// Moves the card's window to the middle of what the bars leave free. Does nothing without a card.
/// While the user has hold of the card it stays, and paintTimer moves it later.
void center_card();
/// The same for a card that has just come up: a button that is down was pressed on something else.
void center_new_card();
/// The same, but a field that is in sight, if it is the only one selected, stays in sight.
void center_around_selection();
/// Moves the card's window as little as shows the whole field, or the beginning of one that is too
/// large.
void reveal_field(int number);
/// A mouse button is down on the card or on its window's frame.
bool card_is_held();

void cmd_card_center_Click();
void cmd_card_autocenter_Click();

} // namespace kehystin
