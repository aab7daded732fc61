#include "card/internal/title_search.h"

#include <cmath>
#include <optional>

namespace kehystin {

TitleSearch::TitleSearch(CardData& card, Integer reach) : card_(card), reach_(reach) {
    for (int i = 1; i <= card.card.fields; ++i)
        if (card.field(i).is_title() && card.field(i).value.trim() != no_link)
            titles_.push_back(i);
}

bool TitleSearch::is_eligible(Field const& title, Field const& data) const {
    return data.left - title.right() <= reach_ && data.right() >= title.left &&
           title.top <= data.bottom();
}

Integer link_distance(Field const& title, Field const& data) {
    if (title.right() >= data.left)
        return data.top - title.bottom();
    if (title.bottom() >= data.top)
        return data.left - title.right();
    double const across = data.left - title.right();
    double const down = data.top - title.bottom();
    return Integer(std::sqrt(across * across + down * down));
}

int TitleSearch::nearest_to(Field const& data) const {
    int nearest = 0;
    std::optional<Integer> least; // measured only once there is a second title to compare with
    for (int const number : titles_) {
        auto const& title = card_.fields[static_cast<std::size_t>(number)];
        if (!is_eligible(title, data))
            continue;
        if (nearest == 0) {
            nearest = number;
            continue;
        }
        if (!least)
            least = link_distance(card_.field(nearest), data);
        auto const distance = link_distance(title, data);
        if (distance < *least) {
            nearest = number;
            least = distance;
        }
    }
    return nearest;
}

} // namespace kehystin
