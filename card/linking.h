// Linking: pairs every data field with a title from the geometry of the card alone.
#pragma once

#include "base/errors.h"
#include "card/card.h"

#include <optional>
#include <vector>

namespace kehystin {

/// A line between two points, in pixels of the card.
struct LineEnds {
    double x1, y1, x2, y2;
};

/// A title and a data field that belongs to it, by number.
struct Link {
    int title;
    int data;
    /// The line that shows it; nothing where it leaves the numbers of a card.
    std::optional<LineEnds> ends;
};

struct Linking {
    std::vector<Link> links; ///< by ascending data field
    /// What ended the run before its time: a link by hand to a field that is not there, or a sum
    /// that leaves 16 bits.
    std::optional<RuntimeError> failure;
};

/// How far right of a title's right edge a field may start, in pixels.
inline constexpr int usual_reach = 120;

/// Links all fields anew: writes `group` of every field, `list` of every title and `linkki` of
/// every data field that finds its title by geometry, and trims `value` of all titles and `caption`
/// of those that get a field. A failure ends the run where it is; what it had done until then
/// stays.
///
/// Raises overflow for a reach beyond 16 bits and subscript_out_of_range where there are less
/// fields than the card says, both before any link is touched.
Linking link_card(CardData& data, int reach = usual_reach);

} // namespace kehystin
