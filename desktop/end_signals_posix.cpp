#include "desktop/end_signals.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace desktop {

namespace {

constexpr int requests[] = {SIGTERM, SIGHUP};

/// A signal says its number here; the event loop reads it at the other end.
int ends[2] = {-1, -1};

extern "C" void passSignalOn(int number) {
    auto const byte = static_cast<char>(number);
    static_cast<void>(write(ends[0], &byte, 1) == 1);
}

class EndSignals : public QObject {
  public:
    explicit EndSignals(std::function<void()> keep) : keep_(std::move(keep)) {
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
            return;
        notifier_ = std::make_unique<QSocketNotifier>(ends[1], QSocketNotifier::Read);
        connect(notifier_.get(), &QSocketNotifier::activated, this, [this] { end(); });
        for (int const number : requests)
            if (std::signal(number, SIG_IGN) != SIG_IGN) // as the one who starts it may wish
                std::signal(number, passSignalOn);
    }
    ~EndSignals() override {
        for (int const number : requests)
            if (std::signal(number, SIG_IGN) == passSignalOn)
                std::signal(number, SIG_DFL);
        notifier_.reset();
        for (int& end : ends)
            if (int const open = std::exchange(end, -1); open >= 0)
                ::close(open);
    }

  private:
    void end() {
        char number = 0;
        if (read(ends[1], &number, 1) != 1)
            return;
        keep_();
        // Whoever waits for the process learns what has ended it.
        std::signal(number, SIG_DFL);
        std::raise(number);
    }

    std::function<void()> keep_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace

std::unique_ptr<QObject> watchEndSignals(std::function<void()> keep) {
    return std::make_unique<EndSignals>(std::move(keep));
}

} // namespace desktop
