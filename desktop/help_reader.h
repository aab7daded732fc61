// A help file, read by a process of its own, for chmlib believes what a file says of itself: where
// a byte is damaged it divides by zero, writes past its buffers or never comes back. Here that
// harms nobody. It writes for each file in the help file a heading, its name and its bytes.
#pragma once

#include <cstdint>

namespace desktop::help_reader {

/// The program, beside the editor.
inline constexpr char program[] = "kehystin-help-reader";
/// Where there is none, the editor itself reads when this is its first word.
inline constexpr char option[] = "--read-help";

/// Writes everything in a help file to standard output, and leaves the process with little to live
/// on. Its exit status.
int run(char const* path);

struct Heading {
    std::uint32_t nameLength;
    std::uint32_t length; ///< in bytes, or `unreadable` with none of them
};

inline constexpr std::uint32_t unreadable = 0xffffffff;

/// More than any page or picture has; a damaged file may claim any length.
inline constexpr std::uint32_t largestObject = 16 * 1024 * 1024;

} // namespace desktop::help_reader
