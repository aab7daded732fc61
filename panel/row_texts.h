// What the rows of the panel say about a field.
#pragma once

#include "forms/panel_rows.h"
#include "model/card.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kehystin {

/// The text of a row that every kind of field can have, or of a row of the field's own kind. Trims
/// the texts of the record that it shows, but for the caption of another field. Rows of colours
/// have no text.
std::string row_text(Row row, Field& one);

/// Fills a row from a field: text, scroll bar, swatch, and the lists that depend on the field. To
/// be called inside a PanelUpdate.
void fill_row(Row row, Field& one);

/// Sets the scroll bar of a row that has one, likewise.
void fill_row_scroll_bar(Row row, Field const& one);

/// Shows the text of "Taustakuva"; its Tag keeps it against typing. Inside a PanelUpdate, likewise.
void show_picture_text(std::string text);

/// Fills the rows of the card, likewise.
void fill_card_rows();

/// The rows of a drop-down: each ends with a bar, and what stands behind the last bar is none.
std::vector<std::string> items_of(Field const& one);

/// What "Kuvatiedosto" says of a field without a picture file.
inline constexpr std::string_view no_image_file = "Ei tiedostoa";

/// The name of the picture on a button of the list editor.
std::string list_button_picture(Button const& button);

/// "Kyllä" and "Yes" are yes, "Ei" and "No" no, in any case and with blanks around; anything else
/// is neither.
std::optional<bool> boolean_word(std::string_view text);
/// The place of a word in the list of a row, in any case and with blanks around.
std::optional<int> word_number(Row row, std::string_view text);

/// "Kyllä" or "Ei".
std::string_view yes_no(bool yes);

} // namespace kehystin
