// The property panel as one table: the rows with their controls, with what they show of a field and
// what they take, and which rows stand for what. Layout, filling and editing read it.
#pragma once

#include "forms/editor_form.h"
#include "model/card.h"

#include <span>
#include <string_view>

namespace kehystin {

/// The rows by number; the number is also the index of the caption's label.
enum class Row {
    none = 0,
    caption = 1,
    size = 2,
    list = 3,
    font_name = 4,
    font_size = 5,
    bold = 6,
    italic = 7,
    fore_color = 8,
    back_color = 9,
    left = 10,
    top = 11,
    width = 12,
    height = 13,
    value = 14,
    name = 15,
    transparent = 16,
    linkable = 17,
    picture = 18,
    tab_index = 19,
    align = 20,
    scaling = 21,
    image_file = 22,
    border = 23,
    link_mode = 24,
    link = 25,
};

/// What gives way when the rows' scroll bar takes room at their right end.
enum class Fit { nothing, editor, button, editor_and_button };

/// A word that a row can say, and the letters that jump to it: Finnish and English initials alike.
struct Word {
    std::string_view text;
    std::string_view letters;
};
using Words = std::span<Word const>;

inline constexpr Word boolean_words[] = {{"Kyllä", "KkYy"}, {"Ei", "EeNn"}};
inline constexpr Word align_words[] = {
    {"Vasemmalle", "LlVv"}, {"Oikealle", "OoRr"}, {"Keskelle", "CcKk"}};
inline constexpr Word scaling_words[] = {
    {"Ei skaalausta", "Ee"}, {"Venytetty", "Vv"}, {"Kehys kuvaan", "Kk"}, {"Sovitettu", "Ss"}};
inline constexpr Word border_words[] = {{"Ei kehystä", "Ee"}, {"Näytä kehys", "Nn"}};
inline constexpr Word link_mode_words[] = {{"Automaattinen", ""}, {"Manuaalinen", ""}};
/// Of "Alkuarvo" where it speaks of check and option fields.
inline constexpr Word mark_words[] = {{"Ei valittu", "Ee"}, {"Valittu", "Vv"}};

/// The numbers that a row takes.
struct Range {
    double lowest = 0;
    double highest = 0;
    Integer Card::*side = nullptr; ///< the side of the open card that ends the range instead

    bool holds(double number) const {
        return number >= lowest && number <= (side ? double(card.*side) : highest);
    }
};

/// Whether a row's change can move links.
enum class Links { keep, renew };

/// What a row shows of a field, how it is compared over several, and what can be typed.
struct RowValue {
    std::string_view key = {}; ///< by which all_same knows it; rows without compare their texts
    Integer Field::*number = nullptr;
    Colour Field::*colour = nullptr;
    std::string (*text)(Field const&) = nullptr; ///< to compare; shown by panel/row_texts
    int (*word)(Field const&) = nullptr;         ///< the place of its word in `words`
    Words words = {};
    std::string_view tag = {}; ///< of the rows that share the list of yes and no
    /// What can be typed and what can be left standing differ: a place of 0 is taken while typing,
    /// and a size above 18000 is taken but shown again.
    Range typed = {};
    Range left_standing = {};
    Links links = Links::keep;
};

/// A row: its editor, and what else it has. Button or scroll bar show only while the row has the
/// keyboard.
struct PanelRow {
    Row row;
    std::string_view caption;
    TextBox EditorForm::*editor;
    double width; ///< of the editor without the rows' scroll bar, in twips
    Fit fit = Fit::nothing;
    Button EditorForm::*button = nullptr;
    ScrollBar EditorForm::*scroll = nullptr;
    ListBox EditorForm::*list = nullptr; ///< words to choose from
    PictureBox EditorForm::*swatch = nullptr;
    RowValue value = {};
};

/// All rows, in ascending number.
std::span<PanelRow const> panel_rows();
/// A row of the table. `row` is not Row::none.
PanelRow const& panel_row(Row row);
TextBox& editor_of(Row row);
/// The list of a row that has one.
ListBox& list_of(Row row);
/// The row of a number, Row::none outside 1 to 25.
Row row_of(int number);

/// What the panel shows for the card ("CRD") or for a field of one kind.
struct PanelKind {
    std::string_view prefix;
    std::string_view help_page;
    std::span<Row const> rows; ///< top to bottom
};

/// Null for a prefix that is none.
PanelKind const* panel_kind(std::string_view prefix);
/// Whether a field of the kind shows the row.
bool has_row(Kind const& kind, Row row);

inline constexpr std::string_view card_prefix = "CRD";

/// The distance between rows, and the height of one, in twips.
inline constexpr double row_step = 285;
inline constexpr double row_height = 255;
/// Where captions end, and where values begin and end, in twips.
inline constexpr double caption_right = 1200;
inline constexpr double value_left = 1230;
inline constexpr double value_right = 2790;
/// Where scroll bar and button of a row stand without the rows' scroll bar, in twips.
inline constexpr double row_scroll_left = 2610;
inline constexpr double row_button_left = 2520;

} // namespace kehystin
