// Speed of the program without its windows, on the scripted host.
#include "app/program.h"
#include "cardfile/format.h"
#include "cardfile/reader.h"
#include "cardfile/writer.h"
#include "links/link_engine.h"
#include "model/card.h"
#include "model/session.h"
#include "surface/load_card.h"
#include "tests/scenario/scripted_host.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <sstream>

using namespace kehystin;

namespace {

std::string const large_card = KEHYSTIN_SOURCES "/examples/kolmesataa.krt";

struct Session300 {
    std::string folder = (std::filesystem::temp_directory_path() / "kehystin-bench/").string();
    scenario::ScriptedHost host{folder};
    Program program{host};

    Session300() {
        std::filesystem::create_directories(folder + "windows");
        program.Main();
    }
    /// The large card without the keys that came with later versions.
    std::string old_file() const {
        std::ifstream from(large_card, std::ios::binary);
        auto const path = folder + "old.krt";
        std::ofstream to(path, std::ios::binary);
        for (std::string line; std::getline(from, line);) {
            bool dropped = false;
            for (auto const* const key : {").align=", ").scaling=", ").border=", ").linkitys="})
                dropped = dropped || line.find(key) != std::string::npos;
            if (!dropped)
                to << line << '\n';
        }
        return path;
    }
};

void read_300_fields(benchmark::State& state) {
    Session300 const running;
    for (auto _ : state)
        if (!ReadCardFile(large_card))
            state.SkipWithError("not read");
}

void read_300_fields_without_later_keys(benchmark::State& state) {
    Session300 const running;
    auto const path = running.old_file();
    for (auto _ : state)
        if (!ReadCardFile(path))
            state.SkipWithError("not read");
}

void write_300_fields(benchmark::State& state) {
    Session300 const running;
    ReadCardFile(large_card);
    session.cardFile = running.folder + "written.krt";
    for (auto _ : state)
        SaveCardFile();
}

void link_150_titles_and_150_fields(benchmark::State& state) {
    Session300 const running;
    ReadCardFile(large_card);
    load_card();
    for (auto _ : state)
        update_links();
}

void load_card_of_300_fields(benchmark::State& state) {
    Session300 const running;
    ReadCardFile(large_card);
    for (auto _ : state)
        load_card();
}

/// The worst that a file of the largest size can be: one item after the other, none of them a key
/// that is looked for.
void read_64_mib_of_commas(benchmark::State& state) {
    Session300 running;
    auto const path = running.folder + "commas.krt";
    {
        std::ofstream to(path, std::ios::binary);
        to << "Norvak Cardfile\r\ncard.fields=300\r\n" << std::string(63 * 1024 * 1024, ',');
    }
    for (auto _ : state) {
        running.host.answers = {platform::Answer::no};
        ReadCardFile(path);
    }
}

BENCHMARK(read_300_fields)->Unit(benchmark::kMillisecond);
BENCHMARK(read_300_fields_without_later_keys)->Unit(benchmark::kMillisecond);
BENCHMARK(write_300_fields)->Unit(benchmark::kMillisecond);
BENCHMARK(link_150_titles_and_150_fields)->Unit(benchmark::kMillisecond);
BENCHMARK(load_card_of_300_fields)->Unit(benchmark::kMillisecond);
BENCHMARK(read_64_mib_of_commas)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
