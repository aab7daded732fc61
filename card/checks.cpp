#include "card/checks.h"

#include <set>

namespace kehystin {

namespace {

constexpr int narrowest_label = 25; // pixels

using Numbers = std::vector<int>;

bool has_no_title(Field& one) {
    return !one.is_title() && one.group.trim().empty();
}

/// A title that has data fields.
bool is_linked_title(Field& one) {
    return one.is_title() && !one.list.trim().empty();
}

bool is_meant_to_be_linked(Field& one) {
    return one.is_title() && one.value.trim() != no_link;
}

bool is_unlinked_title(Field& one) {
    return is_meant_to_be_linked(one) && !is_linked_title(one);
}

bool shows_no_label(Field& one) {
    return one.holds(Value::mark) && (one.caption.trim().empty() || one.width < narrowest_label);
}

Numbers fields_that(CardData& card, bool (*test)(Field&)) {
    Numbers found;
    for (int i = 1; i <= card.card.fields; ++i)
        if (test(card.field(i)))
            found.push_back(i);
    return found;
}

/// Only the first of a pair must not be marked to have no links.
Numbers same_titles(CardData& card) {
    auto const caption_of = [&](int number) { return UCase(card.field(number).caption.trim()); };
    std::set<int> found;
    for (int i = 1; i < card.card.fields; ++i) {
        if (!is_meant_to_be_linked(card.field(i)) || !is_linked_title(card.field(i)))
            continue;
        auto const caption = caption_of(i);
        for (int j = i + 1; j <= card.card.fields; ++j)
            if (is_linked_title(card.field(j)) && caption_of(j) == caption)
                found.insert({i, j});
    }
    return {found.begin(), found.end()};
}

} // namespace

std::vector<int> offenders(Check check, CardData& card) {
    switch (check) {
    case Check::no_title:
        return fields_that(card, has_no_title);
    case Check::unlinked_title:
        return fields_that(card, is_unlinked_title);
    case Check::columns:
        return fields_that(card, is_linked_title);
    case Check::no_label:
        return fields_that(card, shows_no_label);
    case Check::same_title:
        return same_titles(card);
    }
    return {};
}

} // namespace kehystin
