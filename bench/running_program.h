// The real program in its real windows, for benchmarks.
#pragma once

#include "app/program.h"
#include "desktop/qt_host.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

class RunningProgram {
  public:
    /// Starts with these words on the command line and waits until the windows have settled in a
    /// main window of that size.
    RunningProgram(QStringList const& arguments, QSize size) : host_(arguments) {
        qputenv("XDG_CONFIG_HOME", folder_.path().toUtf8());
        qputenv("XDG_STATE_HOME", folder_.path().toUtf8());
        host_.run([&] {
            program_.Main();
            QTimer::singleShot(0, qApp, [] { QApplication::exit(); });
        });
        while (!host_.mainWindow() || host_.timers().isAnyShorterThan(100))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        host_.mainWindow()->resize(size);
        finish();
    }

    /// Everything that is under way, painting included.
    static void finish() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents();
    }

  protected:
    desktop::QtHost& host() { return host_; }

  private:
    QTemporaryDir folder_;
    desktop::QtHost host_;
    kehystin::Program program_{host_};
};
