// What the open card's file held when the program last had it in hand: a save must not go over what
// somebody else has written since.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kehystin {

/// The file holds these bytes, read or written by this session.
void know_file(std::string const& path, std::string_view bytes);
/// The checksum of what is known of the file; 0 for nothing.
std::uint64_t known_sum(std::string const& path);
/// Knows it by that.
void know_sum(std::string const& path, std::uint64_t sum);
/// The session itself has left there whatever there is now.
void know_what_is_left(std::string const& path);
/// The user was asked just now, by the file dialog, whether this file may be replaced.
void may_replace(std::string const& path);
void forget_known_file();

/// False when a file of that name holds something that this session neither read nor wrote, or when
/// another session has it open, and the user would rather not replace it.
bool may_save_over(std::string const& path);

} // namespace kehystin
