// The start of the whole process up to the painted window, against an empty main window.
#include "bench/started.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

/// Runs one process and counts its time up to its first picture; the way out of it is no start.
void run(benchmark::State& state, std::string const& command) {
    for (auto _ : state) {
        setenv(bench::startedAt, std::to_string(bench::steadyNow()).c_str(), 1);
        FILE* const told = popen((command + " 2>/dev/null").c_str(), "r");
        double shown = 0;
        std::array<char, 100> line{};
        while (told && std::fgets(line.data(), line.size(), told))
            std::sscanf(line.data(), "Shown after: %lf", &shown);
        if (!told || pclose(told) != 0 || shown == 0)
            state.SkipWithError("did not start");
        state.SetIterationTime(shown * 1e-9);
    }
}

void start_with_300_fields(benchmark::State& state) {
    run(state, KEHYSTIN_START " " KEHYSTIN_SOURCES "/examples/kolmesataa.krt");
}

void start_without_a_card(benchmark::State& state) {
    run(state, KEHYSTIN_START);
}

void start_empty_window(benchmark::State& state) {
    run(state, KEHYSTIN_EMPTY_WINDOW);
}

// In turn, so that a busy machine slows all.
BENCHMARK(start_empty_window)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);
BENCHMARK(start_without_a_card)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);
BENCHMARK(start_with_300_fields)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);
BENCHMARK(start_empty_window)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);
BENCHMARK(start_without_a_card)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);
BENCHMARK(start_with_300_fields)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);

} // namespace
