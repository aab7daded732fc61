// The field selector at the head of the panel.
#pragma once

namespace kehystin {

/// Selects what the selector names: the card for its first line, field i for line i. Also raised
/// when code sets the line, which is how a selection reaches the panel. Line -1 does nothing.
void cmb_field_Click();

} // namespace kehystin
