// A card as JSON: {"card": {...}, "fields": [{...}, ...]}, members by the names of the file's keys.
#pragma once

#include "card/card.h"

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

namespace krt {

using Json = nlohmann::ordered_json;

/// Texts without their trailing blanks and NULs, arrays from their first element, flags as -1 and
/// 0, the date as "2026-11-23". The number of fields is the length of the list.
Json card_to_json(kehystin::CardData& card);

/// JSON that is no card; names the place and says what is wrong with it.
class BadJson : public std::runtime_error {
  public:
    BadJson(std::string const& pointer, std::string const& what)
        : std::runtime_error(pointer.empty() ? what : pointer + ": " + what) {}
};

/// Parses JSON. Raises BadJson where the text is none, for a member that stands twice, and for
/// lists and objects deeper in each other than those of any card.
Json parse_json(std::string_view text);

/// The reverse of card_to_json. Raises BadJson for a wrong type, an unknown or missing member, and
/// a value that a card file cannot hold or that would not be read back from one as it is `today`.
kehystin::CardData json_to_card(Json const& json, kehystin::Date today);

} // namespace krt
