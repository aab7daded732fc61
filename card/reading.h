// Reading a card: from the bytes of a file to records, repaired where they cannot stand.
#pragma once

#include "card/card.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kehystin {

/// Something that a file has otherwise than the card that is made of it.
struct Finding {
    enum class What {
        not_a_card,      ///< the file is none; nothing has been read
        missing_key,     ///< a key that every file has; it counts as empty
        old_key,         ///< a key that came later than the file; it has its default
        repaired,        ///< a value that cannot stand
        cut,             ///< a text that is too long
        missing_picture, ///< the background picture is not where the card says
    };
    What what;
    std::string key;   ///< "field(3).left"
    std::string found; ///< as the file has it, its first 500 characters at most
    std::string kept;  ///< as the card has it now
    std::string row;   ///< of the report to the user; empty where the repair is not told
                       ///< or the report is long enough
};

/// What reading needs to know of the world around the file.
struct Surroundings {
    /// After it no card has been edited; it also stands for a date that cannot be read. Without it
    /// every date stands, and what is none becomes day 0.
    std::optional<Date> today = {};
    /// Of the screen, for a card that says nothing of it or nonsense; 1 to 30.
    double twips_per_pixel = 15;
    /// What a leading "+" of the background picture stands for, with its closing separator.
    std::string folder = {};
    /// Whether a picture is there; without it every picture is.
    std::function<bool(std::string const& path)> has_file = {};
    /// The font name that is kept for a name of the file; without it the name as it stands. May
    /// raise.
    std::function<std::string(std::string const& name)> kept_font = {};
    /// Told whenever the search for a key starts anew at the top of the file; false gives up.
    std::function<bool()> from_top = {};
};

/// A report is cut behind the row that makes it longer: more bytes than this nobody reads.
inline constexpr std::size_t longest_report = 100'000;

struct Reading {
    enum class End { read, not_a_card, given_up };
    End end = End::read;
    /// The card; half filled unless the reading came to its end.
    CardData data;
    std::vector<Finding> findings;
    /// The path of a background picture that was not found, expanded; empty without one. The card
    /// then has no picture.
    std::string missing_picture = {};

    /// One row for each repair that is told, each ending in a line break. Cut where it becomes
    /// longer than anybody reads.
    std::string report() const;
};

/// Reads a card from the bytes of a file. What a file does not hold of the card's own record
/// (`reserved`) stays as in `start`; the fields are all new. `go_on` is asked for each missing key,
/// without it the reading goes on; false gives up. Raises overflow for a colour or a real number
/// that does not fit its type, and whatever one of the functions raises.
Reading read_card(std::string_view bytes, CardData start, Surroundings const& around,
                  std::function<bool(Finding const&)> const& go_on = {});

} // namespace kehystin
