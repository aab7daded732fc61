// What the panel shows for the selection on the surface.
#pragma once

#include "forms/panel_rows.h"
#include "model/card.h"

#include <string>
#include <string_view>
#include <vector>

namespace kehystin {

/// To be called when the set of selected fields may have changed. One field goes through the
/// selector; several show the rows that their kinds have in common, with the values on which they
/// agree. Switches the commands.
void set_pro();

/// True when the selected fields agree in a row; also for less than two.
bool all_same(Row row);
/// The same for the row of a key, such as "LEFT" or "FONTNAME"; also true for an unknown key.
bool all_same(std::string_view key);

/// Fills the rows that say something else of the selected fields than they would of the records as
/// they were `before`, by number.
void refill_changed_rows(std::vector<Field> const& before);

/// Sets a row's scroll bar to the number on which the selected fields agree. False, and nothing
/// done, when they do not.
bool follow_in_scroll_bar(Row row);

/// What a row shows of the selected fields: the text on which those agree that have the row, or
/// nothing.
std::string common_text(Row row);

} // namespace kehystin
