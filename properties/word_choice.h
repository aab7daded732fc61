// The words of the panel: what they mean, and how a list, a key or a double click chooses them.
#pragma once

#include "forms/panel_rows.h"

namespace kehystin {

/// A letter jumps to a word of the row and is taken; other keys pass.
void word_KeyPress(Row row, char32_t& key);
/// Steps to the next word, and from the last to the first.
void word_DblClick(Row row);
/// A word that is none is replaced by the model's.
void word_LostFocus(Row row);

/// The drop button of a row: its list opens and takes the keyboard. An empty one does not open.
void drop_button_Click(Row row);
/// An item of a row's list was chosen: it goes into the row, which gets the keyboard back.
void word_list_Click(Row row);
/// The shared list of yes and no, for the row that its Tag names.
void lst_boolean_Click();
/// Escape closes a list; the keyboard goes back to its row.
void word_list_KeyPress(Row row, char32_t& key);
/// A list stays open only while it has the keyboard.
void word_list_LostFocus(Row row);

/// The row that the shared list of yes and no serves.
Row row_of_boolean_list();

} // namespace kehystin
