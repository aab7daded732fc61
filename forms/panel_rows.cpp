#include "forms/panel_rows.h"

#include <algorithm>
#include <array>

namespace kehystin {

namespace {

using E = EditorForm;
using enum Row;

constexpr double text_width = 1530;
constexpr double number_width = 1350; // leaves room for a scroll bar
constexpr double word_width = 1260;   // leaves room for a button
constexpr double fixed_width = 1080;  // leaves room for one also beside the rows' scroll bar

constexpr PanelRow text(Row row, std::string_view caption, TextBox E::*editor) {
    return {row, caption, editor, text_width, Fit::editor};
}

constexpr PanelRow number(Row row, std::string_view caption, TextBox E::*editor,
                          ScrollBar E::*scroll) {
    return {row, caption, editor, number_width, Fit::editor, nullptr, scroll};
}

constexpr PanelRow words(Row row, std::string_view caption, TextBox E::*editor, Button E::*button,
                         ListBox E::*list, Fit fit = Fit::button) {
    double const width = fit == Fit::button ? fixed_width : word_width;
    return {row, caption, editor, width, fit, button, nullptr, list};
}

constexpr PanelRow dialog(Row row, std::string_view caption, TextBox E::*editor, Button E::*button,
                          PictureBox E::*swatch = nullptr) {
    auto const fit = swatch ? Fit::editor_and_button : Fit::button;
    double const width = swatch ? word_width : fixed_width;
    return {row, caption, editor, width, fit, button, nullptr, nullptr, swatch};
}

// clang-format off
constexpr auto with_button = Fit::editor_and_button;

constexpr std::array table = {
    text(caption, "Otsikko", &E::txt_caption),
    number(size, "Koko", &E::txt_size, &E::scr_size),
    PanelRow{list, "Lista", &E::txt_list, word_width, with_button, &E::cmd_list},
    words(font_name, "Fontti", &E::txt_fontName, &E::cmd_fontName, &E::lst_fontName, with_button),
    words(font_size, "Pistekoko", &E::txt_fontSize, &E::cmd_fontSize, &E::lst_fontSize, with_button),
    words(bold, "Lihavoitu", &E::txt_fontBold, &E::cmd_fontBold, &E::lst_boolean, with_button),
    words(italic, "Kursivoitu", &E::txt_fontItalic, &E::cmd_fontItalic, &E::lst_boolean, with_button),
    dialog(fore_color, "Tekstin väri", &E::txt_fc, &E::cmd_fc, &E::FC),
    dialog(back_color, "Taustan väri", &E::txt_bc, &E::cmd_bc, &E::BC),
    number(left, "Vasemmalta", &E::txt_left, &E::scr_left),
    number(top, "Ylhäältä", &E::txt_top, &E::scr_top),
    number(width, "Leveys", &E::txt_width, &E::scr_width),
    number(height, "Korkeus", &E::txt_height, &E::scr_height),
    words(value, "Alkuarvo", &E::txt_value, &E::cmd_value, &E::lst_value, with_button),
    text(name, "Nimi", &E::txt_name),
    words(transparent, "Läpinäkyvä", &E::txt_transp, &E::cmd_transp, &E::lst_boolean, with_button),
    words(linkable, "Linkitettävä", &E::txt_link, &E::cmd_link, &E::lst_boolean),
    dialog(picture, "Taustakuva", &E::txt_picture, &E::cmd_picture),
    PanelRow{tab_index, "Tab-indeksi", &E::txt_tabindex, number_width},
    words(align, "Tasaus", &E::txt_align, &E::cmd_alignment, &E::lst_align),
    words(scaling, "Skaalaus", &E::txt_scale, &E::cmd_scale, &E::lst_scale),
    dialog(image_file, "Kuvatiedosto", &E::txt_imgfile, &E::cmd_imgfile),
    words(border, "Kehys", &E::txt_border, &E::cmd_border, &E::lst_border),
    words(link_mode, "Linkitys", &E::txt_linkitys, &E::cmd_linkitys, &E::lst_linkitys),
    words(link, "Linkki", &E::txt_linkki, &E::cmd_linkki, &E::lst_linkki),
};

// "Taustan väri" stands above "Tekstin väri" though its number is the higher one.
constexpr Row card_rows[] = {name, back_color, transparent, width, height, picture};
constexpr Row title_rows[] = {caption, align, font_name, font_size, bold, italic, back_color,
    fore_color, left, top, width, height, linkable};
constexpr Row text_rows[] = {size, font_name, font_size, bold, italic, back_color, fore_color,
    left, top, width, height, value, tab_index, link_mode, link};
constexpr Row check_rows[] = {caption, font_name, font_size, bold, italic, back_color, fore_color,
    left, top, width, height, value, tab_index, link_mode, link};
// The height of a drop-down follows its font: it has no row.
constexpr Row drop_down_rows[] = {list, font_name, font_size, bold, italic, back_color, fore_color,
    left, top, width, value, tab_index, link_mode, link};
constexpr Row image_rows[] = {caption, font_name, font_size, bold, italic, back_color, fore_color,
    left, top, width, height, image_file, scaling, border, tab_index, link_mode, link};
constexpr Row file_list_rows[] = {size, font_name, font_size, bold, italic, back_color, fore_color,
    left, top, width, height, tab_index, link_mode, link};

constexpr std::array kind_table = {
    PanelKind{card_prefix, "kentat_kortti.htm", card_rows},
    PanelKind{"OTS", "kentat_otsikko.htm", title_rows},
    PanelKind{"TXT", "kentat_teksti.htm", text_rows},
    PanelKind{"STX", "kentat_teksti.htm", text_rows},
    PanelKind{"CHK", "kentat_valinta.htm", check_rows},
    PanelKind{"OPT", "kentat_vaihtoehto.htm", check_rows},
    PanelKind{"CMB", "kentat_alasvetovalikko.htm", drop_down_rows},
    PanelKind{"IMG", "kentat_kuva.htm", image_rows},
    PanelKind{"LST", "kentat_lista.htm", file_list_rows},
};
// clang-format on

static_assert(std::equal(kinds.begin(), kinds.end(), kind_table.begin() + 1, kind_table.end(),
                         [](Kind const& one, PanelKind const& panel) {
                             return one.prefix == panel.prefix;
                         }),
              "the card, and then a row for each kind");

} // namespace

std::span<PanelRow const> panel_rows() {
    return table;
}

PanelRow const& panel_row(Row row) {
    return table.at(static_cast<std::size_t>(row) - 1);
}

TextBox& editor_of(Row row) {
    return (*fEditor).*panel_row(row).editor;
}

ListBox& list_of(Row row) {
    return (*fEditor).*panel_row(row).list;
}

Row row_of(int number) {
    bool const known = number >= 1 && number <= static_cast<int>(table.size());
    return known ? static_cast<Row>(number) : none;
}

PanelKind const* panel_kind(std::string_view prefix) {
    for (auto const& kind : kind_table)
        if (kind.prefix == prefix)
            return &kind;
    return nullptr;
}

bool has_row(Kind const& kind, Row row) {
    auto const rows = panel_kind(kind.prefix)->rows;
    return std::find(rows.begin(), rows.end(), row) != rows.end();
}

} // namespace kehystin
