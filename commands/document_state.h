// Whether the card differs from its file, and what shows it.
#pragma once

namespace kehystin {

/// Whoever changed the card calls this last: saving becomes possible, the status bar is refreshed.
void MarkCardChanged();

/// The opposite: after a save, an open or a close there is nothing to save.
void clear_card_changed();

} // namespace kehystin
