#include "desktop/screenshot.h"

#include "desktop/qt_host.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cstring>
#include <utility>

namespace desktop {

Screenshot::Screenshot(int& argc, char* argv[]) {
    auto** const end = argv + argc;
    auto** const option = std::find_if(argv, end, [](char const* word) {
        return !std::strcmp(word, "--screenshot") || !std::strcmp(word, "--");
    });
    if (end - option < 2 || !std::strcmp(*option, "--")) // behind it are files
        return;
    file_ = option[1];
    std::move(option + 2, end, option);
    argc -= 2;
    argv[argc] = nullptr;
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

void Screenshot::takeFrom(QtHost& host) const {
    if (file_.empty())
        return;
    constexpr int between = 200; // milliseconds between two looks
    constexpr int soon = 100;    // a timer of less than this still changes the window
    QApplication::setCursorFlashTime(0);
    auto* const look = new QTimer(qApp);
    look->callOnTimeout([look, &host, file = file_, before = QImage()]() mutable {
        auto* const window = host.mainWindow();
        if (!window || !window->isVisible() || host.timers().isAnyShorterThan(soon))
            return;
        // On a busy machine the window may still become the active one.
        auto const now = window->grab().toImage();
        if (now != std::exchange(before, now))
            return;
        look->stop();
        QCoreApplication::exit(now.save(QString::fromStdString(file)) ? 0 : 1);
    });
    look->start(between);
}

} // namespace desktop
