// Any bytes as a settings file: whatever was read, after the repair every member can stand, and a
// record that stands comes back the same.
#include "app/program.h"
#include "app/settings_file.h"
#include "commands/icon_bar.h"
#include "commands/last_files.h"
#include "commands/menu_table.h"
#include "forms/editor_form.h"
#include "tests/fuzz/fuzz_host.h"

#include <cstdint>
#include <cstdlib>

using namespace kehystin;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static FuzzHost host;
    static Program program(host);
    static bool const started = (program.Main(), true);
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
    return 0;
}
