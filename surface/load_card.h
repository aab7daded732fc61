// Builds the surface from the records.
#pragma once

#include "platform/drawing.h"

#include <string>

namespace kehystin {

/// What is known of the card's background picture before its file is read.
struct Background {
    /// Taken, if it is the picture of the record's file, instead of reading the file again.
    platform::Picture standing = {};
    /// The path of a picture that cannot be shown and is left out; the record keeps it.
    std::string left_out = {};
};

/// Tears the surface down, if there is one, and builds it anew: the window, one visual object and
/// one hidden frame for each field, the selector's lines, the links. Nothing is selected after it.
/// False when it failed, which it has then told the user itself; there is no surface then. If it
/// was the file of the background picture that failed, `picture_fault` says why.
bool load_card(Background const& background = {}, std::string* picture_fault = nullptr);

/// Takes the surface away with its link lines.
void unload_card_form();

/// The line of a field in the selector: "Kenttä (3)  Otsikko".
void add_to_selector(int number);

} // namespace kehystin
