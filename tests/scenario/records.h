// Records: the names that stand for members of the shared records, and what they have now.
#pragma once

#include "platform/property.h"
#include "tests/scenario/path.h"

#include <optional>

namespace scenario {

/// The value of a member of the card, a field, the session, a default look or the settings; a last
/// part "raw" keeps the padding of a fixed text. Nothing when the path begins with another name;
/// raises StepError for a member that does not exist.
std::optional<platform::Value> value_of_record(NamePath const& path);

/// True for the field of a number that the card has, "field(3)" alone.
bool is_field_of_card(NamePath const& path);

} // namespace scenario
