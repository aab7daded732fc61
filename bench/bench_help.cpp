// Speed of the help: from F1 to the painted page.
#include "bench/running_program.h"
#include "desktop/help_browser.h"
#include "forms/editor_form.h"
#include "model/session.h"
#include "platform/input.h"

#include <benchmark/benchmark.h>

#include <chrono>

using namespace kehystin;

namespace {

using Clock = std::chrono::steady_clock;

/// The first page that has been painted, with the time.
class PagePainting : public QObject {
  public:
    PagePainting() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override {
        auto* const page = dynamic_cast<desktop::HelpBrowser*>(object->parent());
        if (event->type() == QEvent::Paint && page && !window) {
            window = page->window();
            QTimer::singleShot(0, this, [this] { end = Clock::now(); });
        }
        return false;
    }
    QWidget* window = nullptr;
    Clock::time_point end;
};

class ProgramWithHelp : public RunningProgram {
  public:
    ProgramWithHelp() : RunningProgram({}, {1600, 1000}) {
        session.appPath = KEHYSTIN_PROGRAMS "/";
    }
    /// The seconds from F1 on.
    double open_help() {
        PagePainting painting;
        auto const start = Clock::now();
        platform::input::shortcut(*fEditor, "F1");
        while (painting.end == Clock::time_point())
            finish();
        painting.window->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return std::chrono::duration<double>(painting.end - start).count();
    }
};

void help_from_f1_to_the_painted_page(benchmark::State& state) {
    ProgramWithHelp program;
    program.open_help(); // what is made once
    for (auto _ : state)
        state.SetIterationTime(program.open_help());
}

BENCHMARK(help_from_f1_to_the_painted_page)->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace
