// Script: a scenario file as the steps that it is made of.
#pragma once

#include "tests/scenario/words.h"

#include <string>
#include <vector>

namespace scenario {

struct Step {
    int line = 0;
    std::string text;               ///< the line as it stands
    std::vector<std::string> block; ///< the lines from behind "<< END" up to END
    int end_line = 0;               ///< the last line that belongs to the step
    bool block_open = false;        ///< the file ended inside the block
};

/// Splits the text of a scenario, UTF-8, into its steps. Blank lines and comments are left out.
std::vector<Step> read_script(std::string_view text);

} // namespace scenario
