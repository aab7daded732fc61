#include "card/card.h"

namespace kehystin {

Field& CardData::field(int number) {
    if (number < 0 || static_cast<std::size_t>(number) >= fields.size())
        throw RuntimeError(ErrorNumber::subscript_out_of_range);
    return fields[static_cast<std::size_t>(number)];
}

Field const& CardData::field(int number) const {
    return const_cast<CardData*>(this)->field(number);
}

} // namespace kehystin
