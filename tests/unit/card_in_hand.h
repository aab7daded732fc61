// A card for rules that need nothing but a card.
#pragma once

#include "card/card.h"
#include "card/kinds.h"

#include <gtest/gtest.h>

#include <string>
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

/// A sound card: a title "Nimi" and the text field that is linked to it.
inline void make_two_fields(CardData& data) {
    auto& record = data.card;
    record.name = "Koe";
    record.width = 400;
    record.height = 300;
    record.STPP = 15;
    record.picture = "";
    record.asiakasMin = 1;
    record.asiakasMax = 1000;
    record.asiakasStep = 1;
    record.asiakasNum = 4;
    record.editDate = to_date({2004, 5, 1});
    add_field(data, Style::OTS, 10, 10, 100, 16, "Nimi");
    add_field(data, Style::TXT, 120, 10, 100, 21).linkki = 1;
}

/// The text of a card's file, changed by the line.
class CardText {
  protected:
    /// Replaces the line of a key; an empty line takes it away.
    void replace_line(std::string_view key, std::string_view line) {
        auto const start = text.find("\n" + std::string(key) + "=") + 1;
        ASSERT_NE(start, 0U) << key;
        auto const end = text.find('\n', start) + 1;
        text.replace(start, end - start, line.empty() ? "" : std::string(line) + "\r\n");
    }
    void value(std::string_view key, std::string_view new_value) {
        replace_line(key, std::string(key) + "=" + std::string(new_value));
    }

    std::string text;
};

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
