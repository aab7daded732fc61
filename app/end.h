// The end of the session.
#pragma once

namespace kehystin {

/// The only way out: asks about unsaved changes, writes the settings, ends the process. There is
/// no cancel, and a save that fails does not hold it up. Settings that cannot be written are told,
/// and asked about.
void cmd_lopeta_Click();

/// Any close of the main window takes the same road.
void MDIForm_QueryUnload(bool user, bool& cancel);

} // namespace kehystin
