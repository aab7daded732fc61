// A process and a folder of its own for each scenario, so that a crash fails that scenario alone.
#pragma once

#include <string>

namespace scenario {

/// Runs a scenario file and prints "ok FILE", or why it failed; true when it passed.
bool run_in_process(std::string const& file);

} // namespace scenario
