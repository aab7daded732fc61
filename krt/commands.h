// The commands of krt. Each goes over its files, tells what is wrong with one on standard error and
// goes on with the next.
#pragma once

#include <string>
#include <vector>

namespace krt {

/// The exit status, the worst of all files.
enum class Status { quiet = 0, findings = 1, failed = 2 };

inline Status worse(Status one, Status other) {
    return one < other ? other : one;
}

/// "-" among them is standard input.
using Files = std::vector<std::string>;

/// How a command tells: a line for people, or JSON for programs.
enum class Form { text, json };

Status check(Files const& files, Form form);

/// Where repaired cards go.
struct RepairTarget {
    bool in_place = false;
    std::string file = {}; ///< empty for standard output
    bool always = false;   ///< also where nothing is wrong
};
Status repair(Files const& files, RepairTarget const& target);

Status links(Files const& files, Form form);

/// The differences of two cards by meaning, and whether the one has become another card.
Status diff(std::string const& first, std::string const& second, Form form);

Status to_json(Files const& files);
Status make(std::string const& source, std::string const& target);

/// A picture of a card.
struct Drawing {
    std::string file = {}; ///< its ending says of which kind
    double scale = 1;      ///< pixels of the picture to one of the card
    bool links = false;    ///< with the lines of the links
    /// Pixels of the longer side at most; 0 for as many as the scale gives.
    int size = 0;
};
inline constexpr double smallest_scale = 0.25;
inline constexpr double largest_scale = 8;
inline constexpr int smallest_size = 16;
inline constexpr int largest_size = 1024;
/// With a size it is a thumbnail for a file manager: a PNG whatever its file is called, drawn only
/// of a card without faults and within a second; where there is none nothing is written, and the
/// status is `findings`.
Status draw(std::string const& file, Drawing const& drawing);

/// Lists what the editor has kept of cards that were not saved; with a name, writes that one out.
/// Nothing that is kept goes by it.
Status rescue_cards(Files const& names, std::string const& target);

/// A page for the browser; without a target to standard output.
Status form(std::string const& file, std::string const& target);

} // namespace krt
