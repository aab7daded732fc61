// The column order: in which order the register shows the card's data is the order of its records.
#pragma once

#include "card/card.h"

#include <span>

namespace kehystin {

/// Orders the records by titles in their new order: each title is followed by the data fields of
/// its list, and what belongs to none of them comes behind in its old order. Lists, links and roles
/// name the same fields as before by their new numbers.
///
/// Without titles nothing moves. Numbers that name no title, no data field, or a field that has its
/// new place already are passed over: every record is there once, whatever the lists say.
void order_columns(CardData& card, std::span<int const> titles);

} // namespace kehystin
