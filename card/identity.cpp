#include "card/identity.h"

namespace kehystin {

namespace {

int count_data_fields(CardData const& among) {
    int found = 0;
    for (int i = 1; i <= among.card.fields; ++i)
        found += among.field(i).is_title() ? 0 : 1;
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

} // namespace

bool is_another_card(CardData const& before, CardData& now) {
    auto const id = now.card.ID.trim();
    if (Len(id) < limits::id_length || id.front() == '\0')
        return true;
    if (count_data_fields(before) != count_data_fields(now))
        return true;
    for (int i = 1; i <= now.card.fields; ++i)
        if (i > before.card.fields ? !now.field(i).is_title()
                                   : differs_in_substance(before.field(i), now.field(i)))
            return true;
    return false;
}

} // namespace kehystin
