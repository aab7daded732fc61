// A process for one scenario, by the system's calls.
#pragma once

#include "tests/scenario/interpreter.h"

#include <optional>
#include <string>

namespace scenario {

/// A scenario that hangs is stopped after this time.
inline constexpr unsigned longest_run = 300; // seconds

/// The text of a scenario file; nothing for one that cannot be read.
std::optional<std::string> read_scenario(std::string const& file);

/// All that happens in the scenario's own process.
void run_here(std::string const& file, std::string const& text, std::string const& folder,
              Progress& progress);

struct EndOfProcess {
    std::string cause; ///< why the process ended, if not by itself and well
    Verdict verdict;
    int line;
};
/// Does that, and waits for its end.
EndOfProcess run_in_own_process(std::string const& file, std::string const& text,
                                std::string const& folder);

} // namespace scenario
