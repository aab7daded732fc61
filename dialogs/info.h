// The about box.
#pragma once

#include <string>

namespace kehystin {

void cmd_info_Click();

/// Opens an address with the machine's own program for it; false when there is none.
bool OpenLink(std::string const& target);

} // namespace kehystin
