// Measuring the start: end the process when its first picture is on the screen.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include <cstdio>
#include <fstream>
#include <string>

namespace bench {

/// Ends the event loop behind the first painting, and prints the memory that is resident then.
class FirstPaint : public QObject {
  public:
    explicit FirstPaint(QApplication& application) { application.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint && !painted_) {
            painted_ = true;
            QTimer::singleShot(0, qApp, [] {
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
