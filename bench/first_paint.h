// Measuring the start: tell the time at which the first picture is on the screen, and end there.
#pragma once

#include "bench/started.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace bench {

/// Ends the event loop behind the first painting, and prints the memory that is resident then and,
/// where `startedAt` is told, the nanoseconds since.
class FirstPaint : public QObject {
  public:
    explicit FirstPaint(QApplication& application) { application.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint && !painted_) {
            painted_ = true;
            QTimer::singleShot(0, qApp, [] {
                if (char const* const from = std::getenv(startedAt))
                    std::printf("Shown after: %lld\n", steadyNow() - std::atoll(from));
                std::ifstream status("/proc/self/status");
                for (std::string line; std::getline(status, line);)
                    if (line.starts_with("VmRSS:"))
                        std::puts(line.c_str());
                QApplication::exit();
            });
        }
        return false;
    }

  private:
    bool painted_ = false;
};

} // namespace bench
