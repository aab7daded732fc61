// Writing a card: from records to the bytes of a file.
#pragma once

#include "card/card.h"

#include <string>

namespace kehystin {

/// The whole file, in code page bytes.
///
/// The records change with it: texts are trimmed, and the commas of `list` and `value` stay
/// replaced until the card is read again. Raises subscript_out_of_range where there are less fields
/// than the card says.
std::string write_card(CardData& data);

} // namespace kehystin
