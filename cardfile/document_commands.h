// New, open, save, save as and close.
#pragma once

namespace kehystin {

void cmd_new_Click();
void cmd_open_Click();
void cmdTallenna_Click();
void cmdTallennaNimella_Click();
void cmd_close_Click();

/// Opens the file of a place in the list of files opened last.
void lastFile_Click(int index);

} // namespace kehystin
