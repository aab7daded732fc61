// Colours: 32 bits, red in the lowest byte, then green, then blue.
#pragma once

#include <cstdint>

namespace kehystin::base {

using Colour = std::int32_t;

constexpr Colour RGB(int red, int green, int blue) {
    return red | (green << 8) | (blue << 16);
}

namespace colours {
inline constexpr Colour black = RGB(0, 0, 0);
inline constexpr Colour white = RGB(255, 255, 255);
inline constexpr Colour red = RGB(255, 0, 0);
inline constexpr Colour blue = RGB(0, 0, 255);
inline constexpr Colour grey = RGB(128, 128, 128);
inline constexpr Colour light_grey = RGB(192, 192, 192);
} // namespace colours

/// A colour with the top bit set names one of the system's own by number; the host resolves it.
constexpr Colour system_colour(int number) {
    return static_cast<Colour>(0x80000000U | static_cast<std::uint32_t>(number));
}

} // namespace kehystin::base
