#include "model/card.h"

namespace kehystin {

Card card;
std::vector<Field> fields(1);

Field& field(int number) {
    if (number < 0 || static_cast<std::size_t>(number) >= fields.size())
        throw RuntimeError(ErrorNumber::subscript_out_of_range);
    return fields[static_cast<std::size_t>(number)];
}

void empty_card(std::string_view name) {
    card.name = name;
    card.color = colours::light_grey;
    card.width = 250;
    card.height = 250;
    card.fields = 0;
}

} // namespace kehystin
