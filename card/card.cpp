#include "card/card.h"

#include <algorithm>

namespace kehystin {

std::size_t CardData::count() const {
    return static_cast<std::size_t>(std::max(0, int{card.fields}));
}

Field& CardData::field(int number) {
    if (number < 0 || static_cast<std::size_t>(number) >= fields.size())
        throw RuntimeError(ErrorNumber::subscript_out_of_range);
    return fields[static_cast<std::size_t>(number)];
}

Field const& CardData::field(int number) const {
    return const_cast<CardData*>(this)->field(number);
}

bool is_same_card(CardData const& one, CardData const& other) {
    auto const end = one.count() + 1;
    // Behind the last field stands what was deleted.
    return one.card == other.card && end <= one.fields.size() && end <= other.fields.size() &&
           std::equal(one.fields.begin() + 1, one.fields.begin() + std::ptrdiff_t(end),
                      other.fields.begin() + 1);
}

} // namespace kehystin
