// ScriptedClock: a clock that stands until it is told to run on, and the timers that run by it.
#pragma once

#include "platform/base.h"
#include "platform/controls.h"

#include <cstdint>
#include <vector>

namespace scenario {

class ScriptedClock {
  public:
    /// Puts the clock; the timers do not notice.
    void set(platform::Date now);
    platform::Date now() const;

    /// A timer was made, switched or given another interval: it counts from this moment, or not at
    /// all when it is off or has no interval.
    void start(platform::Timer& timer);
    /// A control went; if it was a timer, it no longer counts.
    void forget(platform::Control const& control);

    /// Lets time pass. Timers tick in the order in which they are due; those due together tick in
    /// the order in which they began to count. A handler may start and stop any timer.
    void run(std::int64_t milliseconds);

  private:
    struct Running {
        platform::Timer* timer;
        std::int64_t due;
        std::int64_t started; // counts the starts: who began to count first
    };

    std::vector<Running> running_;
    std::int64_t elapsed_ = 0; // milliseconds since the clock was made
    std::int64_t set_at_ = 0;
    std::int64_t starts_ = 0;
    platform::Date set_to_ = 0;
};

} // namespace scenario
