// A card for rules that need nothing but a card.
#pragma once

#include "card/card.h"
#include "card/kinds.h"

#include <gtest/gtest.h>

#include <string_view>

namespace kehystin {

/// Puts a field at the end of a card.
inline Field& add_field(CardData& data, Style style, int left, int top, int width, int height,
                        std::string_view caption = "") {
    data.card.fields += 1;
    data.fields.resize(static_cast<std::size_t>(int{data.card.fields}) + 1);
    auto& one = data.field(data.card.fields);
    one = Field{};
    one.style = code_of(style);
    one.caption = caption;
    for (auto* const text : {&one.group, &one.caption})
        text->trim();
    one.list = "";
    one.value = "";
    one.left = left;
    one.top = top;
    one.width = width;
    one.height = height;
    one.fontName = "MS Sans Serif";
    one.fontSize = 8;
    one.size = 1;
    return one;
}

class CardInHand : public testing::Test {
  protected:
    Field& add_field(Style style, int left, int top, int width, int height,
                     std::string_view caption = "") {
        return kehystin::add_field(data_, style, left, top, width, height, caption);
    }
    Field& field(int number) { return data_.field(number); }

    CardData data_;
    Card& card = data_.card;
    std::vector<Field>& fields = data_.fields;
};

} // namespace kehystin
