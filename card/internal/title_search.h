// The geometry of linking: which title a data field belongs to.
#pragma once

#include "card/card.h"

#include <vector>

namespace kehystin {

/// Looks through the titles of the card as they stood when the search was made.
class TitleSearch {
  public:
    /// `reach`: how far right of a title's right edge a field may start, in pixels. Trims the
    /// titles' `value` in the records, which must outlive the search.
    TitleSearch(CardData& card, Integer reach);

    /// The eligible title of least distance, of several the one of lowest number; 0 without one.
    /// Raises overflow where a sum leaves 16 bits.
    int nearest_to(Field const& data) const;

  private:
    bool is_eligible(Field const& title, Field const& data) const;

    CardData const& card_;
    Integer reach_;
    std::vector<int> titles_; ///< numbers of the linkable titles, ascending
};

/// How far a title is from a data field, in pixels; negative where they overlap in height.
Integer link_distance(Field const& title, Field const& data);

} // namespace kehystin
