#include "desktop/end_requests.h"

#include <QGuiApplication>
#include <QSessionManager>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace desktop {

namespace {

constexpr int requests[] = {SIGTERM, SIGHUP};

/// A signal says its number here; the event loop reads it at the other end.
int ends[2] = {-1, -1};

extern "C" void passSignalOn(int number) {
    auto const byte = static_cast<char>(number);
    static_cast<void>(write(ends[0], &byte, 1) == 1);
}

} // namespace

EndRequests::EndRequests(std::function<void()> keep, std::function<bool()> close)
    : keep_(std::move(keep)), close_(std::move(close)) {
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) == 0) {
        notifier_ = std::make_unique<QSocketNotifier>(ends[1], QSocketNotifier::Read);
        connect(notifier_.get(), &QSocketNotifier::activated, this, [this] { endBySignal(); });
        for (int const number : requests)
            if (std::signal(number, SIG_IGN) != SIG_IGN) // as the one who starts it may wish
                std::signal(number, passSignalOn);
    }
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager& manager) { logOut(manager); }, Qt::DirectConnection);
}

EndRequests::~EndRequests() {
    for (int const number : requests)
        if (std::signal(number, SIG_IGN) == passSignalOn)
            std::signal(number, SIG_DFL);
    notifier_.reset();
    for (int& end : ends)
        if (int const open = std::exchange(end, -1); open >= 0)
            ::close(open);
}

void EndRequests::endBySignal() {
    char number = 0;
    if (read(ends[1], &number, 1) != 1)
        return;
    keep_();
    // Whoever waits for the process learns what has ended it.
    std::signal(number, SIG_DFL);
    std::raise(number);
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
