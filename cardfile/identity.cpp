#include "cardfile/identity.h"

#include "model/card.h"
#include "model/session.h"
#include "platform/date.h"
#include "platform/random.h"

#include <algorithm>

namespace kehystin {

namespace {

std::vector<Field> savedFields;
Card savedCard;

int count_data_fields(std::vector<Field> const& among, int count) {
    int found = 0;
    for (int i = 1; i <= count; ++i)
        found += among[static_cast<std::size_t>(i)].is_title() ? 0 : 1;
    return found;
}

/// A title that was only added to, or cut, is still the same title.
bool is_renamed(Field const& before, Field const& now) {
    auto const old_caption = UCase(before.caption.trimmed());
    auto const new_caption = UCase(now.caption.trimmed());
    return !contains(old_caption, new_caption) && !contains(new_caption, old_caption);
}

bool differs_in_substance(Field const& before, Field const& now) {
    if (before.style != now.style || before.size != now.size)
        return true;
    return now.is_title() ? is_renamed(before, now) : before.linkki != now.linkki;
}

bool is_another_card() {
    auto const id = card.ID.trim();
    if (Len(id) < limits::id_length || id.front() == '\0')
        return true;
    int const saved_count = savedCard.fields;
    if (count_data_fields(savedFields, saved_count) != count_data_fields(fields, card.fields))
        return true;
    for (int i = 1; i <= card.fields; ++i) {
        auto const& now = field(i);
        if (i > saved_count ? !now.is_title()
                            : differs_in_substance(savedFields[static_cast<std::size_t>(i)], now))
            return true;
    }
    return false;
}

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
    savedCard = card;
    savedFields.assign(fields.begin(), fields.begin() + int{card.fields} + 1);
}

void CompareCards() {
    if (is_another_card())
        session.needNewID = true;
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
