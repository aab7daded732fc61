// Fields taken away from the card, and what follows for the numbers of the others.
#pragma once

namespace kehystin {

/// "Poista": takes the selected fields away after a question. Later fields move down one number,
/// and the roles of the card follow as far as they are renumbered at all. Saving is left as it was.
void cmd_field_del_Click();

} // namespace kehystin
