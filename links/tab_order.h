// The tab order, which the surface's controls own.
#pragma once

namespace kehystin {

/// Copies the places of the controls in the tab order to the records. Images keep theirs: they
/// take no keyboard.
void upd_tabIndex();

} // namespace kehystin
