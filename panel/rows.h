// The rows of the property panel as controls: laying out, hiding, and what the keyboard brings up.
#pragma once

#include "forms/panel_rows.h"

#include <span>
#include <string_view>

namespace kehystin {

/// Lays out and shows the rows of the card ("CRD") or of one kind of field, and makes its help page
/// the session's. A prefix that is none changes nothing. For whatever is selected on the surface:
/// selection_rows.
void set_pro(std::string_view kind);

/// Lays out rows from top to bottom: captions, editors and swatches show, the strips behind them
/// are painted, the rows' area takes its height. Starts paintTimer when the rows begin or cease to
/// need scrolling.
void lay_out_rows(std::span<Row const> rows);

/// Lets the rows' scroll bar reach the last row of those that stand.
void fit_scroll_range();

/// Hides all rows with the area that they stand on.
void hide_pro();
/// Hides what only the row with the keyboard shows: drop buttons, scroll bars, pop-up lists.
void hide_cmd();
/// Hides the pop-up lists and the list editor alone.
void hide_pop_ups();

/// Behind "Linkki": white where the link is made by hand, grey and disabled where it is not.
void show_link_mode(bool manual);

/// A click on a row's caption gives its editor the keyboard.
void labProp_Click(int index);

/// A press beside an editor, where its button or scroll bar would stand, gives it the keyboard too;
/// in twips from the corner of the rows' area.
void proPic_MouseDown(int index, MouseArguments const& mouse);

/// An editor got the keyboard: its row shows button or scroll bar, its text is selected, its list
/// of words stands ready on the text, and the row is remembered.
void row_GotFocus(Row row);

/// Puts a pop-up of `height` twips, as wide as it is, under the editor of a row, or over it where
/// there is no room below.
void place_pop_up(Control& pop_up, Row row, double height);

/// True for the editor of a row and for what stands beside it.
bool belongs_to_row(Control const* control, Row row);

/// After rows were hidden and laid out again: the keyboard goes back to who had it before, if it
/// can and nobody else has it.
void give_keyboard_back(Control* before);

/// Paints a pale strip behind each caption and a white one behind each value, a gap between them.
void paint_strips();

} // namespace kehystin
