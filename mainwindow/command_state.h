// What can be done at the moment: menu entries on and off, and the icons after them.
#pragma once

namespace kehystin {

enum class Code { off = 0, on = 1, keep = 2 };

/// Switches the groups of menu entries, in this order, and brings all icons in line with their
/// entries. `keep` leaves a group as it is.
void UpdateCommandState(Code card, Code del, Code horiz, Code vert, Code titles, Code links);

/// The state behind every rebuild of the surface: a card is there, nothing is selected.
void command_state_of_rebuilt_card();

} // namespace kehystin
