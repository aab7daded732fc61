// The card's identity: the register knows a template by its ID, which changes only when the card
// has really become another one.
#pragma once

#include <string>

namespace kehystin {

/// Takes the copy that CompareCards compares with.
void SaveCardBefore();

/// Sets needNewID if the card has no identity yet, or has changed in substance since the copy: in
/// the number, kinds, sizes or links of its fields, or in a title rewritten to something else.
void CompareCards();
/// Whether it would set it now; changes nothing.
bool becomes_another_card();

/// A new identity of exactly 20 characters: day, month, year, hour, minute, eight drawn at random.
std::string GetNewID();

} // namespace kehystin
