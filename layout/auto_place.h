// Laying the whole card out anew from its links.
#pragma once

namespace kehystin {

/// Puts each title with its data fields in one column at the left: the fields below their title in
/// mode 1, to the right of it in any other. Then asks whether the changes stand; a No puts
/// everything back. Saving is left as it was.
void AutoPlace(int mode);

/// The hidden entry of the menu.
void cmdAutoPlace_Click();

} // namespace kehystin
