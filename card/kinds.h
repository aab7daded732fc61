// The eight kinds of field, a row each: all that tells them apart in a card and in what shows it,
// but for the objects of a window.
#pragma once

#include "base/colour.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace kehystin {

/// The codes that `style` holds.
enum class Style { OTS = 0, TXT = 1, CHK = 2, OPT = 3, CMB = 4, IMG = 5, LST = 6, STX = 7 };

/// What a field looks like. A label shows its caption, and the card behind it where the card is
/// transparent; a box stands sunken.
enum class Look { label, box, image, list };

/// What `value` of a field says.
enum class Value {
    none,
    linkable, ///< of a title: whether it may receive links
    text,
    mark,   ///< whether it is on
    choice, ///< the place of an item of its list, -1 for none
};

struct Kind {
    Style style;
    std::string_view prefix;
    std::string_view name; ///< as the field bar tells it, in lower case
    std::string_view word; ///< as the field selector lists it
    Look look;
    Value value;

    // What a new field starts with; fonts and colours follow in model/default_looks.
    std::string_view default_text = "";
    std::string_view first_value = "";
    int size = 1; ///< characters
    int width;    ///< pixels
    int height;   ///< pixels

    bool height_of_font = false;  ///< the height of its object follows its font, not the record
    bool has_mouse = true;        ///< its object passes mouse events on
    bool pressed_through = false; ///< the surface, too, looks for it under a press
    bool takes_keyboard = false;  ///< its object would take the keyboard from the panel

    constexpr bool has_caption() const { return look == Look::label || look == Look::image; }
    constexpr base::Colour backColor() const {
        return look == Look::label ? base::RGB(192, 192, 192) : base::RGB(255, 255, 255);
    }
};

/// In the order in which field bar and default looks list them. The scrolling text field stands
/// beside the text field though its code is the last.
// clang-format off
inline constexpr std::array<Kind, 8> kinds = {{
    {.style = Style::OTS, .prefix = "OTS", .name = "otsikko", .word = "Otsikko",
     .look = Look::label, .value = Value::linkable,
     .default_text = "Uusi", .width = 120, .height = 16},
    {.style = Style::TXT, .prefix = "TXT", .name = "tekstikenttä", .word = "Tekstikenttä",
     .look = Look::box, .value = Value::text,
     .size = 50, .width = 180, .height = 21, .takes_keyboard = true},
    {.style = Style::STX, .prefix = "STX", .name = "vieritettävä tekstikenttä", .word = "V-Tekstikenttä",
     .look = Look::box, .value = Value::text,
     .size = 500, .width = 360, .height = 64, .takes_keyboard = true},
    {.style = Style::CHK, .prefix = "CHK", .name = "valintakenttä", .word = "Valintakenttä",
     .look = Look::label, .value = Value::mark,
     .default_text = "Uusi", .first_value = "0", .width = 120, .height = 16, .pressed_through = true},
    {.style = Style::OPT, .prefix = "OPT", .name = "vaihtoehtokenttä", .word = "Vaihtoehtokenttä",
     .look = Look::label, .value = Value::mark,
     .default_text = "Uusi", .first_value = "0", .width = 120, .height = 16, .pressed_through = true},
    {.style = Style::CMB, .prefix = "CMB", .name = "alasvetovalikko", .word = "Alasvetovalikko",
     .look = Look::box, .value = Value::choice,
     .first_value = "-1", .width = 180, .height = 21, .height_of_font = true, .has_mouse = false,
     .pressed_through = true},
    {.style = Style::IMG, .prefix = "IMG", .name = "kuvakenttä", .word = "Kuva",
     .look = Look::image, .value = Value::none,
     .default_text = "[Ei kuvaa]", .width = 60, .height = 60},
    {.style = Style::LST, .prefix = "LST", .name = "tiedostolista", .word = "Tiedostolista",
     .look = Look::list, .value = Value::none,
     .size = 250, .width = 180, .height = 63, .pressed_through = true, .takes_keyboard = true},
}};
// clang-format on

/// The place of a style in `kinds`.
constexpr std::size_t kind_index(Style style) {
    std::size_t index = 0;
    while (kinds.at(index).style != style)
        ++index;
    return index;
}

constexpr Kind const& kind_of(Style style) {
    return kinds[kind_index(style)];
}

constexpr int code_of(Style style) {
    return static_cast<int>(style);
}

/// The kind of a style code; null when it is none.
constexpr Kind const* kind_of(int code) {
    for (auto const& kind : kinds)
        if (code_of(kind.style) == code)
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

inline constexpr int highest_style = static_cast<int>(kinds.size()) - 1;

static_assert(
    [] {
        for (int code = 0; code <= highest_style; ++code) {
            int rows = 0;
            for (auto const& kind : kinds)
                rows += code_of(kind.style) == code ? 1 : 0;
            if (rows != 1)
                return false;
        }
        return true;
    }(),
    "a row for each style");

} // namespace kehystin
