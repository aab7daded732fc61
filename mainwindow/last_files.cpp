#include "mainwindow/last_files.h"

#include "boxes/failure_report.h"
#include "forms/editor_form.h"
#include "model/settings.h"
#include "platform/host.h"

namespace kehystin {

namespace {

constexpr int last_file_places = 4; // of the six that the settings store: 1 to 4

auto& place(int number) {
    return settings.lastFile[static_cast<std::size_t>(number)];
}

void put_first(std::string const& name) {
    int found = last_file_places;
    for (int i = 1; i <= last_file_places; ++i)
        if (place(i).trim() == name) {
            found = i;
            break;
        }
    for (int i = found; i > 1; --i)
        place(i) = place(i - 1);
    place(1) = name;
}

void close_up() {
    int next = 1;
    for (int i = 1; i <= last_file_places; ++i)
        if (!place(i).is_blank())
            place(next++) = place(i);
    for (; next <= last_file_places; ++next)
        place(next) = "";
}

void rebuild_menu() {
    fEditor->wF.Visible = false;
    for (int i = 1; i <= last_file_places; ++i) {
        auto& entry = fEditor->lastFile(i);
        bool const shown = settings.keepLastFiles != 0 && !place(i).is_blank();
        entry.Visible = shown;
        if (!shown)
            continue;
        entry.UseMnemonic = false; // a name may have any sign in it
        entry.Caption = place(i).trimmed();
        fEditor->wF.Visible = true;
    }
}

} // namespace

void UpdateLastFiles(std::string_view name) {
    int step = 1;
    try {
        if (!Trim(name).empty())
            put_first(FixedText<100>(name).trimmed());
        step = 4;
        close_up();
        step = 5;
        rebuild_menu();
    } catch (RuntimeError const& error) {
        auto const cause = " " + error.text() + "     ";
        auto const code =
            " VIRHEKOODI:   E" + std::to_string(error.number()) + " P21 S" + std::to_string(step);
        MsgBox(lines({" Viimeksi avattujen tiedostojen lataaminen aiheutti virheen:     ", cause,
                      code, " Mikäli sama virhe toistuu ole hyvä ja ilmoita virhekoodi    ",
                      support_address_line()}),
               box::warning, " Tiedoksi");
    }
}

} // namespace kehystin
