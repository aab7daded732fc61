#include "desktop/timers.h"

#include "platform/input.h"

#include <algorithm>

namespace desktop {

namespace {

/// Shorter intervals than this only cost: nobody sees the difference.
constexpr int shortestInterval = 10; // milliseconds

} // namespace

void Timers::update(platform::Timer& timer) {
    if (!timer.Enabled || timer.Interval <= 0) {
        remove(timer);
        return;
    }
    auto& ticking = running_[&timer];
    if (!ticking) {
        ticking = std::make_unique<QTimer>();
        ticking->callOnTimeout(
            [this, &timer] { gate_.run([&] { platform::input::tick(timer); }); });
    }
    ticking->setInterval(std::max(timer.Interval.get(), shortestInterval));
    if (holds_ == 0)
        ticking->start();
}

void Timers::remove(platform::Control const& timer) {
    auto const found = running_.find(&timer);
    if (found == running_.end())
        return;
    found->second->stop();
    found->second.release()->deleteLater(); // it may be the one that is ticking
    running_.erase(found);
}

bool Timers::isAnyShorterThan(int milliseconds) const {
    return std::any_of(running_.begin(), running_.end(),
                       [&](auto const& entry) { return entry.second->interval() < milliseconds; });
}

Timers::Hold::Hold(Timers& timers) : timers_(timers) {
    if (timers_.holds_++ == 0)
        for (auto const& [control, ticking] : timers_.running_)
            ticking->stop();
}

Timers::Hold::~Hold() {
    if (--timers_.holds_ == 0)
        for (auto const& [control, ticking] : timers_.running_)
            ticking->start();
}

} // namespace desktop
