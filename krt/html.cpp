#include "krt/html.h"

#include "base/text.h"

#include <array>
#include <cstdio>

namespace krt {

namespace {

std::string hexadecimal(unsigned number, int digits) {
    std::array<char, 9> word{};
    std::snprintf(word.data(), word.size(), "%0*x", digits, number);
    return word.data();
}

bool is_plain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ' ';
}

} // namespace

std::string html_text(std::string_view utf8) {
    std::string text;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        auto const c = static_cast<unsigned char>(utf8[i]);
        // U+0080 to U+009F: what the code page leaves open.
        bool const second =
            c == 0xc2 && i + 1 < utf8.size() && static_cast<unsigned char>(utf8[i + 1]) < 0xa0;
        if (second)
            ++i;
        if (second || (c < ' ' && c != '\n') || c == 0x7f)
            text += ' ';
        else if (c == '&')
            text += "&amp;";
        else if (c == '<')
            text += "&lt;";
        else if (c == '>')
            text += "&gt;";
        else if (c == '"')
            text += "&quot;";
        else if (c == '\'')
            text += "&#39;";
        else
            text += static_cast<char>(c);
    }
    return text;
}

std::string css_text(std::string_view utf8) {
    std::string text = "\"";
    // The code page has one character a byte, which saves taking UTF-8 apart: whatever is not plain
    // stands as the number of its character.
    for (char const c : base::to_code_page(utf8)) {
        if (is_plain(c))
            text += c;
        else if (static_cast<unsigned char>(c) < 0x80 || static_cast<unsigned char>(c) >= 0xa0)
            text += "\\" + hexadecimal(static_cast<unsigned char>(c), 2) + " ";
    }
    return text + '"';
}

std::string css_colour(base::Colour colour) {
    auto const bits = static_cast<std::uint32_t>(colour);
    if ((bits & 0x80000000U) == 0)
        return "#" + hexadecimal((bits & 0xffU) << 16 | (bits & 0xff00U) | (bits >> 16 & 0xffU), 6);
    switch (bits & 0xffU) {
    case 5: // window
        return "Canvas";
    case 6:  // window frame
    case 7:  // menu text
    case 8:  // window text
    case 9:  // caption text
    case 18: // button text
    case 23: // tooltip text
        return "CanvasText";
    case 13:
        return "Highlight";
    case 14:
        return "HighlightText";
    case 17:
        return "GrayText";
    default:
        return "ButtonFace";
    }
}

} // namespace krt
