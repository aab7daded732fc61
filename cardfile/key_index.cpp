#include "cardfile/key_index.h"

#include "cardfile/format.h"

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

KeyIndex::KeyIndex(platform::InputFile& file) {
    auto const before = file.position();
    file.seek(0);
    while (!file.at_end()) {
        auto const position = file.position();
        note_keys(file.next_item(), position);
    }
    file.seek(before);
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
        auto found = places_.find(key);
        if (found == places_.end())
            found = places_.emplace(std::string(key), std::vector<std::uint32_t>()).first;
        auto& places = found->second;
        if (places.empty() || places.back() != position)
            places.push_back(static_cast<std::uint32_t>(position));
    }
}

std::size_t KeyIndex::find(std::string_view key, std::size_t position) const {
    auto const found = places_.find(key);
    if (found == places_.end())
        return npos;
    auto const& places = found->second;
    auto const place = std::lower_bound(places.begin(), places.end(), position);
    return place == places.end() ? npos : *place;
}

} // namespace kehystin
