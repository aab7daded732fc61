// A process and a folder of its own for each scenario, so that a crash fails that scenario alone.
#pragma once

#include <string>
#include <vector>

namespace scenario {

/// Runs a scenario file and prints "ok FILE", or why it failed; true when it passed.
bool run_in_process(std::string const& file);

/// Where the program has been started as such a process, does what that is for: true then.
bool is_own_process(std::vector<std::string> const& words);

} // namespace scenario
