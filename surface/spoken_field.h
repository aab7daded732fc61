// The fields of the card in words, for those who do not see it.
#pragma once

#include "platform/form.h"

#include <optional>

namespace kehystin {

/// The field that a control of the surface shows, by its kind and its caption; a field without one
/// is called by its title, or else by its number as in the selector. Nothing for frames, lines and
/// whatever else shows no field. Raises nothing.
std::optional<platform::Spoken> describe_field(platform::Control const& control);

} // namespace kehystin
