// The column order: in which order the register shows the card's data is the order of its records.
#pragma once

#include "card/card.h"

#include <span>

namespace kehystin {

/// Orders the records by titles in their new order: each title is followed by the data fields of
/// its list, and what belongs to none of them comes behind in its old order. Roles, links by hand,
/// and the lists of these titles with the links of the fields in them name the same fields as
/// before by their new numbers. What geometry had linked otherwise keeps its old numbers: link_card
/// is to follow.
///
/// Without titles nothing moves. Numbers that name no title, no data field, or a field that has its
/// new place already are passed over: every record is there once, whatever the lists say. Raises
/// subscript_out_of_range, with the card as it was, where there are less fields than it says.
void order_columns(CardData& card, std::span<int const> titles);

} // namespace kehystin
