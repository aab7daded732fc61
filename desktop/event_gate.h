// The one door between Qt and the program.
#pragma once

#include <functional>
#include <string_view>

namespace desktop {

/// Every event that Qt brings runs the program through here. No exception passes it: what the
/// program refuses is dropped, and the end of the session ends the application. When the outermost
/// call is back, everything that it marked is brought up to date, once.
class EventGate {
  public:
    struct Owner {
        std::function<void()> refresh;
        std::function<void(std::string_view what)> failed;
        std::function<void()> ended;
    };
    explicit EventGate(Owner owner) : owner_(std::move(owner)) {}
    EventGate(EventGate const&) = delete;
    EventGate& operator=(EventGate const&) = delete;

    /// Runs one call into the program. Does nothing while the windows take over what the program
    /// set, for those events are echoes of its own, nothing while the gate is closed, and nothing
    /// after the end of the session.
    void run(std::function<void()> const& call) noexcept;
    /// Brings everything marked up to date now.
    void refresh() noexcept;

    bool isRefreshing() const { return refreshing_; }
    bool isClosed() const { return closed_ > 0; }
    bool isInsideProgram() const { return depth_ > 0; }
    bool isSessionOver() const { return sessionOver_; }

    /// While one lives, the program waits for a box or a modal form: events that come meanwhile are
    /// outermost ones.
    class Waiting {
      public:
        explicit Waiting(EventGate& gate);
        ~Waiting();
        Waiting(Waiting const&) = delete;
        Waiting& operator=(Waiting const&) = delete;

      private:
        EventGate& gate_;
        int depth_;
    };

    /// While one lives, events are waited for in the middle of a handler that must not see another
    /// one run: nothing comes in. The windows stay as they are, and are painted.
    class Closed {
      public:
        explicit Closed(EventGate& gate) : gate_(gate) { ++gate_.closed_; }
        ~Closed() { --gate_.closed_; }
        Closed(Closed const&) = delete;
        Closed& operator=(Closed const&) = delete;

      private:
        EventGate& gate_;
    };

  private:
    /// Runs what must not let anything out.
    void guarded(std::function<void()> const& call) noexcept;

    Owner owner_;
    int depth_ = 0;
    int closed_ = 0;
    bool refreshing_ = false;
    bool sessionOver_ = false;
};

} // namespace desktop
