// What the rows of the panel say about a field.
#pragma once

#include "forms/panel_rows.h"
#include "model/card.h"

#include <string>
#include <string_view>

namespace kehystin {

/// The text of a row that every kind of field can have, or of a row of the field's own kind. Trims
/// the texts of the record that it shows. Rows of colours have no text.
std::string row_text(Row row, Field& one);

/// Fills a row from a field: text, scroll bar, swatch, and the lists that depend on the field. To
/// be called inside a PanelUpdate.
void fill_row(Row row, Field& one);

/// Fills the rows of the card, likewise.
void fill_card_rows();

/// "Kyllä" or "Ei".
std::string_view yes_no(bool yes);

} // namespace kehystin
