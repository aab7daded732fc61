// What kehystin-help-reader writes: for each file in a help file a heading, its name and its bytes.
#pragma once

#include <cstdint>

namespace desktop::help_reader {

inline constexpr char program[] = "kehystin-help-reader";

struct Heading {
    std::uint32_t nameLength;
    std::uint32_t length; ///< in bytes, or `unreadable` with none of them
};

inline constexpr std::uint32_t unreadable = 0xffffffff;

/// More than any page or picture has; a damaged file may claim any length.
inline constexpr std::uint32_t largestObject = 16 * 1024 * 1024;

} // namespace desktop::help_reader
