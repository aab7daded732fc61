// The rows of whole numbers.
#pragma once

#include "forms/panel_rows.h"

namespace kehystin {

/// "Koko", "Vasemmalta", "Ylhäältä", "Leveys", "Korkeus": a number in range goes to all selected
/// fields at each key; another leaves them alone. Width and height also edit the card.
void number_Change(Row row);
/// A number that cannot stand is replaced by the field's own. The limits are not those of typing.
void number_LostFocus(Row row);
/// The row's scroll bar was moved: its negative goes into the row.
void number_scr_Change(Row row);

/// Whether a user's arrow does anything: not while the selected fields differ in the row, for there
/// is no number to count on from. The arrows count on from what the fields have now.
bool number_can_scroll(Row row);

/// "Tab-indeksi": moves the field's object in the tab order, which renumbers the others.
void txt_tabindex_Change();

} // namespace kehystin
