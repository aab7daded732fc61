// The status bar: the card's name, the field in hand, its place and size, and its caption's length.
#pragma once

namespace kehystin {

/// Writes the five panels anew from records and selection. A failure shows its own box.
void upd_sts();

} // namespace kehystin
