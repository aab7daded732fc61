#include "card/internal/title_search.h"

#include "tests/unit/card_in_hand.h"

#include <random>

namespace kehystin {

class TitleChoice : public CardInHand {
  protected:
    int choice_for(Field const& data) { return TitleSearch(data_, 120).nearest_to(data); }
    int plain_choice(Field const& data);
};

/// The choice in its plainest form: each candidate against all eligible titles behind it.
int TitleChoice::plain_choice(Field const& data) {
    auto const eligible = [&](int t) {
        auto const& title = field(t);
        return title.is_title() && !title.is_nolink() && data.left - title.right() <= 120 &&
               data.right() >= title.left && title.top <= data.bottom();
    };
    for (int k = 1; k <= card.fields; ++k) {
        if (!eligible(k))
            continue;
        bool lost = false;
        for (int m = k + 1; m <= card.fields && !lost; ++m)
            lost = eligible(m) && link_distance(field(k), data) > link_distance(field(m), data);
        if (!lost)
            return k;
    }
    return 0;
}

TEST_F(TitleChoice, TheChoiceIsThatOfAllPairsOnRandomCards) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        card.fields = 0;
        for (int i = 0; i < 40; ++i) {
            auto const at = [&](int limit) { return static_cast<int>(random() % unsigned(limit)); };
            auto& one = add_field(at(2) ? Style::OTS : Style::TXT, at(300), at(300), 10 + at(90),
                                  10 + at(30));
            if (one.is_title() && at(8) == 0)
                one.value = "NOLINK";
        }
        TitleSearch const search(data_, 120);
        for (int i = 1; i <= card.fields; ++i)
            if (!field(i).is_title()) {
                ASSERT_EQ(search.nearest_to(field(i)), plain_choice(field(i)));
            }
    }
}

TEST_F(TitleChoice, ReachAndTouchingEdges) {
    add_field(Style::OTS, 10, 10, 50, 16, "Nimi");
    auto const linked_at = [&](int left, int top) {
        card.fields = 1;
        auto const& data = add_field(Style::TXT, left, top, 50, 20);
        return TitleSearch(data_, 120).nearest_to(data) == 1;
    };
    EXPECT_TRUE(linked_at(180, 10));
    EXPECT_FALSE(linked_at(181, 10));
    EXPECT_TRUE(linked_at(10, 900));
    EXPECT_TRUE(linked_at(-40, 10));
    EXPECT_FALSE(linked_at(-41, 10));
    EXPECT_TRUE(linked_at(70, -10));
    EXPECT_FALSE(linked_at(70, -11));
}

TEST_F(TitleChoice, OfEqualDistancesTheLowerNumberWins) {
    add_field(Style::OTS, 200, 10, 50, 16);
    add_field(Style::OTS, 10, 10, 240, 16);
    EXPECT_EQ(TitleSearch(data_, 120).nearest_to(add_field(Style::TXT, 100, 40, 200, 20)), 1);
}

TEST_F(TitleChoice, AnOverlapIsNearerThanAnythingAbove) {
    add_field(Style::OTS, 100, 60, 50, 16);
    add_field(Style::OTS, 100, 70, 50, 16);
    EXPECT_EQ(TitleSearch(data_, 120).nearest_to(add_field(Style::TXT, 100, 80, 60, 20)), 2);
    EXPECT_EQ(link_distance(field(2), field(3)), -6);
}

TEST_F(TitleChoice, DistanceOfATitleUpAndLeftIsRoundedToEven) {
    Field const title = add_field(Style::OTS, 0, 0, 10, 10);
    EXPECT_EQ(link_distance(title, add_field(Style::TXT, 13, 14, 10, 10)), 5);
    EXPECT_EQ(link_distance(title, add_field(Style::TXT, 11, 12, 10, 10)), 2);
    EXPECT_EQ(link_distance(title, add_field(Style::TXT, 40, 10, 10, 10)), 30);
    // Where edges touch, the gap of the other direction counts.
    EXPECT_EQ(link_distance(title, add_field(Style::TXT, 10, 14, 10, 10)), 4);
    EXPECT_EQ(link_distance(title, add_field(Style::TXT, 10, 10, 10, 10)), 0);
}

} // namespace kehystin
