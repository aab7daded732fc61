// The identity of a card: the register knows a template by its ID.
#pragma once

#include "card/card.h"

namespace kehystin {

/// True if the card has no identity yet, or has changed in substance since `before`: in the number,
/// kinds, sizes or links of its fields, or in a title rewritten to something else. Trims its ID.
/// Raises subscript_out_of_range where a card has less fields than it says.
bool is_another_card(CardData const& before, CardData& now);

} // namespace kehystin
