// Writing a card: from records to the bytes of a file.
#pragma once

#include "card/card.h"

#include <string>

namespace kehystin {

/// The whole file, in code page bytes.
///
/// The records change with it: the ID and the texts of fields are trimmed, commas of `list` stay
/// replaced until the card is read again, and a `value` with a comma becomes the beginning of that
/// list. A comma or a line break in any other text is written as it stands, and ends it for the
/// reader. Raises subscript_out_of_range where there are less fields than the card says.
std::string write_card(CardData& data);

} // namespace kehystin
