#include "desktop/end_requests.h"

#include "desktop/end_signals.h"

#include <QGuiApplication>
#include <QSessionManager>

#include <utility>

namespace desktop {

EndRequests::EndRequests(std::function<void()> keep, std::function<bool()> close)
    : keep_(std::move(keep)), close_(std::move(close)), signals_(watchEndSignals(keep_)) {
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager& manager) { logOut(manager); }, Qt::DirectConnection);
}

bool EndRequests::mayLogOut(std::function<bool()> const& mayAsk) {
    keep_();
    return !mayAsk() || close_();
}

void EndRequests::logOut(QSessionManager& manager) {
    if (!mayLogOut([&] { return manager.allowsInteraction(); }))
        manager.cancel();
    manager.release();
}

} // namespace desktop
