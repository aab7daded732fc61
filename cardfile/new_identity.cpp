#include "cardfile/new_identity.h"

#include "card/identity.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/clock.h"
#include "platform/random.h"

#include <algorithm>

namespace kehystin {

namespace {

/// The card as it was opened.
CardData savedCard;

std::string digits(int number, std::size_t count) {
    auto text = std::to_string(number);
    return std::string(count - std::min(count, text.size()), '0') + text;
}

char random_character() {
    for (;;) {
        auto const code = static_cast<char>(round_to_even(Rnd() * 76 + 47));
        bool const is_digit = code >= '0' && code <= '9';
        bool const is_letter = (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
        if (is_digit || is_letter)
            return code;
    }
}

} // namespace

void SaveCardBefore() {
    savedCard = open_card;
}

void CompareCards() {
    if (is_another_card(savedCard, open_card))
        session.needNewID = true;
}

bool becomes_another_card() {
    auto now = open_card;
    return session.needNewID || is_another_card(savedCard, now);
}

std::string GetNewID() {
    Randomize();
    auto const now = from_date(Now());
    auto id = digits(now.day, 2) + digits(now.month, 2) + digits(now.year, 4) +
              digits(now.hour, 2) + digits(now.minute, 2);
    for (int i = 0; i < 8; ++i)
        id += random_character();
    return id;
}

} // namespace kehystin
