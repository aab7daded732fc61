// Whether the card differs from its file, and what shows it.
#pragma once

#include <string>

namespace kehystin {

/// Whoever changed the card calls this last: saving becomes possible, the status bar is refreshed.
void MarkCardChanged();

/// The opposite: after a save, an open or a close there is nothing to save.
void clear_card_changed();

/// Where file dialogs start: the folder of the open card's file, empty without one.
std::string open_card_folder();

} // namespace kehystin
