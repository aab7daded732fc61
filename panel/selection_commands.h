// Which commands several selected fields allow: aligning, and the text of titles.
#pragma once

#include <vector>

namespace kehystin {

/// Switches the commands for these fields. Aligning needs fields that would not be piled up: in
/// rows no two may share a stretch of height, in columns none of width. The title commands need
/// titles alone.
void command_state_of_selection(std::vector<int> const& numbers);

} // namespace kehystin
