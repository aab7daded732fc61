// How large the card is: as large as its fields need it.
#pragma once

namespace kehystin {

/// Selects the card and gives it, through the panel's scroll bars, the size of its fields and some
/// room behind them. A size that a card cannot have is not taken.
void fit_card();
void cmd_card_size_Click();
/// "Skaalaa automaattisesti": flips the mark; the entry that fits the card once is there only while
/// it is off.
void cmd_card_autosize_Click();

/// The card's own frame takes the size of a card of `width` by `height` pixels.
void size_card_frame(double width, double height);

} // namespace kehystin
