// The timers of the forms.
#pragma once

#include "desktop/event_gate.h"
#include "platform/controls.h"

#include <QTimer>

#include <memory>
#include <unordered_map>

namespace desktop {

/// A Qt timer for each enabled Timer control.
class Timers {
  public:
    explicit Timers(EventGate& gate) : gate_(gate) {}

    /// Interval or state have been set: the timer starts afresh or stops.
    void update(platform::Timer& timer);
    void remove(platform::Control const& timer);
    void stopAll() { running_.clear(); }
    /// True while a timer runs that a user would soon see the effect of.
    bool isAnyShorterThan(int milliseconds) const;

    /// While one lives, all timers hold still: a box waits for the user, and nothing happens behind
    /// it.
    class Hold {
      public:
        explicit Hold(Timers& timers);
        ~Hold();
        Hold(Hold const&) = delete;
        Hold& operator=(Hold const&) = delete;

      private:
        Timers& timers_;
    };

  private:
    EventGate& gate_;
    int holds_ = 0;
    std::unordered_map<platform::Control const*, std::unique_ptr<QTimer>> running_;
};

} // namespace desktop
