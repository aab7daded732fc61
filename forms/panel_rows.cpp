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

constexpr PanelRow text(Row row, std::string_view caption, TextBox E::*editor,
                        RowValue const& value = {}) {
    return {.row = row,
            .caption = caption,
            .editor = editor,
            .width = text_width,
            .fit = Fit::editor,
            .value = value};
}

constexpr PanelRow number(Row row, std::string_view caption, TextBox E::*editor,
                          ScrollBar E::*scroll, RowValue const& value) {
    return {.row = row,
            .caption = caption,
            .editor = editor,
            .width = number_width,
            .fit = Fit::editor,
            .scroll = scroll,
            .value = value};
}

constexpr PanelRow words(Row row, std::string_view caption, TextBox E::*editor, Button E::*button,
                         ListBox E::*list, Fit fit, RowValue const& value) {
    return {.row = row,
            .caption = caption,
            .editor = editor,
            .width = fit == Fit::button ? fixed_width : word_width,
            .fit = fit,
            .button = button,
            .list = list,
            .value = value};
}

constexpr PanelRow dialog(Row row, std::string_view caption, TextBox E::*editor, Button E::*button,
                          RowValue const& value = {}, PictureBox E::*swatch = nullptr) {
    return {.row = row,
            .caption = caption,
            .editor = editor,
            .width = swatch ? word_width : fixed_width,
            .fit = swatch ? Fit::editor_and_button : Fit::button,
            .button = button,
            .swatch = swatch,
            .value = value};
}

template <auto Member>
std::string text_of(Field const& one) {
    return (one.*Member).trimmed();
}

/// The word of a member that holds its place.
template <auto Member>
int word_at(Field const& one) {
    return one.*Member;
}

int word_of_yes(bool yes) {
    return yes ? 0 : 1;
}

template <auto Member>
int word_if(Field const& one) {
    return word_of_yes(one.*Member != 0);
}

constexpr Range across_card(double lowest) {
    return {lowest, 0, &Card::width};
}

constexpr Range down_card(double lowest) {
    return {lowest, 0, &Card::height};
}

constexpr Range size_left_standing = {1, 18000};
constexpr Range side_left_standing = {1, limits::largest_field};

// clang-format off
constexpr auto with_button = Fit::editor_and_button;
constexpr auto button_only = Fit::button;

// Changing the width alone makes no new links.
constexpr std::array table = {
    text(caption, "Otsikko", &E::txt_caption,
         {.key = "CAPTION", .text = text_of<&Field::caption>}),
    number(size, "Koko", &E::txt_size, &E::scr_size,
           {.number = &Field::size, .typed = {1, limits::largest_size}, .left_standing = size_left_standing}),
    PanelRow{.row = list, .caption = "Lista", .editor = &E::txt_list, .width = word_width, .fit = with_button,
             .button = &E::cmd_list},
    words(font_name, "Fontti", &E::txt_fontName, &E::cmd_fontName, &E::lst_fontName, with_button,
          {.key = "FONTNAME", .text = text_of<&Field::fontName>}),
    words(font_size, "Pistekoko", &E::txt_fontSize, &E::cmd_fontSize, &E::lst_fontSize, with_button,
          {.key = "FONTSIZE", .number = &Field::fontSize}),
    words(bold, "Lihavoitu", &E::txt_fontBold, &E::cmd_fontBold, &E::lst_boolean, with_button,
          {.key = "FONTBOLD", .word = word_if<&Field::fontBold>, .words = boolean_words, .tag = "BOLD"}),
    words(italic, "Kursivoitu", &E::txt_fontItalic, &E::cmd_fontItalic, &E::lst_boolean, with_button,
          {.key = "FONTITALIC", .word = word_if<&Field::fontItalic>, .words = boolean_words, .tag = "ITALIC"}),
    dialog(fore_color, "Tekstin väri", &E::txt_fc, &E::cmd_fc,
           {.key = "FORECOLOR", .colour = &Field::foreColor}, &E::FC),
    dialog(back_color, "Taustan väri", &E::txt_bc, &E::cmd_bc,
           {.key = "BACKCOLOR", .colour = &Field::backColor}, &E::BC),
    number(left, "Vasemmalta", &E::txt_left, &E::scr_left,
           {.key = "LEFT", .number = &Field::left, .typed = across_card(0), .left_standing = across_card(1),
            .links = Links::renew}),
    number(top, "Ylhäältä", &E::txt_top, &E::scr_top,
           {.key = "TOP", .number = &Field::top, .typed = down_card(0), .left_standing = down_card(1),
            .links = Links::renew}),
    number(width, "Leveys", &E::txt_width, &E::scr_width,
           {.key = "WIDTH", .number = &Field::width, .typed = across_card(1), .left_standing = side_left_standing}),
    number(height, "Korkeus", &E::txt_height, &E::scr_height,
           {.key = "HEIGHT", .number = &Field::height, .typed = down_card(1), .left_standing = side_left_standing,
            .links = Links::renew}),
    words(value, "Alkuarvo", &E::txt_value, &E::cmd_value, &E::lst_value, with_button, {}),
    text(name, "Nimi", &E::txt_name),
    words(transparent, "Läpinäkyvä", &E::txt_transp, &E::cmd_transp, &E::lst_boolean, with_button,
          {.words = boolean_words, .tag = "TRANSP"}),
    words(linkable, "Linkitettävä", &E::txt_link, &E::cmd_link, &E::lst_boolean, button_only,
          {.word = [](Field const& one) { return word_of_yes(!one.is_nolink()); }, .words = boolean_words,
           .tag = "LINK"}),
    dialog(picture, "Taustakuva", &E::txt_picture, &E::cmd_picture),
    PanelRow{.row = tab_index, .caption = "Tab-indeksi", .editor = &E::txt_tabindex, .width = number_width,
             .value = {.number = &Field::tabIndex, .typed = {0, limits::largest_tab_index}}},
    words(align, "Tasaus", &E::txt_align, &E::cmd_alignment, &E::lst_align, button_only,
          {.key = "ALIGN", .word = word_at<&Field::align>, .words = align_words}),
    words(scaling, "Skaalaus", &E::txt_scale, &E::cmd_scale, &E::lst_scale, button_only,
          {.key = "SCALING", .word = word_at<&Field::scaling>, .words = scaling_words}),
    dialog(image_file, "Kuvatiedosto", &E::txt_imgfile, &E::cmd_imgfile,
           {.key = "IMGFILE", .text = text_of<&Field::list>}),
    words(border, "Kehys", &E::txt_border, &E::cmd_border, &E::lst_border, button_only,
          {.key = "BORDER", .word = word_at<&Field::border>, .words = border_words}),
    words(link_mode, "Linkitys", &E::txt_linkitys, &E::cmd_linkitys, &E::lst_linkitys, button_only,
          {.key = "LINKITYS", .word = [](Field const& one) { return one.linkitys ? 1 : 0; },
           .words = link_mode_words}),
    words(link, "Linkki", &E::txt_linkki, &E::cmd_linkki, &E::lst_linkki, button_only,
          {.key = "LINKKI", .number = &Field::linkki}),
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

static_assert(
    [] {
        for (std::size_t i = 0; i < table.size(); ++i)
            if (static_cast<std::size_t>(table[i].row) != i + 1)
                return false;
        return true;
    }(),
    "each row in the place of its number");
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
