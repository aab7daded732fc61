#include "mainwindow/icon_bar.h"

#include "model/session.h"
#include "model/settings.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace kehystin {

namespace {

using E = EditorForm;
using enum IconClick;
using enum IconKind;

// clang-format off
constexpr std::array table = {
    Icon{1, &E::cmd_new, "img_new", " Uusi ", runs_entry, GreyState::none},
    Icon{2, &E::cmd_open, "img_open", " Avaa ", runs_entry, GreyState::none},
    Icon{3, &E::cmdTallenna, "img_save", " Tallenna "},
    Icon{4, &E::cmdTallennaNimella, "img_save_as", " Tallenna nimellä... "},
    Icon{5, nullptr, "img_print", {}, IconClick::none, GreyState::none},
    Icon{6, nullptr, "img_print_setup", {}, IconClick::none, GreyState::none},
    Icon{7, &E::cmd_card_center, "img_card_center", " Keskitä kortti "},
    Icon{8, &E::cmd_card_size, "img_card_size", " Skaalaa kortti "},
    Icon{9, &E::cmd_fldBar, "img_fldbar", " Kentät ", runs_entry, GreyState::follows_entry, toggle},
    Icon{10, &E::cmd_proBar, "img_probar", " Ominaisuudet ", runs_entry, GreyState::follows_entry, toggle},
    Icon{icon_links, &E::cmd_linkBar, "img_linkbar", " Linkit ", runs_entry, GreyState::follows_entry, toggle},
    Icon{12, &E::cmd_grid_show, "img_grid", " Ruudukko ", runs_entry, GreyState::follows_entry, toggle},
    Icon{13, &E::cmd_guide_show, "img_guide", " Apuviivat ", runs_entry, GreyState::follows_entry, toggle},
    Icon{14, &E::cmd_lock, "img_lock", {}, runs_entry, GreyState::follows_entry, toggle},
    Icon{15, &E::cmd_field_del, "img_field_del", " Poista kenttä "},
    Icon{16, &E::cmd_a_left, "img_a_left", " Keskitä vasemmalle "},
    Icon{17, &E::cmd_a_right, "img_a_right", " Keskitä oikealle "},
    Icon{18, &E::cmd_a_center, "img_a_center", " Keskitä keskelle "},
    Icon{19, &E::cmd_align_left, "img_align_left", " Tasaa vasemmalle "},
    Icon{20, &E::cmd_align_right, "img_align_right", " Tasaa oikealle "},
    Icon{21, &E::cmd_align_center, "img_align_center", " Tasaa keskelle "},
    Icon{22, &E::cmd_valign_top, "img_valign_top", " Tasaa ylös "},
    Icon{23, &E::cmd_valign_bottom, "img_valign_bottom", " Tasaa alas "},
    Icon{24, &E::cmd_valign_center, "img_valign_center", " Tasaa keskelle "},
    Icon{25, &E::cmd_dense, "img_dense", {}, IconClick::none},
    Icon{26, &E::cmd_expand, "img_expand", {}, IconClick::none},
    Icon{27, &E::cmd_valign_link, "img_valign", " Keskitä linkit "},
    Icon{28, &E::cmd_help_index, "img_help", " Ohje ", runs_entry, GreyState::none},
    Icon{29, &E::cmd_lopeta, "img_exit", " Lopeta ", runs_entry, GreyState::none},
    Icon{31, &E::cmdSpecifield, "imgSpeci", " Kenttämääritykset "},
    Icon{32, &E::cmd_cols, "imgCols", " Sarakejärjestys "},
};
// clang-format on

/// A number below 1 keeps its place in the list and is not shown: so the density icons are hidden.
constexpr std::array<int, icon_places> default_icons = {
    1,  2,  3,  4,  30, 7,  8,  30, 9,  10,  30,  32, 31, 30, 11, 12,  13, 14, 30, 15,
    30, 19, 20, 21, 30, 22, 23, 24, 30, -25, -26, 16, 17, 18, 30, -30, 28, 29, 0,  0};

Icon const* icon_of(int number) {
    auto const found = std::find_if(table.begin(), table.end(),
                                    [&](Icon const& icon) { return icon.number == number; });
    return found == table.end() ? nullptr : &*found;
}

Icon const* icon_in(Button const& button) {
    return icon_of(std::atoi(button.Tag.get().c_str()));
}

/// Without a tip the icon is called what its menu entry is; two of them have neither.
std::string_view spoken_name_of(Icon const& icon) {
    if (!icon.tip.empty())
        return icon.tip;
    return icon.entry ? ((*fEditor).*icon.entry).Caption.get() : std::string_view("Ei toimintoa");
}

void draw_icon(Button& button, Icon const& icon) {
    bool const enabled = icon.grey == GreyState::none || ((*fEditor).*icon.entry).Enabled;
    button.Enabled = enabled;
    button.Picture = Picture::named(std::string(icon.picture) + (enabled ? "" : "0"));
}

/// The icon is on as its entry is, from now on.
void show_state(Button& button, Menu& entry) {
    button.Toggles = true;
    button.Checked = entry.Checked.get();
    entry.Toggled = [&entry, place = button.index()] {
        fEditor->ico(place).Checked = entry.Checked.get();
    };
}

void add_separator(double& x) {
    fEditor->icoBar.DrawLine(x + 90, 90, x + 90, 480, system_colour(16));
    fEditor->icoBar.DrawLine(x + 105, 90, x + 105, 480, system_colour(20));
    x += 210;
}

void add_icon(Icon const& icon, double& x) {
    session.iconCount += 1;
    auto& button = fEditor->ico.Load(session.iconCount);
    button.Left = x;
    x += settings.icoLarge != 0 ? 540 : 510;
    button.Tag = std::to_string(icon.number);
    button.set_spoken_name(spoken_name_of(icon));
    draw_icon(button, icon);
    if (icon.kind == toggle)
        show_state(button, (*fEditor).*icon.entry);
    button.Visible = true;
}

} // namespace

