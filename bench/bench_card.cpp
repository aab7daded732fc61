// Speed of the card library alone: from bytes to records and back.
#include "bench/cards.h"
#include "card/linking.h"
#include "card/reading.h"
#include "card/writing.h"

#include <benchmark/benchmark.h>

using namespace kehystin;

namespace {

Reading read(std::string const& bytes) {
    return read_card(bytes, {}, {.today = 50000});
}

void card_from_bytes(benchmark::State& state) {
    auto const bytes = bench_cards::bytes_of(bench_cards::large_card);
    for (auto _ : state)
        benchmark::DoNotOptimize(read(bytes));
}

void card_from_bytes_without_later_keys(benchmark::State& state) {
    auto const bytes = bench_cards::old_bytes();
    for (auto _ : state)
        benchmark::DoNotOptimize(read(bytes));
}

void card_to_bytes(benchmark::State& state) {
    auto data = read(bench_cards::bytes_of(bench_cards::large_card)).data;
    for (auto _ : state)
        benchmark::DoNotOptimize(write_card(data));
}

void card_linked(benchmark::State& state) {
    auto data = read(bench_cards::bytes_of(bench_cards::large_card)).data;
    for (auto _ : state)
        benchmark::DoNotOptimize(link_card(data));
}

BENCHMARK(card_from_bytes)->Unit(benchmark::kMillisecond);
BENCHMARK(card_from_bytes_without_later_keys)->Unit(benchmark::kMillisecond);
BENCHMARK(card_to_bytes)->Unit(benchmark::kMillisecond);
BENCHMARK(card_linked)->Unit(benchmark::kMillisecond);

} // namespace
