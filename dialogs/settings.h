// The dialog of the settings.
#pragma once

namespace kehystin {

/// "Asetukset...": densities of grid and guides, and three switches. Draws grid and guides anew
/// when the dialog has closed, also by cancel.
void cmd_properties_Click();

} // namespace kehystin
