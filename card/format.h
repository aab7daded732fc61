// The card file's format as one table of members, in the order of the file. Writer, reader and
// tools walk over it.
//
// A line of the file is a key, "=", and a value. The keys of a card member are "card." and its
// name, with "(i)" behind it for an element of an array; those of a field are "field(i)." and the
// name.
#pragma once

#include "card/card.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kehystin {

/// How a text goes into the file.
enum class Written {
    padded,         ///< all characters with their padding
    trimmed,        ///< trimmed, and stored back so
    commas_guarded, ///< trimmed, commas replaced: the reader ends an item at a comma
    value,          ///< the guarded text of `list` when it holds a comma
};

/// What the reader does with a value before it is stored. Most are a range, see Repair.
enum class Judged {
    text,         ///< cut to the member's length, with a row in the report
    number,       ///< repaired outside the range
    guarded,      ///< the same; beyond 16 bits it counts as a number out of every range
    guarded_flag, ///< guarded, and neither 0 nor -1 is repaired
    any_flag,     ///< -1 for anything but 0
    flag,         ///< repaired outside the range, then -1 for anything but 0
    colour,       ///< any 32-bit number
    picture,      ///< must exist; "+" stands for the card's folder
    id,           ///< exactly 20 characters, or empty
    lowest,       ///< asiakasMin
    highest,      ///< asiakasMax, above asiakasMin
    date,         ///< not after today
    font,         ///< must be one that the sample label takes
    twips,        ///< the screen's twips per pixel replace a number outside the range
};

/// The range of a number, what replaces one outside it, and the row that tells of it. Without a
/// label the repair is silent.
struct Repair {
    double lowest = 0;
    double highest = 0;
    /// Added to `highest`; null when the range does not depend on the card.
    double (*highest_of_card)(Card const&) = nullptr;
    int repaired = 0;
    std::string_view label = {};
    std::string_view tail = {};
    /// The label of a number beyond 16 bits, where that is told on its own.
    std::string_view beyond_label = {};
};

struct CardMember {
    std::string_view name;
    int first; ///< first and last element of an array, both 0 for a plain member
    int last;
    MemberRef (*ref)(Card&, int element);
    Judged judged;
    Repair repair = {};
    Written written = Written::trimmed;
    std::string_view section = {}; ///< the line that stands before the member
    /// The value of a key that came later than the first files. Twips and dates are the machine's.
    std::optional<std::string_view> when_missing = {};
};

struct FieldMember {
    std::string_view name;
    MemberRef (*ref)(Field&);
    Judged judged;
    Repair repair = {};
    Written written = Written::trimmed;
    std::optional<std::string_view> when_missing = {};
    static constexpr int first = 0;
    static constexpr int last = 0;
};

std::span<CardMember const> card_members();
std::span<FieldMember const> field_members();

/// "field(3)."
std::string field_key_head(int number);
/// "card.width" or "card.fldSpeci(7)".
std::string card_key(CardMember const& member, int element);
/// "field(3).left"
std::string field_key(FieldMember const& member, int number);

/// The byte that stands for a comma in the file.
inline constexpr char comma_stand_in = '\xA4';

} // namespace kehystin
