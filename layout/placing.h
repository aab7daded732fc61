// Moving a field by command: what the commands of this folder share.
#pragma once

#include "platform/base.h"

#include <utility>
#include <vector>

namespace kehystin {

using platform::Integer;

/// New places of fields on one axis, by number. They are computed first and carried out together,
/// so that a place that leaves 16 bits changes nothing.
using Places = std::vector<std::pair<int, Integer>>;

/// Write `left` or `top` of each record and move its frame and its object. File lists stay where
/// they are on the surface until it is next built.
void place_lefts(Places const& places);
void place_tops(Places const& places);

/// What ends every command here: links, and the card has changed.
void finish_layout();

/// The number of a title's first linked data field, 0 for none.
int first_linked(int title);

} // namespace kehystin
