// What to do about a background picture that is not where the card says.
#pragma once

#include <string>

namespace kehystin {

/// Lets the user look for the picture or drop the reference; `picture` of the card holds what came
/// of it. False when the user gave up opening the card. Nothing to do for an empty path.
bool find_missing_picture(std::string missing);

} // namespace kehystin
