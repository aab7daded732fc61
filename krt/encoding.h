// What a page needs to carry bytes in itself, and to vouch for them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace krt {

/// Appends the bytes to a text in base64.
void append_base64(std::string& to, std::string_view bytes);

std::array<std::uint8_t, 32> sha256(std::string_view bytes);

} // namespace krt
