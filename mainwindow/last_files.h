// The list of the four files opened last, in the settings and in the file menu.
#pragma once

#include <string_view>

namespace kehystin {

/// Puts a file first in the list and rebuilds the menu; an empty name only rebuilds it.
void UpdateLastFiles(std::string_view name);

} // namespace kehystin
