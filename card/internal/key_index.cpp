#include "card/internal/key_index.h"

#include "card/format.h"

#include <algorithm>

namespace kehystin {

namespace {

/// The key that begins at the front of `text`, or nothing. No key of the format begins with
/// another one, so there is at most one.
std::string_view field_key_at(std::string_view text) {
    constexpr std::string_view opening = "field(";
    auto const close = text.find_first_not_of("0123456789", opening.size());
    constexpr std::size_t longest_number = 3;
    if (close == std::string_view::npos || close - opening.size() > longest_number ||
        !text.substr(close).starts_with(")."))
        return {};
    auto const name = text.substr(close + 2);
    for (auto const& member : field_members())
        if (name.starts_with(member.name))
            return text.substr(0, close + 2 + member.name.size());
    return {};
}

std::string_view card_key_at(std::string_view text) {
    auto const name = text.substr(std::string_view("card.").size());
    for (auto const& member : card_members()) {
        if (!name.starts_with(member.name))
            continue;
        auto const length = text.size() - name.size() + member.name.size();
        if (member.last == 0)
            return text.substr(0, length);
        auto const close = text.find_first_not_of("(0123456789", length);
        if (close == std::string_view::npos || text[close] != ')' || close - length > 3)
            return {};
        return text.substr(0, close + 1);
    }
    return {};
}

} // namespace

KeyIndex::KeyIndex(std::string_view bytes) {
    constexpr std::size_t shortest_line = 20; // bytes, about
    constexpr std::size_t most_keys = 7000;   // of the largest card
    places_.reserve(std::min(bytes.size() / shortest_line, most_keys));
    base::Items items(bytes);
    while (!items.at_end()) {
        auto const position = items.position();
        note_keys(items.next(), position);
    }
}

void KeyIndex::note_keys(std::string_view item, std::size_t position) {
    // Both kinds of key have a "d" before their first mark: "card." and "field(".
    for (std::size_t at = item.find_first_of(".("); at != std::string_view::npos;
         at = item.find_first_of(".(", at + 1)) {
        auto const head = item.substr(0, at + 1);
        std::string_view key;
        if (head.ends_with("field("))
            key = field_key_at(item.substr(at - 5));
        else if (head.ends_with("card."))
            key = card_key_at(item.substr(at - 4));
        if (key.empty())
            continue;
        auto const [known, is_new] = places_.try_emplace(key, Places{position, position, {}});
        if (!is_new && known->second.last != position)
            known->second.add(position);
    }
}

void KeyIndex::Places::add(std::size_t place) {
    auto gap = place - last;
    for (; gap >= 0x80; gap >>= 7)
        gaps.push_back(static_cast<char>(0x80 | (gap & 0x7F)));
    gaps.push_back(static_cast<char>(gap));
    last = place;
}

std::size_t KeyIndex::Places::at_or_behind(std::size_t position) const {
    if (position > last)
        return npos;
    auto place = first;
    for (std::size_t i = 0; place < position;) {
        int shift = 0;
        for (; gaps[i] & 0x80; ++i, shift += 7)
            place += static_cast<std::size_t>(gaps[i] & 0x7F) << shift;
        place += static_cast<std::size_t>(gaps[i++]) << shift;
    }
    return place;
}

std::size_t KeyIndex::find(std::string_view key, std::size_t position) const {
    auto const found = places_.find(key);
    return found == places_.end() ? npos : found->second.at_or_behind(position);
}

} // namespace kehystin
