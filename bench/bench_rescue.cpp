// What keeping the user's work costs, on real files.
#include "app/program.h"
#include "bench/cards.h"
#include "cardfile/document_commands.h"
#include "cardfile/work_rescue.h"
#include "cardfile/writer.h"
#include "disk/disk.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/background.h"
#include "platform/input.h"
#include "tests/scenario/scripted_host.h"

#include <benchmark/benchmark.h>

#include <filesystem>

using namespace kehystin;

namespace {

/// Writes in the background, as the real windows do, or keeps nothing at all.
class KeepingHost : public scenario::ScriptedHost {
  public:
    KeepingHost(std::string const& folder, bool keeps) : ScriptedHost(folder), keeps_(keeps) {}
    std::string state_folder() const override {
        return keeps_ ? ScriptedHost::state_folder() : std::string();
    }
    void in_background(std::function<void()> const& work) override { background_.run(work); }
    void finish_background() override { background_.finish(); }

  private:
    bool keeps_;
    platform::Background background_;
};

/// The large card, open from a file that may be written.
struct OpenCard {
    std::string folder = bench_cards::folder();
    KeepingHost host;
    Program program{host};

    explicit OpenCard(bool keeps) : host(folder, keeps) {
        std::filesystem::create_directories(folder + "windows");
        std::filesystem::copy_file(bench_cards::large_card, folder + "a.krt",
                                   std::filesystem::copy_options::overwrite_existing);
        program.Main();
        session.startFile = folder + "a.krt";
        cmd_open_Click();
    }
};

/// A key in a row, and what the session itself does to keep the change. The disk's part is another
/// thread's. Limit: 0.2 ms more than without.
void key_at_300_fields(benchmark::State& state) {
    OpenCard running(state.range(0) != 0);
    fEditor->cmb_field.ListIndex = 2;
    auto& editor = fEditor->txt_left;
    input::focus(editor);
    bool first = true;
    for (auto _ : state) {
        input::paste(editor, first ? "12" : "13");
        first = !first;
    }
}

/// What the session itself does once a second to keep a changed card. Limit: 2 ms.
void keep_300_fields(benchmark::State& state) {
    OpenCard running(true);
    int left = 10;
    for (auto _ : state) {
        field(2).left = left = 23 - left;
        keep_work();
        state.PauseTiming();
        running.host.finish_background();
        state.ResumeTiming();
    }
}

/// The writing of a save, with and without both sides kept, flushed and read back. Limit: 15 ms
/// beside what the disk takes for the flushes.
void save_300_fields(benchmark::State& state) {
    OpenCard running(state.range(0) != 0);
    for (auto _ : state)
        if (!SaveCardFile())
            state.SkipWithError("not saved");
}

/// The disk's own time: as many files of that size as a save flushes.
void flushes_of_a_save(benchmark::State& state) {
    auto const folder = bench_cards::folder();
    auto const bytes = *disk::bytes_on_disk(bench_cards::large_card);
    for (auto _ : state)
        for (int i = 0; i < 3; ++i) {
            auto const path = folder + std::to_string(i);
            bench_cards::put_bytes(path, bytes);
            disk::flush_to_disk(path);
        }
}

BENCHMARK(key_at_300_fields)
    ->ArgName("keeps")
    ->Arg(0)
    ->Arg(1)
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(keep_300_fields)->Unit(benchmark::kMillisecond);
BENCHMARK(save_300_fields)
    ->ArgName("keeps")
    ->Arg(0)
    ->Arg(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(flushes_of_a_save)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
