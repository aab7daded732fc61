// The help pages.
#pragma once

namespace kehystin {

/// Opens the page of helpTopic, or says that the help file is missing.
void ShowHelp();

/// The help's table of contents.
void cmd_help_index_Click();

} // namespace kehystin
