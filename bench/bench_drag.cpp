// Speed of the real windows while the mouse works on a card of 300 fields: from the event to the
// finished picture.
#include "bench/running_program.h"
#include "desktop/card_canvas.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <memory>

using namespace kehystin;

namespace {

/// The real program on the large card, in a window that shows all of it.
class ProgramWithCard : public RunningProgram {
  public:
    ProgramWithCard()
        : RunningProgram({QStringLiteral(KEHYSTIN_SOURCES "/examples/kolmesataa.krt")},
                         {2300, 1200}) {}

    desktop::CardCanvas& canvas() {
        for (auto* const widget : host().mainWindow()->findChildren<QWidget*>())
            if (auto* const found = dynamic_cast<desktop::CardCanvas*>(widget))
                return *found;
        std::abort();
    }
    /// One event of the mouse on the card with the left button, down while it moves.
    void mouse(QEvent::Type type, QPoint point, Qt::KeyboardModifiers modifiers = {}) {
        auto& to = canvas_ ? *canvas_ : *(canvas_ = &canvas());
        auto const button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        auto const down = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, point, to.mapToGlobal(point), button, down, modifiers);
        QCoreApplication::sendEvent(&to, &event);
        finish();
    }
    void select_all() {
        QPoint const corner(canvas().width() - 1, canvas().height() - 1);
        mouse(QEvent::MouseButtonPress, corner);
        mouse(QEvent::MouseMove, {0, 0});
        mouse(QEvent::MouseButtonRelease, {0, 0});
    }

  private:
    desktop::CardCanvas* canvas_ = nullptr;
};

QPoint middle_of(int number) {
    auto const& one = field(number);
    return QRect(one.left, one.top, one.width, one.height).center();
}

bool is_all_selected() {
    for (int i = 1; i <= card.fields; ++i)
        if (!fCard->focus(i).Visible)
            return false;
    return true;
}

/// A field that is dragged by its own object.
int first_text_field() {
    int number = 1;
    while (!field(number).is(Style::TXT))
        ++number;
    return number;
}

void show_all_frames() {
    for (int i = 1; i <= card.fields; ++i)
        fCard->focus(i).Visible = true;
    RunningProgram::finish();
}

/// What a step of a drag changes.
void frames_of_300_fields(benchmark::State& state) {
    ProgramWithCard running;
    show_all_frames();
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % 20;
        for (int i = 1; i <= card.fields; ++i)
            fCard->focus(i).Move(field(i).left + step, field(i).top + step);
        RunningProgram::finish();
    }
}

/// What the release changes: the objects, their frames and the lines between them.
void objects_frames_and_lines_of_300_fields(benchmark::State& state) {
    ProgramWithCard running;
    show_all_frames();
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % 20;
        for (int i = 1; i <= card.fields; ++i) {
            auto const& one = field(i);
            fCard->visual(one.kind()->style, i).Move(one.left + step, one.top + step);
            fCard->focus(i).Move(one.left + step, one.top + step);
        }
        for (auto* const control : fCard->controls())
            if (control->control_class() == ControlClass::line && control->Visible) {
                auto& line = static_cast<Line&>(*control);
                int const shift = step == 0 ? -19 : 1;
                line.X1 = line.X1 + shift;
                line.Y1 = line.Y1 + shift;
                line.X2 = line.X2 + shift;
                line.Y2 = line.Y2 + shift;
            }
        RunningProgram::finish();
    }
}

/// One move of a drag with all fields, from the event to the painted frames. Limit: 4 ms.
void mouse_move_with_300_fields(benchmark::State& state) {
    ProgramWithCard running;
    running.select_all();
    auto const grab = middle_of(first_text_field());
    running.mouse(QEvent::MouseButtonPress, grab, Qt::ShiftModifier);
    if (!is_all_selected())
        return state.SkipWithError("not all selected");
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % 40;
        running.mouse(QEvent::MouseMove, grab + QPoint(5 * step, 5 * step));
    }
    running.mouse(QEvent::MouseButtonRelease, grab);
}

/// The release, with records, objects, panel and links. Limit: 10 ms.
void release_of_300_fields(benchmark::State& state) {
    ProgramWithCard running;
    running.select_all();
    int const held = first_text_field();
    int step = 5;
    for (auto _ : state) {
        state.PauseTiming();
        auto const grab = middle_of(held);
        running.mouse(QEvent::MouseButtonPress, grab, Qt::ShiftModifier);
        running.mouse(QEvent::MouseMove, grab + QPoint(step, step));
        state.ResumeTiming();
        running.mouse(QEvent::MouseButtonRelease, grab + QPoint(step, step));
        step = -step;
    }
    if (!is_all_selected())
        state.SkipWithError("not all selected");
}

/// Press and release on another field each time, with the panel's rows. Limit: 5 ms.
void select_one_of_300_fields(benchmark::State& state) {
    ProgramWithCard running;
    int number = 0;
    for (auto _ : state) {
        number = number % card.fields + 1;
        running.mouse(QEvent::MouseButtonPress, middle_of(number));
        running.mouse(QEvent::MouseButtonRelease, middle_of(number));
        if (!fCard->focus(number).Visible)
            state.SkipWithError("not selected");
    }
}

BENCHMARK(mouse_move_with_300_fields)->Unit(benchmark::kMillisecond);
BENCHMARK(release_of_300_fields)->Unit(benchmark::kMillisecond);
BENCHMARK(select_one_of_300_fields)->Unit(benchmark::kMillisecond);
BENCHMARK(frames_of_300_fields)->Unit(benchmark::kMillisecond);
BENCHMARK(objects_frames_and_lines_of_300_fields)->Unit(benchmark::kMillisecond);

} // namespace
