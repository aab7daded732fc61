// The rows of the property panel as controls: laying out, hiding, and what the keyboard brings up.
#pragma once

#include "forms/panel_rows.h"

#include <span>
#include <string_view>

namespace kehystin {

/// Lays out and shows the rows of the card ("CRD") or of one kind of field, and makes its help page
/// the session's. A prefix that is none changes nothing.
void set_pro(std::string_view kind);

/// Lays out rows from top to bottom: captions, editors and swatches show, the strips behind them
/// are painted, the rows' area takes its height. Starts paintTimer when the rows begin or cease to
/// need scrolling.
void lay_out_rows(std::span<Row const> rows);

/// Hides all rows with the area that they stand on.
void hide_pro();
/// Hides what only the row with the keyboard shows: drop buttons, scroll bars, pop-up lists.
void hide_cmd();

/// Behind "Linkki": white where the link is made by hand, grey and disabled where it is not. Goes
/// by the text in "Linkitys".
void show_link_mode();

/// A click on a row's caption gives its editor the keyboard.
void labProp_Click(int index);

/// An editor got the keyboard: its row shows button or scroll bar, its text is selected, and the
/// row is remembered.
void row_GotFocus(Row row);

} // namespace kehystin
