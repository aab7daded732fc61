#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace kehystin::base {

namespace {

/// Unicode values of the bytes 0x80 to 0x9F; all other bytes stand for their own value.
constexpr std::array<char16_t, 32> upper_controls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t not_a_character = 0xFFFFFFFF;

char32_t unicode_of(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? upper_controls[byte - 0x80] : byte;
}

/// The code page byte of a character, or -1 when it has none.
int byte_of(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character < 0x100))
        return static_cast<int>(character);
    for (std::size_t i = 0; i < upper_controls.size(); ++i)
        if (upper_controls[i] == character)
            return static_cast<int>(0x80 + i);
    return -1;
}

void append_utf8(std::string& out, char32_t character) {
    if (character < 0x80) {
        out += static_cast<char>(character);
    } else if (character < 0x800) {
        out += static_cast<char>(0xC0 | (character >> 6));
        out += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (character >> 12));
        out += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (character & 0x3F));
    }
}

/// Reads one character and moves `position` behind it. Broken sequences give one
/// not_a_character per byte, so that decoding always moves on.
char32_t next_character(std::string_view text, std::size_t& position) {
    auto const lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80)
        return lead;
    int const following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
    if (following == 0 || lead > 0xF4)
        return not_a_character;
    char32_t character = lead & (0x3F >> following);
    std::size_t at = position;
    for (int i = 0; i < following; ++i, ++at) {
        if (at >= text.size() || (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80)
            return not_a_character;
        character = (character << 6) | (static_cast<unsigned char>(text[at]) & 0x3F);
    }
    // Written longer than it is, a character would get past whoever looks for its bytes.
    constexpr std::array<char32_t, 4> least = {0, 0x80, 0x800, 0x10000};
    bool const is_surrogate = character >= 0xD800 && character < 0xE000;
    if (character < least[static_cast<std::size_t>(following)] || is_surrogate ||
        character > 0x10FFFF)
        return not_a_character;
    position = at;
    return character;
}

unsigned char upper_byte(unsigned char byte) {
    if ((byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7))
        return static_cast<unsigned char>(byte - 0x20);
    if (byte == 0x9A || byte == 0x9C || byte == 0x9E)
        return static_cast<unsigned char>(byte - 0x10);
    return byte == 0xFF ? 0x9F : byte;
}

bool is_ascii(std::string_view text) {
    for (char const c : text)
        if (static_cast<unsigned char>(c) >= 0x80)
            return false;
    return true;
}

/// How much of a path is not the file's own name.
std::size_t folder_length(std::string_view path) {
    if (auto const separator = path.find_last_of("\\/"); separator != std::string_view::npos)
        return separator + 1;
#ifdef _WIN32
    if (path.size() > 1 && path[1] == ':')
        return 2; // the folder that the drive is in
#endif
    return 0;
}

} // namespace

std::string to_code_page(std::string_view utf8) {
    if (is_ascii(utf8))
        return std::string(utf8);
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        int const byte = byte_of(next_character(utf8, position));
        out += byte < 0 ? '?' : static_cast<char>(byte);
    }
    return out;
}

std::string from_code_page(std::string_view bytes) {
    if (is_ascii(bytes))
        return std::string(bytes);
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    for (char const byte : bytes)
        append_utf8(out, unicode_of(static_cast<unsigned char>(byte)));
    return out;
}

std::string_view trimmed_view(std::string_view text) {
    auto const first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Trim(std::string_view text) {
    return std::string(trimmed_view(text));
}

std::string UCase(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        std::size_t const start = position;
        int const byte = byte_of(next_character(utf8, position));
        if (byte < 0)
            out += utf8.substr(start, position - start);
        else
            append_utf8(out, unicode_of(upper_byte(static_cast<unsigned char>(byte))));
    }
    return out;
}

std::size_t Len(std::string_view utf8) {
    std::size_t count = 0;
    for (std::size_t position = 0; position < utf8.size(); ++count)
        next_character(utf8, position);
    return count;
}

std::string Left(std::string_view utf8, std::size_t count) {
    std::size_t position = 0;
    while (count > 0 && position < utf8.size()) {
        next_character(utf8, position);
        --count;
    }
    return std::string(utf8.substr(0, position));
}

std::string Replace(std::string_view text, std::string_view from, std::string_view to) {
    std::string out;
    std::size_t start = 0;
    for (std::size_t at; (at = text.find(from, start)) != std::string_view::npos;) {
        out += text.substr(start, at - start);
        out += to;
        start = at + from.size();
    }
    out += text.substr(start);
    return out;
}

bool is_font_name(std::string_view name) {
    constexpr std::size_t longest = 31;
    bool const control = std::any_of(name.begin(), name.end(), [](char character) {
        auto const byte = static_cast<unsigned char>(character);
        return byte < 0x20 || byte == 0x7f;
    });
    return !name.empty() && Len(name) <= longest && !control;
}

std::string in_one_line(std::string_view text) {
    auto line = Replace(text, line_break, " ");
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return line;
}

std::string file_part(std::string_view path) {
    return std::string(path.substr(folder_length(path)));
}

std::string folder_part(std::string_view path) {
    return std::string(path.substr(0, folder_length(path)));
}

std::string with_separator(std::string folder) {
    if (folder.empty() || folder_length(folder) != folder.size())
        folder += '/';
    return folder;
}

} // namespace kehystin::base
