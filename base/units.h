// Units of length.
#pragma once

namespace kehystin::base {

/// Twips per pixel in mouse positions and in all sizes that the program computes, whatever the
/// screen's own ratio is.
inline constexpr double twips_per_pixel = 15;

} // namespace kehystin::base
