// Any bytes as a settings file: whatever was read, after the repair every member can stand, and a
// record that stands comes back the same.
#include "app/program.h"
#include "app/settings_file.h"
#include "cardfile/document_commands.h"
#include "dialogs/settings.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "mainwindow/icon_bar.h"
#include "mainwindow/last_files.h"
#include "model/card.h"
#include "surface/adding.h"
#include "surface/grid.h"
#include "tests/fuzz/fuzz_host.h"

#include <cstdint>
#include <cstdlib>

using namespace kehystin;

namespace {

/// The program with a card that has a field.
bool start(Program& program) {
    program.Main();
    settings.showVelho = 0;
    cmd_new_Click();
    Form_DragDrop(fEditor->drag_ots, 100, 100);
    return fCard != nullptr;
}

/// A switch that is on is stored as -1, whatever number meant it before.
void normalise(Settings& record) {
    for (auto* const flag : {&record.keepLastFiles, &record.saveWindowPos, &record.showVelho})
        *flag = *flag != 0 ? -1 : 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static FuzzHost host;
    static Program program(host);
    static bool const started = start(program);
    (void)started;
    constexpr double width = 1280 * 15;
    constexpr double height = 1024 * 15;
    Settings record = first_settings(width, height);
    take_settings_record(record, {reinterpret_cast<std::byte const*>(data), size});
    repair_settings(record, width, height);
    bool const fits = record.windowWidth >= 4200 && record.windowWidth <= width + 300 &&
                      record.windowLeft <= width && record.gridX >= 2 && record.guideY >= 5;
    if (!fits)
        std::abort();
    auto const bytes = settings_record(record);
    Settings again = first_settings(width, height);
    take_settings_record(again, bytes);
    if (settings_record(again) != bytes)
        std::abort();
    settings = record;
    set_ico();
    UpdateLastFiles("");
    // What stands is used: marks are drawn and snapped to, and the dialog takes it as it is.
    settings.showVelho = 0;
    again = settings;
    field(1).left = 95;
    upd_gg();
    cmd_grid_snap_Click();
    cmd_guide_snap_Click();
    if (field(1).left < 0 || field(1).left > 400)
        std::abort();
    cmd_properties_Click();
    UpdateLastFiles(""); // the dialog closes up the list
    normalise(settings);
    normalise(again);
    if (settings_record(settings) != settings_record(again))
        std::abort();
    return 0;
}
