#include "mainwindow/menu_table.h"

#include <array>

namespace kehystin {

namespace {

using E = EditorForm;
using enum Start;
using enum Mark;
using G = Group;

constexpr MenuEntry separator(Menu EditorForm::*entry) {
    return {entry, "-"};
}

// clang-format off
constexpr std::array table = {
    MenuEntry{&E::mnu_file, "&Tiedosto"},
    MenuEntry{&E::cmd_new, "&Uusi..."},
    MenuEntry{&E::cmd_open, "&Avaa...", on, none, "Ctrl+O"},
    MenuEntry{&E::cmd_close, "&Sulje", off, none, "", G::needs_card},
    separator(&E::wSave),
    MenuEntry{&E::cmdTallenna, "&Tallenna", off, none, "Ctrl+S"},
    MenuEntry{&E::cmdTallennaNimella, "Tallenna &nimellä...", off, none, "Ctrl+A", G::needs_card},
    separator(&E::wProperties),
    MenuEntry{&E::cmd_properties, "Asetukset..."},
    MenuEntry{&E::wF, "-", hidden},
    separator(&E::wExit),
    MenuEntry{&E::cmd_lopeta, "&Lopeta"},

    MenuEntry{&E::mnu_card, "K&ortti"},
    MenuEntry{&E::cmd_card_autocenter, "Keskitä automaattisesti", off, checked, "", G::needs_card},
    MenuEntry{&E::cmd_card_center, "&Keskitä", off, none, "Ctrl+K", G::needs_card},
    MenuEntry{&E::cmd_card_autosize, "&Skaalaa automaattisesti", hidden},
    MenuEntry{&E::cmd_card_size, "&Skaalaa          ", off, none, "Ctrl+X", G::needs_card},

    MenuEntry{&E::mnu_field, "&Kenttä"},
    MenuEntry{&E::cmd_field_add, "&Lisää", off, none, "", G::needs_card},
    MenuEntry{&E::cmd_field_del, "&Poista          ", off, none, "Ctrl+D", G::del},
    separator(&E::wCols),
    MenuEntry{&E::cmd_cols, "&Sarakejärjestys...", off, none, "", G::needs_card},
    MenuEntry{&E::cmdSpecifield, "Kenttämääritykset...", off, none, "", G::needs_card},
    separator(&E::wAlign),
    MenuEntry{&E::cmd_align, "Tasaa vaakatasossa", off, none, "", G::horiz},
    MenuEntry{&E::cmd_align_left, "&Vasemmalle", off, none, "Ctrl+L", G::horiz},
    MenuEntry{&E::cmd_align_right, "&Oikealle", off, none, "Ctrl+R", G::horiz},
    MenuEntry{&E::cmd_align_center, "&Keskelle", off, none, "Ctrl+M", G::horiz},
    MenuEntry{&E::cmd_valign, "Tasaa pystytasossa", off, none, "", G::vert},
    MenuEntry{&E::cmd_valign_top, "&Ylös", off, none, "Ctrl+T", G::vert},
    MenuEntry{&E::cmd_valign_bottom, "&Alas", off, none, "Ctrl+B", G::vert},
    MenuEntry{&E::cmd_valign_center, "&Keskelle", off, none, "Ctrl+N", G::vert},
    MenuEntry{&E::cmd_dense, "&Tiivistä pystytiheyttä", hidden_off, none, "Ctrl+V", G::needs_card},
    MenuEntry{&E::cmd_expand, "&Harvenna pystytiheyttä", hidden_off, none, "Ctrl+E", G::needs_card},
    // Switched off with the title commands, but never on: its submenu stays closed once off.
    MenuEntry{&E::cmd_align_ots, "Keskitä otsikot", off},
    MenuEntry{&E::cmd_a_left, "Vasemmalle", off, none, "", G::titles},
    MenuEntry{&E::cmd_a_right, "Oikealle", off, none, "", G::titles},
    MenuEntry{&E::cmd_a_center, "Keskelle", off, none, "", G::titles},
    MenuEntry{&E::cmd_valign_link, "&Keskitä linkitetyt kentät          ", off, none, "Ctrl+U", G::links},
    separator(&E::wLink),
    MenuEntry{&E::cmd_link_automatic, "Linkitä automaattisesti", off, checked, "", G::needs_card},
    MenuEntry{&E::cmd_lock, "&Lukitse kentät", off, none, "", G::needs_card},

    MenuEntry{&E::mnu_view, "&Näytä"},
    MenuEntry{&E::cmd_fldBar, "&Kentät", off, none, "F6", G::needs_card},
    MenuEntry{&E::cmd_proBar, "&Ominaisuudet          ", off, none, "F7", G::needs_card},
    MenuEntry{&E::cmd_linkBar, "&Linkit", off, none, "F8", G::links},
    separator(&E::wBars),
    MenuEntry{&E::cmd_icoBar, "K&uvakepalkki", on, checked},
    MenuEntry{&E::cmd_stsBar, "&Statuspalkki", on, checked},
    separator(&E::wGrid),
    MenuEntry{&E::cmd_grid_show, "Näytä &Ruudukko", off, checked, "Ctrl+G", G::needs_card},
    MenuEntry{&E::cmd_grid_snap, "Tartu ruudukkoon", off, checked, "", G::needs_card},
    separator(&E::wGuide),
    MenuEntry{&E::cmd_guide_show, "Näytä &Apuviivat", off, none, "", G::needs_card},
    MenuEntry{&E::cmd_guide_snap, "Tartu apuviivoihin", off, none, "", G::needs_card},

    MenuEntry{&E::mnu_help, "&Ohje"},
    MenuEntry{&E::cmd_help_index, "&Hakemisto          ", on, none, "F1"},
    separator(&E::wInfo),
    MenuEntry{&E::cmd_info, "&Info..."},
    MenuEntry{&E::cmdAutoPlace, "AutoPlace", hidden},
};
// clang-format on

} // namespace

std::span<MenuEntry const> menu_table() {
    return table;
}

void build_menus() {
    for (auto const& row : table) {
        auto& menu = (*fEditor).*row.entry;
        menu.Caption = std::string(row.caption);
        menu.Shortcut = std::string(row.shortcut);
        menu.Checked = row.mark == checked;
        menu.Enabled = row.start == on || row.start == hidden;
        menu.Visible = row.start == on || row.start == off;
    }
    for (int i = 1; i <= 4; ++i)
        fEditor->lastFile.Load(i);
}

} // namespace kehystin
