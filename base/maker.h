// Who makes the program: the lines that boxes and files name.
#pragma once

#include <string_view>

namespace kehystin::base::maker {

inline constexpr std::string_view name = "Kehystin";
inline constexpr std::string_view support_address = "tuki@kehystin.example";
inline constexpr std::string_view web_address = "www.kehystin.example";

} // namespace kehystin::base::maker
