#include "desktop/event_gate.h"

#include "platform/host.h"
#include "platform/input.h"

#include <utility>

namespace desktop {

void EventGate::run(std::function<void()> const& call) noexcept {
    if (refreshing_ || isClosed() || sessionOver_)
        return;
    ++depth_;
    guarded(call);
    --depth_;
    if (depth_ == 0)
        refresh();
}

void EventGate::refresh() noexcept {
    if (refreshing_ || isClosed() || sessionOver_)
        return;
    refreshing_ = true;
    guarded(owner_.refresh);
    refreshing_ = false;
}

void EventGate::guarded(std::function<void()> const& call) noexcept {
    try {
        call();
    } catch (platform::SessionEnd const&) {
        sessionOver_ = true;
        owner_.ended();
    } catch (platform::InputRefused const&) {
        // A user could not have done that, whatever Qt believes.
    } catch (std::exception const& failure) {
        owner_.failed(failure.what());
    } catch (...) {
        owner_.failed("?");
    }
}

EventGate::Waiting::Waiting(EventGate& gate) : gate_(gate) {
    gate_.refresh();
    depth_ = std::exchange(gate_.depth_, 0);
}

EventGate::Waiting::~Waiting() {
    gate_.depth_ = depth_;
}

} // namespace desktop
