// The dialog of the field roles: which field of the card means what to the register.
#pragma once

namespace kehystin {

/// "Kenttämääritykset...". Opening trims `group` of the fields that it lists and repairs the number
/// settings of the card, which stays so after a cancel; all else is written by OK alone.
void cmdSpecifield_Click();

} // namespace kehystin
