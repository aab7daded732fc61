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
/// A save of these bytes into the file has failed: what it has left there is known, and not what
/// somebody else has put there since.
void know_what_is_left(std::string const& path, std::string_view bytes);
/// The file dialog has asked just now whether this file may be replaced, as it stands at this
/// moment; where there is none there was nothing to ask.
void may_replace(std::string const& path);
/// A later save is another question.
void forget_agreement();
void forget_known_file();

/// False when a file of that name holds something that this session neither read nor wrote, or when
/// another session has it open, and the user would rather not replace it.
bool may_save_over(std::string const& path);

} // namespace kehystin
