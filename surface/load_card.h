// Builds the surface from the records.
#pragma once

#include "platform/drawing.h"

namespace kehystin {

/// Tears the surface down, if there is one, and builds it anew: the window, one visual object and
/// one hidden frame for each field, the selector's lines, the links. Nothing is selected after it.
/// `standing` is taken for the card's background, if it is the picture of the record's file,
/// instead of reading the file again. False when it failed, which it has then told the user itself;
/// there is no surface then.
bool load_card(platform::Picture const& standing = {});

/// Takes the surface away with its link lines.
void unload_card_form();

/// The line of a field in the selector: "Kenttä (3)  Otsikko".
void add_to_selector(int number);

} // namespace kehystin
