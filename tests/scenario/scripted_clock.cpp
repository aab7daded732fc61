#include "tests/scenario/scripted_clock.h"

#include "platform/input.h"

#include <algorithm>
#include <tuple>

namespace scenario {

void ScriptedClock::set(platform::Date now) {
    set_to_ = now;
    set_at_ = elapsed_;
}

platform::Date ScriptedClock::now() const {
    constexpr double milliseconds_a_day = 86'400'000;
    return set_to_ + static_cast<double>(elapsed_ - set_at_) / milliseconds_a_day;
}

void ScriptedClock::start(platform::Timer& timer) {
    forget(timer);
    if (timer.Enabled && timer.Interval > 0)
        running_.push_back({&timer, elapsed_ + timer.Interval, ++starts_});
}

void ScriptedClock::forget(platform::Control const& control) {
    std::erase_if(running_, [&](Running const& entry) {
        return static_cast<platform::Control const*>(entry.timer) == &control;
    });
}

void ScriptedClock::run(std::int64_t milliseconds) {
    auto const end = elapsed_ + milliseconds;
    while (!running_.empty()) {
        auto const next = std::min_element(
            running_.begin(), running_.end(), [](Running const& a, Running const& b) {
                return std::tie(a.due, a.started) < std::tie(b.due, b.started);
            });
        if (next->due > end)
            break;
        // A handler that waits in a modal form may have let the clock run past this moment.
        elapsed_ = std::max(elapsed_, next->due);
        next->due = elapsed_ + next->timer->Interval;
        next->started = ++starts_;
        platform::input::tick(*next->timer);
    }
    elapsed_ = std::max(elapsed_, end);
}

} // namespace scenario
