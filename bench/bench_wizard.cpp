// Speed of the wizard in the real windows: from its last click to the painted card.
#include "bench/running_program.h"
#include "desktop/card_canvas.h"
#include "forms/editor_form.h"
#include "forms/velho_form.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/input.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <chrono>

using namespace kehystin;

namespace {

using Clock = std::chrono::steady_clock;

/// Sees when the inside of a card is painted.
class CardPaintings : public QObject {
  public:
    CardPaintings() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint && dynamic_cast<desktop::CardCanvas*>(object))
            ++count;
        return false;
    }
    int count = 0;
};

class ProgramWithWizard : public RunningProgram {
  public:
    ProgramWithWizard() : RunningProgram({}, {1600, 1000}) {}

    /// Goes through the wizard and returns the seconds from its last click on.
    double make_card(char const* count) {
        Clock::time_point clicked;
        session.cardModified = false; // the card before is not asked about
        QTimer::singleShot(0, qApp, [&] {
            fVelho->txtMaara.Text = count;
            for (int page = 1; page < VelhoForm::pages; ++page) {
                click_on();
                finish();
            }
            clicked = Clock::now();
            click_on();
        });
        platform::input::click(fEditor->cmd_new);
        paintings_.count = 0;
        while (paintings_.count == 0)
            finish();
        return std::chrono::duration<double>(Clock::now() - clicked).count();
    }

  private:
    static void click_on() {
        auto* const button =
            QApplication::activeModalWidget()->findChild<QWidget*>(QStringLiteral("cmdSeuraava"));
        auto const middle = QPointF(button->rect().center());
        for (auto const type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            bool const down = type == QEvent::MouseButtonPress;
            QMouseEvent event(type, middle, button->mapToGlobal(middle), Qt::LeftButton,
                              down ? Qt::LeftButton : Qt::NoButton, {});
            QCoreApplication::sendEvent(button, &event);
        }
    }

    CardPaintings paintings_;
};

/// Limit: 100 ms.
void wizard_card_of_40_fields(benchmark::State& state) {
    ProgramWithWizard running;
    for (auto _ : state)
        state.SetIterationTime(running.make_card("40"));
    if (card.fields != 2 * VelhoForm::most_fields || session.link_count != VelhoForm::most_fields)
        state.SkipWithError("not made");
}

BENCHMARK(wizard_card_of_40_fields)->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace
