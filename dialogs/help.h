// The help pages.
#pragma once

#include <string>
#include <string_view>

namespace kehystin {

/// Opens the page of helpTopic, or says that the help file is missing or cannot be read.
void ShowHelp();

/// Opens a page of a help file in the viewer; false for a file that cannot be read. Of a page that
/// is not in it the viewer itself says so.
bool OpenHelpPage(std::string const& file, std::string const& topic);

/// KeyDown of every window: F1 opens the page of the place. True for that key.
bool help_KeyDown(std::string_view keys);

/// The help's table of contents.
void cmd_help_index_Click();

} // namespace kehystin
