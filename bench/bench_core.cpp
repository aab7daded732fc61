// Speed of the program without its windows, on the scripted host.
#include "app/program.h"
#include "bench/cards.h"
#include "card/format.h"
#include "cardfile/document_commands.h"
#include "cardfile/reader.h"
#include "cardfile/writer.h"
#include "forms/card_form.h"
#include "forms/panel_rows.h"
#include "layout/align.h"
#include "links/link_engine.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/selection_rows.h"
#include "platform/input.h"
#include "surface/load_card.h"
#include "tests/scenario/scripted_host.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

using namespace kehystin;

namespace {

using bench_cards::large_card;

struct Session300 {
    std::string folder = bench_cards::folder();
    scenario::ScriptedHost host{folder};
    Program program{host};

    Session300() {
        std::filesystem::create_directories(folder + "windows");
        program.Main();
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
    auto const path = running.folder + "old.krt";
    bench_cards::put_bytes(path, bench_cards::old_bytes());
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

/// The large card as a user has it open, all its fields selected.
void select_all_of_large_card() {
    session.startFile = large_card;
    cmd_open_Click();
    for (int i = 1; i <= card.fields; ++i)
        fCard->focus(i).Visible = true;
    set_pro();
}

/// A key in a row, as the panel takes it: two texts in turn, so that each is a change.
void type_in_row(benchmark::State& state, Row row, std::string const& one,
                 std::string const& other) {
    Session300 const running;
    select_all_of_large_card();
    auto& editor = (*fEditor).*panel_row(row).editor;
    input::focus(editor);
    bool first = true;
    for (auto _ : state) {
        input::paste(editor, first ? one : other);
        first = !first;
    }
}

void key_in_left_of_300_fields(benchmark::State& state) {
    type_in_row(state, Row::left, "12", "13");
}

void key_in_font_of_300_fields(benchmark::State& state) {
    type_in_row(state, Row::font_name, "Arial", "Tahoma");
}

void align_300_fields_left(benchmark::State& state) {
    Session300 const running;
    select_all_of_large_card();
    for (auto _ : state)
        cmd_align_left_Click();
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
BENCHMARK(key_in_left_of_300_fields)->Unit(benchmark::kMillisecond);
BENCHMARK(key_in_font_of_300_fields)->Unit(benchmark::kMillisecond);
BENCHMARK(align_300_fields_left)->Unit(benchmark::kMillisecond);
BENCHMARK(read_64_mib_of_commas)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
