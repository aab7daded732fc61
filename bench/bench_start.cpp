// The start of the whole process up to the painted window, against an empty main window.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

namespace {

/// Runs one process to its first picture.
void run(benchmark::State& state, std::string const& command) {
    for (auto _ : state)
        if (std::system((command + " >/dev/null 2>&1").c_str()) != 0)
            state.SkipWithError("did not start");
}

void start_with_300_fields(benchmark::State& state) {
    run(state, KEHYSTIN_START " " KEHYSTIN_SOURCES "/examples/kolmesataa.krt");
}

void start_empty_window(benchmark::State& state) {
    run(state, KEHYSTIN_EMPTY_WINDOW);
}

// In turn, so that a busy machine slows both.
BENCHMARK(start_empty_window)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(start_with_300_fields)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(start_empty_window)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(start_with_300_fields)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

} // namespace
