// When a process that is measured was started.
#pragma once

#include <chrono>

namespace bench {

/// The variable in which who starts the process tells the time of it, in nanoseconds of the steady
/// clock, which all processes share.
inline constexpr char const* startedAt = "KEHYSTIN_BENCH_STARTED";

/// Nanoseconds of the steady clock.
inline long long steadyNow() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

} // namespace bench
