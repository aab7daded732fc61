// Building the surface anew while a session goes on, and being without one.
#pragma once

namespace kehystin {

/// Builds the surface from the records. A background picture that cannot be shown is left out, if
/// the user wants to go on without it. When the building fails, which has been told, the session is
/// left without a card and the answer is false.
bool show_card();

/// Builds the surface of the open card anew, with the background picture that stands. False as
/// above.
bool rebuild();

/// The same where the window stands, after a change of the fields' numbers or places: grid,
/// command state, and the card selected, for the selection is lost. False as above.
bool rebuild_in_place();

/// The session without a card: an empty record, nothing to save, commands, title and bars to match.
void show_no_card();

} // namespace kehystin
