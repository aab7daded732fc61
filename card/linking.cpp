#include "card/linking.h"

#include "card/internal/title_search.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kehystin {

namespace {

/// A title at the left of its field gives a line between their facing edges; any other gives a
/// line straight down from the title's lower corner. The single +1 of the first case is intended.
LineEnds ends_of_line(Field const& title, Field const& data) {
    if (title.right() < data.left)
        return {title.right() + 1.0, title.top + title.height / 2 + 1, data.left - 1.0,
                data.top + data.height / 2};
    double const x = title.left <= data.left ? title.right() + 1.0 : title.left - 1.0;
    return {x, title.bottom() + 1.0, x, data.top - 1.0};
}

void record_link(CardData& card, int title, int data) {
    auto& caption = card.field(title).caption;
    caption.ref().trim();
    card.field(data).group = caption;
    // A manual link may name another data field, whose list means something else.
    if (!card.field(title).is_title())
        return;
    auto& list = card.field(title).list;
    constexpr std::size_t longest_number = 8;
    std::array<char, decltype(Field::list)::length + longest_number> text;
    auto const before = trimmed_view(list.bytes());
    auto* const end = std::copy(before.begin(), before.end(), text.begin());
    auto* const bar = std::to_chars(end, text.end() - 1, data).ptr;
    *bar = '|';
    list.assign_bytes({text.data(), static_cast<std::size_t>(bar + 1 - text.data())});
}

/// The title of a data field, or 0 when it has none.
int find_title(CardData const& card, TitleSearch const& search, Field& data) {
    if (data.linkitys) {
        if (data.linkki < 1 || data.linkki > card.card.fields)
            throw RuntimeError(ErrorNumber::subscript_out_of_range);
        return data.linkki;
    }
    int const title = search.nearest_to(data);
    if (title != 0)
        data.linkki = title;
    return title;
}

void clear_links(CardData& card) {
    for (int i = 1; i <= card.card.fields; ++i) {
        card.field(i).group = "";
        if (card.field(i).is_title())
            card.field(i).list = "";
    }
}

void link_fields(CardData& card, TitleSearch const& search, std::vector<Link>& links) {
    for (int j = 1; j <= card.card.fields; ++j) {
        if (card.field(j).is_title())
            continue;
        int const title = find_title(card, search, card.field(j));
        if (title == 0)
            continue;
        // The link counts also where its ends cannot be computed.
        auto& link = links.emplace_back(Link{title, j, std::nullopt});
        link.ends = ends_of_line(card.field(title), card.field(j));
        record_link(card, title, j);
    }
}

void drop_last_separators(CardData& card) {
    for (int i = 1; i <= card.card.fields; ++i) {
        if (!card.field(i).is_title())
            continue;
        auto& list = card.field(i).list;
        auto text = trimmed_view(list.bytes());
        if (text.ends_with('|'))
            text.remove_suffix(1);
        list.assign_bytes(text);
    }
}

} // namespace

Linking link_card(CardData& data, int reach) {
    Linking linking;
    // All memory first: without it the links stay as they are.
    TitleSearch const search(data, reach);
    linking.links.reserve(data.count());
    try {
        clear_links(data);
        link_fields(data, search, linking.links);
        drop_last_separators(data);
    } catch (RuntimeError const& error) {
        linking.failure = error;
    }
    return linking;
}

} // namespace kehystin
