// Memory that runs out at one allocation: whoever links failing_memory.cpp in has its operator new.
#pragma once

#include <utility>

namespace faults {

struct Memory {
    bool watched = false;
    long allocations = 0;
    long failing = 0; ///< the allocation that fails, 0 for none
};
extern Memory memory;

/// While one lives, allocations are the test's own.
struct Unwatched {
    bool before = std::exchange(memory.watched, false);
    ~Unwatched() { memory.watched = before; }
};

} // namespace faults
