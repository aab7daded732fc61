#include "dialogs/wizard_card.h"

#include "platform/base.h"
#include "platform/host.h"

#include <algorithm>
#include <string_view>

namespace kehystin {

namespace {

constexpr int first_left = 10;
constexpr int first_top = 15;
constexpr int most_in_one_column = 10;
constexpr int most_in_two_columns = 22;

/// Sizes of the texts, in pixels.
struct Measures {
    Integer title_width;
    Integer title_height;
    Integer text_width;
    Integer text_height;
};

struct Place {
    Integer left;
    Integer top;
};

Integer width_of(Font const& font, std::string_view text) {
    return Integer(host().measure_text(font, text).width * twips_per_pixel /
                   host().metrics().TwipsPerPixelX);
}

Integer height_of(Font const& font, std::string_view text) {
    return Integer(host().measure_text(font, text).height * twips_per_pixel /
                   host().metrics().TwipsPerPixelY);
}

/// As many digits as a text field has room for: the more columns, the fewer.
std::string_view width_sample(int count, TitlePlace place) {
    constexpr std::string_view digits = "123456789012345678901234567890";
    bool const left = place == TitlePlace::left;
    if (count <= most_in_one_column)
        return digits;
    if (count <= most_in_two_columns)
        return digits.substr(0, left ? 20 : 25);
    return digits.substr(0, left ? 10 : 20);
}

Measures measure(WizardChoices const& choices) {
    auto const count = static_cast<int>(choices.titles.size());
    auto const& title_font = choices.title_look.font;
    auto const& text_font = choices.text_look.font;
    return {GetOtsWidth(choices.titles, title_font), height_of(title_font, "Áy"),
            width_of(text_font, width_sample(count, choices.place)), height_of(text_font, "Wy")};
}

bool ends_column(int row, int count) {
    constexpr double almost_one = 0.99; // what is left over goes to the columns before
    double const third = count / 3.0;
    if (count <= most_in_one_column)
        return false;
    if (count <= most_in_two_columns)
        return row == static_cast<int>(count / 2.0 + almost_one);
    return row == static_cast<int>(third + almost_one) ||
           row == static_cast<int>(third + third + almost_one);
}

/// A line break that came in by pasting would break the line of the card file.
std::string caption_of(std::string title) {
    for (auto& character : title)
        if (character == '\r' || character == '\n')
            character = ' ';
    return Trim(title);
}

Field empty_field(SampleLook const& look) {
    Field one;
    one.caption = "";
    one.group = "";
    one.list = "";
    one.value = "";
    one.fontName = look.font.name;
    one.fontSize = Integer(look.font.size);
    one.fontBold = Flag(look.font.bold).number();
    one.fontItalic = Flag(look.font.italic).number();
    one.backColor = look.backColor;
    one.foreColor = look.foreColor;
    return one;
}

Field title_field(WizardChoices const& choices, Measures const& sizes, int row, Place at) {
    auto const count = static_cast<int>(choices.titles.size());
    bool const above = choices.place == TitlePlace::above;
    bool const right = choices.align == TitleAlign::right;
    // At the right end of the text field below there has to be room for the whole title.
    bool const as_wide_as_text = above && right && sizes.title_width < sizes.text_width - 10;
    auto one = empty_field(choices.title_look);
    one.style = code_of(Style::OTS);
    one.caption = caption_of(choices.titles[static_cast<std::size_t>(row - 1)]);
    one.list = std::to_string(count + row);
    one.size = 1;
    one.left = above ? at.left + 10 : at.left;
    one.top = above ? at.top : at.top + 2;
    one.width = as_wide_as_text ? sizes.text_width - 10 : sizes.title_width + 10;
    one.height = sizes.title_height + 2;
    one.tabIndex = count + row;
    one.align = right ? 1 : 0;
    return one;
}

Field text_field(WizardChoices const& choices, Measures const& sizes, int row, Place at) {
    bool const above = choices.place == TitlePlace::above;
    auto one = empty_field(choices.text_look);
    one.style = code_of(Style::TXT);
    one.group = caption_of(choices.titles[static_cast<std::size_t>(row - 1)]);
    one.size = 50;
    one.left = above ? at.left + 5 : at.left + sizes.title_width + 20;
    one.top = above ? at.top + sizes.title_height + 4 : at.top;
    one.width = sizes.text_width;
    one.height = sizes.text_height + 2;
    one.tabIndex = row;
    one.linkki = row;
    return one;
}

/// From one row to the next below it; no row stands over the one before it.
Integer row_step(TitlePlace place, Measures const& sizes) {
    if (place == TitlePlace::above)
        return sizes.title_height + sizes.text_height + 18;
    return std::max(sizes.title_height, sizes.text_height) + 10;
}

Integer column_step(TitlePlace place, Measures const& sizes) {
    if (place == TitlePlace::above)
        return std::max(sizes.title_width, sizes.text_width) + 20;
    return sizes.text_width + sizes.title_width + 40;
}

/// Above its field a title may be wider than the card: it is the fields that make the card's width.
Integer card_width(TitlePlace place, Measures const& sizes, Integer last_column) {
    if (place == TitlePlace::above)
        return last_column + sizes.text_width + 30;
    return last_column + sizes.title_width + sizes.text_width + 45;
}

} // namespace

Integer GetOtsWidth(std::span<std::string const> titles, Font const& font) {
    Integer widest;
    for (auto const& title : titles)
        widest = std::max(widest, width_of(font, title));
    return widest;
}

int longest_title(WizardChoices const& choices) {
    auto const& titles = choices.titles;
    auto const& font = choices.title_look.font;
    auto const widest = std::max_element(titles.begin(), titles.end(),
                                         [&](std::string const& a, std::string const& b) {
                                             return width_of(font, a) < width_of(font, b);
                                         });
    return static_cast<int>(widest - titles.begin()) + 1;
}

WizardCard build_wizard_card(WizardChoices const& choices) {
    auto const count = static_cast<int>(choices.titles.size());
    auto const sizes = measure(choices);
    WizardCard built{card, std::vector<Field>(static_cast<std::size_t>(2 * count + 1))};
    Place at{first_left, first_top};
    Integer lowest;
    for (int row = 1; row <= count; ++row) {
        auto const title = static_cast<std::size_t>(row);
        built.fields[title] = title_field(choices, sizes, row, at);
        built.fields[title + choices.titles.size()] = text_field(choices, sizes, row, at);
        auto const below = at.top + row_step(choices.place, sizes);
        lowest = std::max(lowest, below);
        if (ends_column(row, count))
            at = {at.left + column_step(choices.place, sizes), first_top};
        else
            at.top = below;
    }
    auto& record = built.card;
    record.name = " Velhokortti";
    record.fields = 2 * count;
    record.color = RGB(222, 222, 222);
    record.transp = -1;
    record.picture = "";
    record.STPP = Integer(host().metrics().TwipsPerPixelX);
    record.height = lowest + 40;
    record.width = card_width(choices.place, sizes, at.left);
    return built;
}

} // namespace kehystin
