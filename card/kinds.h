// The eight kinds of field.
#pragma once

#include "base/colour.h"

#include <array>
#include <string_view>

namespace kehystin {

/// The codes that `style` holds.
enum class Style { OTS = 0, TXT = 1, CHK = 2, OPT = 3, CMB = 4, IMG = 5, LST = 6, STX = 7 };

struct Kind {
    Style style;
    std::string_view prefix;
    std::string_view word; ///< behind the number in the field selector
    std::string_view default_text;
    int size;
    int width;  ///< pixels
    int height; ///< pixels
    base::Colour backColor;
};

/// In the order in which field bar and default looks list them. The scrolling text field stands
/// beside the text field though its code is the last.
inline constexpr std::array<Kind, 8> kinds = {{
    {Style::OTS, "OTS", ")  Otsikko", "Uusi", 1, 120, 16, base::RGB(192, 192, 192)},
    {Style::TXT, "TXT", ")  Tekstikenttä", "", 50, 180, 21, base::RGB(255, 255, 255)},
    {Style::STX, "STX", ")  V-Tekstikenttä", "", 500, 360, 64, base::RGB(255, 255, 255)},
    {Style::CHK, "CHK", ")  Valintakenttä", "Uusi", 1, 120, 16, base::RGB(192, 192, 192)},
    {Style::OPT, "OPT", ")  Vaihtoehtokenttä", "Uusi", 1, 120, 16, base::RGB(192, 192, 192)},
    {Style::CMB, "CMB", ")  Alasvetovalikko", "", 1, 180, 21, base::RGB(255, 255, 255)},
    {Style::IMG, "IMG", ")  Kuva", "[Ei kuvaa]", 1, 60, 60, base::RGB(255, 255, 255)},
    {Style::LST, "LST", ")  Tiedostolista", "", 250, 180, 63, base::RGB(255, 255, 255)},
}};

/// The kind of a style code; null outside 0 to 7.
constexpr Kind const* kind_of(int style) {
    for (auto const& kind : kinds)
        if (static_cast<int>(kind.style) == style)
            return &kind;
    return nullptr;
}

/// The kind of a prefix; null when it is none.
constexpr Kind const* kind_of(std::string_view prefix) {
    for (auto const& kind : kinds)
        if (kind.prefix == prefix)
            return &kind;
    return nullptr;
}

} // namespace kehystin
