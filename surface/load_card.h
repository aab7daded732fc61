// Builds the surface from the records.
#pragma once

namespace kehystin {

/// Tears the surface down, if there is one, and builds it anew: the window, one visual object and
/// one hidden frame for each field, the selector's lines, the links. Nothing is selected after it.
/// False when it failed, which it has then told the user itself; there is no surface then.
bool load_card();

/// Takes the surface away with its link lines.
void unload_card_form();

/// The line of a field in the selector: "Kenttä (3)  Otsikko".
void add_to_selector(int number);

} // namespace kehystin
