// The card of the wizard: where its fields stand, for every number of columns.
#include "dialogs/wizard_card.h"

#include "cardfile/reader.h"
#include "cardfile/writer.h"
#include "surface/load_card.h"
#include "tests/unit/fresh_session.h"

#include <tuple>

namespace kehystin {

namespace {

struct Columns {
    int count;
    int rows; ///< of the first column
    int columns;
    int digits_left;  ///< room of a text field with its title at the left
    int digits_above; ///< and with its title above
};

constexpr Columns all_columns[] = {
    {1, 1, 1, 30, 30},   {10, 10, 1, 30, 30}, {11, 6, 2, 20, 25},
    {22, 11, 2, 20, 25}, {23, 8, 3, 10, 20},  {40, 14, 3, 10, 20},
};

WizardChoices choices_for(int count, TitlePlace place, TitleAlign align) {
    WizardChoices choices;
    for (int i = 1; i <= count; ++i)
        choices.titles.push_back("Otsikko " + std::to_string(i));
    choices.place = place;
    choices.align = align;
    choices.title_look = {{"Arial", 10, true, false, false}, RGB(1, 2, 3), colours::blue};
    choices.text_look = {{"Tahoma", 20, false, true, false}, colours::white, colours::black};
    return choices;
}

// What the scripted host measures in these fonts.
constexpr int title_letter = 7; // and one pixel for bold among them
constexpr int title_height = 15;
constexpr int text_letter = 12;
constexpr int text_height = 30;

bool overlap(Field const& a, Field const& b) {
    return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

} // namespace

class WizardCardLayout
    : public FreshSession,
      public testing::WithParamInterface<std::tuple<Columns, TitlePlace, TitleAlign>> {
  protected:
    void SetUp() override {
        start();
        auto const& [columns, place, align] = GetParam();
        count = columns.count;
        auto built = build_wizard_card(choices_for(count, place, align));
        card = built.card;
        fields = std::move(built.fields);
    }
    Field const& title(int row) { return field(row); }
    Field const& text(int row) { return field(count + row); }

    int count = 0;
};

TEST_P(WizardCardLayout, EveryFieldStandsFreeOnTheCard) {
    ASSERT_EQ(card.fields, 2 * count);
    ASSERT_EQ(std::ssize(fields), 2 * count + 1);
    for (int i = 1; i <= card.fields; ++i) {
        EXPECT_LE(field(i).bottom(), card.height);
        EXPECT_LE(field(i).right(), card.width);
        for (int j = i + 1; j <= card.fields; ++j)
            EXPECT_FALSE(overlap(field(i), field(j))) << i << " and " << j;
    }
}

TEST_P(WizardCardLayout, RowsFillTheColumnsInOrder) {
    auto const& [columns, place, align] = GetParam();
    bool const left = place == TitlePlace::left;
    int const longest = count < 10 ? 9 : 10; // "Otsikko 40"
    int const title_width = longest * title_letter;
    int const text_width = (left ? columns.digits_left : columns.digits_above) * text_letter;
    int const step = left ? text_height + 10 : title_height + text_height + 18;
    int const column_step =
        left ? text_width + title_width + 40 : std::max(title_width, text_width) + 20;
    for (int row = 1; row <= columns.rows; ++row) {
        EXPECT_EQ(title(row).left, left ? 10 : 20);
        EXPECT_EQ(title(row).top, 15 + (row - 1) * step + (left ? 2 : 0));
        EXPECT_EQ(text(row).left, left ? 10 + title_width + 20 : 15);
        EXPECT_EQ(text(row).top, 15 + (row - 1) * step + (left ? 0 : title_height + 4));
        EXPECT_EQ(text(row).width, text_width);
    }
    if (columns.columns > 1) {
        EXPECT_EQ(text(columns.rows + 1).top, text(1).top);
        EXPECT_EQ(text(columns.rows + 1).left, text(1).left + column_step);
    }
    EXPECT_EQ(text(count).left, text(1).left + (columns.columns - 1) * column_step);
    EXPECT_EQ(card.height, 15 + columns.rows * step + 40);
    int const last_column = 10 + (columns.columns - 1) * column_step;
    EXPECT_EQ(card.width, last_column + text_width + (left ? title_width + 45 : 30));
}

TEST_P(WizardCardLayout, ItOpensLinksAndComesBackFromItsFile) {
    ASSERT_TRUE(load_card());
    EXPECT_EQ(session.link_count, count);
    session.cardFile = folder / "velho.krt";
    ASSERT_TRUE(SaveCardFile());
    auto const saved = fields;
    ASSERT_TRUE(ReadCardFile(session.cardFile)); // without a box: nothing was repaired
    ASSERT_TRUE(load_card());
    for (int row = 1; row <= count; ++row) {
        EXPECT_EQ(title(row).list.trimmed(), std::to_string(count + row));
        EXPECT_EQ(text(row).linkki, row);
        EXPECT_EQ(text(row).group.trimmed(), "Otsikko " + std::to_string(row));
        EXPECT_EQ(text(row).left, saved[static_cast<std::size_t>(count + row)].left);
    }
}

/// "22AboveRight": fields, place and alignment of the titles.
std::string name_of(testing::TestParamInfo<WizardCardLayout::ParamType> const& parameters) {
    auto const place = std::get<TitlePlace>(parameters.param);
    auto const align = std::get<TitleAlign>(parameters.param);
    return std::to_string(std::get<Columns>(parameters.param).count) +
           (place == TitlePlace::above ? "Above" : "Beside") +
           (align == TitleAlign::left ? "Left" : "Right");
}

INSTANTIATE_TEST_SUITE_P(All, WizardCardLayout,
                         testing::Combine(testing::ValuesIn(all_columns),
                                          testing::Values(TitlePlace::above, TitlePlace::left),
                                          testing::Values(TitleAlign::left, TitleAlign::right)),
                         name_of);

using WizardCardTest = FreshSession;

TEST_F(WizardCardTest, TitlesAtTheRightEndAreAsWideAsTheirFieldsUnlessTheyNeedMore) {
    start();
    auto choices = choices_for(1, TitlePlace::above, TitleAlign::right);
    int const text_width = 30 * text_letter;
    choices.titles = {"Nimi"};
    auto built = build_wizard_card(choices);
    EXPECT_EQ(built.fields[1].width, text_width - 10);
    EXPECT_EQ(built.fields[1].right(), built.fields[2].right() - 5);
    EXPECT_EQ(built.fields[1].align, 1);
    EXPECT_EQ(built.fields[2].align, 0);
    choices.titles = {std::string(60, 'A')};
    built = build_wizard_card(choices);
    EXPECT_EQ(built.fields[1].width, 60 * title_letter + 10);
    EXPECT_EQ(built.card.width, 10 + text_width + 30);
}

TEST_F(WizardCardTest, LooksAndTextsGoToTheirFields) {
    start();
    auto choices = choices_for(2, TitlePlace::left, TitleAlign::left);
    choices.titles = {"  Ä,\nö  ", std::string(120, 'x')};
    auto const built = build_wizard_card(choices);
    auto const& title = built.fields[1];
    auto const& text = built.fields[3];
    EXPECT_EQ(title.caption.trimmed(), "Ä, ö");
    EXPECT_EQ(built.fields[2].caption.trimmed(), std::string(100, 'x'));
    EXPECT_EQ(text.group.trimmed(), "Ä, ö");
    EXPECT_EQ(title.fontName.trimmed(), "Arial");
    EXPECT_EQ(title.fontSize, 10);
    EXPECT_EQ(title.fontBold, -1);
    EXPECT_EQ(title.fontItalic, 0);
    EXPECT_EQ(title.backColor, RGB(1, 2, 3));
    EXPECT_EQ(text.fontItalic, -1);
    EXPECT_EQ(text.caption.trimmed(), "");
    EXPECT_EQ(built.card.name.str().substr(0, 12), " Velhokortti");
}

TEST_F(WizardCardTest, WhatNoRecordCanHoldRaisesAndLeavesTheOpenCard) {
    start();
    card.fields = 1;
    auto choices = choices_for(2, TitlePlace::left, TitleAlign::left);
    choices.titles[0] = std::string(40'000, 'x');
    EXPECT_THROW(build_wizard_card(choices), RuntimeError);
    choices.titles[0] = std::string(4'650, 'x'); // only the place behind it is too far
    EXPECT_THROW(build_wizard_card(choices), RuntimeError);
    EXPECT_EQ(card.fields, 1);
}

// Neither may the taller of title and text lie over the next row, nor the wider over the next
// column.
TEST_F(WizardCardTest, StepsGoByTheLargerOfTitleAndText) {
    start();
    for (auto const& [title, text] : {std::pair{20, 10}, {10, 20}}) {
        auto choices = choices_for(2, TitlePlace::left, TitleAlign::left);
        choices.title_look.font.size = title;
        choices.text_look.font.size = text;
        auto const built = build_wizard_card(choices);
        EXPECT_EQ(built.fields[2].top - built.fields[1].top, 30 + 10); // lines of 20 points
    }
    auto choices = choices_for(11, TitlePlace::above, TitleAlign::left);
    choices.text_look.font.size = 10;
    auto const narrow = build_wizard_card(choices); // texts of 25 letters of 6 pixels
    EXPECT_EQ(narrow.fields[7].left - narrow.fields[1].left, 25 * 6 + 20);
    choices.titles[3] = std::string(60, 'x'); // of 7 pixels, bold
    auto const wide = build_wizard_card(choices);
    EXPECT_EQ(wide.fields[7].left - wide.fields[1].left, 60 * 7 + 20);
}

} // namespace kehystin
