// Text: UTF-8 in memory, one byte a character in records and files.
//
// Records and files count characters of the 8-bit code page (Windows-1252). All 256 byte values
// survive a round trip through UTF-8: the five that the code page leaves open stand for the control
// characters of the same number.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kehystin::base {

/// Carriage return and line feed: the line break of messages and files.
inline constexpr std::string_view line_break = "\r\n";

/// One byte per character; a character outside the code page, or broken UTF-8, becomes '?'.
std::string to_code_page(std::string_view utf8);
/// The reverse of to_code_page; total and lossless.
std::string from_code_page(std::string_view bytes);

/// Without leading and trailing blanks. Only blanks go: tabs, line ends and NULs stay.
std::string Trim(std::string_view text);
std::string_view trimmed_view(std::string_view text);

/// Upper case over the whole code page, å, ä and ö with it. Other characters stay as they are.
std::string UCase(std::string_view utf8);

/// Number of characters (not bytes) of a UTF-8 text.
std::size_t Len(std::string_view utf8);
/// The first `count` characters of a UTF-8 text.
std::string Left(std::string_view utf8, std::size_t count);

/// Replaces every occurrence of `from`.
std::string Replace(std::string_view text, std::string_view from, std::string_view to);

/// True for what can be the name of a font: false for an empty name, one of more than 31
/// characters, and one with control characters.
bool is_font_name(std::string_view name);

/// Each line break (CR, LF or both together) becomes one blank.
std::string in_one_line(std::string_view text);

inline bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

/// What stands behind the last '\' or '/' of a path: the file's own name. On Windows the colon of a
/// drive parts too.
std::string file_part(std::string_view path);
/// The path up to there, what parts included; empty when there is nothing that parts.
std::string folder_part(std::string_view path);
/// The folder with a closing separator, which is added only if it is missing.
std::string with_separator(std::string folder);

} // namespace kehystin::base
