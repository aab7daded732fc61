// What to do about a background picture that is not where the card says.
#pragma once

#include <optional>
#include <string>

namespace kehystin {

/// Lets the user look for the picture or drop the reference: the path that came of it, empty for
/// none. Nothing when the user gave up opening the card. An empty path is none to look for.
std::optional<std::string> find_missing_picture(std::string missing);

} // namespace kehystin
