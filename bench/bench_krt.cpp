// The tool krt as whole processes, against the least that one can be.
#include "bench/cards.h"

#include <benchmark/benchmark.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

/// Runs a program without a shell between, silently.
void run(benchmark::State& state, std::vector<std::string> words) {
    std::vector<char*> arguments;
    for (auto& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t silent;
    posix_spawn_file_actions_init(&silent);
    posix_spawn_file_actions_addopen(&silent, STDOUT_FILENO, "/dev/null", 1 /* O_WRONLY */, 0);
    for (auto _ : state) {
        pid_t child = 0;
        int status = 0;
        if (posix_spawnp(&child, arguments[0], &silent, nullptr, arguments.data(), environ) != 0 ||
            waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) > 1)
            state.SkipWithError("did not run");
    }
    posix_spawn_file_actions_destroy(&silent);
}

void start_true(benchmark::State& state) {
    run(state, {"true"});
}

void krt_check_one_card(benchmark::State& state) {
    run(state, {KRT_PROGRAM, "check", KEHYSTIN_SOURCES "/examples/asiakkaat.krt"});
}

void krt_check_1000_cards_of_40_fields(benchmark::State& state) {
    auto const bytes = bench_cards::with_fields(40);
    std::vector<std::string> words{KRT_PROGRAM, "check"};
    for (int i = 0; i < 1000; ++i) {
        words.push_back(bench_cards::folder() + std::to_string(i) + ".krt");
        bench_cards::put_bytes(words.back(), bytes);
    }
    run(state, std::move(words));
}

#ifdef KRT_DRAWS
/// The whole way of a large card into a file, with the second program that it takes.
void krt_draw_300_fields(benchmark::State& state, std::string const& ending) {
    run(state, {KRT_PROGRAM, "draw", KEHYSTIN_SOURCES "/examples/kolmesataa.krt", "-o",
                bench_cards::folder() + "card." + ending});
}
BENCHMARK_CAPTURE(krt_draw_300_fields, png, "png")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(krt_draw_300_fields, svg, "svg")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(krt_draw_300_fields, pdf, "pdf")->Unit(benchmark::kMillisecond)->UseRealTime();
#endif

void krt_form_300_fields(benchmark::State& state) {
    run(state, {KRT_PROGRAM, "form", KEHYSTIN_SOURCES "/examples/kolmesataa.krt"});
}

// In turn, so that a busy machine slows both.
BENCHMARK(start_true)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(200);
BENCHMARK(krt_check_one_card)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(200);
BENCHMARK(start_true)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(200);
BENCHMARK(krt_check_one_card)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(200);
BENCHMARK(krt_form_300_fields)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(krt_check_1000_cards_of_40_fields)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