std::span<Icon const> icon_table() {
    return table;
}

void SetDefaultIcons() {
    settings.icoList[0] = 0;
    std::copy(default_icons.begin(), default_icons.end(), settings.icoList.begin() + 1);
    settings.icoWrap = -1;
}

void set_ico() {
    fEditor->icoBar.Height = 555;
    for (auto const& icon : table)
        if (icon.kind == toggle)
            ((*fEditor).*icon.entry).Toggled = Event();
    for (int i = 1; i <= session.iconCount; ++i)
        fEditor->ico.Unload(i);
    fEditor->icoBar.Cls();
    fEditor->relief_width = 0;
    session.iconCount = 0;
    settings.icoWrap = 0; // one row: what does not fit is cut off at the right
    double x = 90;
    for (int i = 1; i <= icon_places; ++i) {
        int const number = settings.icoList[static_cast<std::size_t>(i)];
        if (number == icon_separator)
            add_separator(x);
        else if (auto const* icon = number > 0 ? icon_of(number) : nullptr)
            add_icon(*icon, x);
    }
}

void refresh_icons() {
    for (int i = 1; i <= session.iconCount; ++i) {
        auto& button = fEditor->ico(i);
        if (auto const* icon = icon_in(button); icon && icon->grey == GreyState::follows_entry)
            draw_icon(button, *icon);
    }
}

void refresh_icon(int number) {
    for (int i = 1; i <= session.iconCount; ++i)
        if (auto const* icon = icon_in(fEditor->ico(i)); icon && icon->number == number)
            draw_icon(fEditor->ico(i), *icon);
}

void ico_Click(int index) {
    auto const* icon = icon_in(fEditor->ico(index));
    if (icon && icon->click == runs_entry)
        ((*fEditor).*icon->entry).Click(-1);
    // No icon keeps a focus frame.
    if (fEditor->icoBar.Visible && fEditor->icoBar.Enabled)
        fEditor->icoBar.SetFocus();
}

} // namespace kehystin
