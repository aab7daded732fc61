// The field selector at the head of the panel.
#pragma once

namespace kehystin {

/// Selects what the selector names: the card for its first line, field i for line i. Hides all
/// other frames, fills and lays out the rows, refreshes the status bar; for a field the commands
/// too. Also raised when code sets the line, which is how a selection reaches the panel. Line -1
/// does nothing.
void cmb_field_Click();
/// A field that the user has chosen in the selector is moved into sight.
void cmb_field_Picked();

} // namespace kehystin
