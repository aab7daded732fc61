#include "model/card.h"

#include "model/session.h"

namespace kehystin {

CardData open_card;
CardData kept_card;
Card& card = open_card.card;
std::vector<Field>& fields = open_card.fields;

bool is_unsaved() {
    return session.cardModified || !is_same_card(open_card, kept_card);
}

void empty_card(std::string_view name) {
    card.name = name;
    card.color = colours::light_grey;
    card.width = 250;
    card.height = 250;
    card.fields = 0;
}

} // namespace kehystin
