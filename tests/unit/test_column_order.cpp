#include "card/column_order.h"

#include "tests/unit/card_in_hand.h"

#include <algorithm>
#include <random>
#include <set>
#include <vector>

namespace kehystin {

class ColumnOrder : public CardInHand {
  protected:
    void title(std::string const& list) {
        add_field(Style::OTS, 0, 0, 10, 10, "O" + std::to_string(card.fields + 1)).list = list;
    }
    void data(int title) {
        add_field(Style::TXT, 0, 0, 10, 10, "D" + std::to_string(card.fields + 1)).linkki = title;
    }
    void move(std::vector<int> const& titles) { order_columns(data_, titles); }

    std::string captions() {
        std::string all;
        for (int i = 1; i <= card.fields; ++i)
            all += (i == 1 ? "" : " ") + field(i).caption.trimmed();
        return all;
    }
    std::string list_of(int number) { return field(number).list.trimmed(); }
};

TEST_F(ColumnOrder, TitlesTakeTheirDataAlongInTheOrderOfTheirLists) {
    title("6|2");
    data(1);
    title("4");
    data(3);
    data(0);
    data(1);
    move({3, 1});
    EXPECT_EQ(captions(), "O3 D4 O1 D6 D2 D5");
    EXPECT_EQ(list_of(1), "2");
    EXPECT_EQ(list_of(3), "4|5");
    EXPECT_EQ(field(2).linkki, 1);
    EXPECT_EQ(field(4).linkki, 3);
    EXPECT_EQ(field(5).linkki, 3);
    EXPECT_EQ(field(6).linkki, 0);
}

TEST_F(ColumnOrder, WithoutTitlesNothingMoves) {
    card.fldSpeci[1] = 2;
    data(2);
    title("1");
    move({});
    EXPECT_EQ(captions(), "D1 O2");
    EXPECT_EQ(field(1).linkki, 2);
    EXPECT_EQ(card.fldSpeci[1], 2);
    card.fields = 0;
    move({});
    move({1});
    EXPECT_EQ(card.fields, 0);
}

TEST_F(ColumnOrder, RolesAndLinksByHandFollowTheirFields) {
    data(0);
    title("3");
    data(2);
    data(0);
    field(4).linkitys = true;
    field(4).linkki = 2; // by hand, and no list knows of it
    card.fldSpeci[1] = 3;
    card.fldSpeci[30] = 1;
    card.fldSpeci[2] = 2;
    card.fldSpeci[5] = 5; // beyond the fields
    card.fldSpeci[6] = -3;
    move({2});
    EXPECT_EQ(captions(), "O2 D3 D1 D4");
    EXPECT_EQ(field(4).linkki, 1);
    EXPECT_EQ(card.fldSpeci[1], 2);
    EXPECT_EQ(card.fldSpeci[30], 3);
    EXPECT_EQ(card.fldSpeci[2], 1);
    EXPECT_EQ(card.fldSpeci[3], 0);
    EXPECT_EQ(card.fldSpeci[5], 5);
    EXPECT_EQ(card.fldSpeci[6], -3);
}

TEST_F(ColumnOrder, OtherLinksStayAsTheyAre) {
    title("");
    title("4");
    data(2); // by geometry, and no list knows of it: a memory
    data(2);
    data(1);
    field(5).linkitys = true; // by hand, to a title that is not among the moved
    move({2});
    EXPECT_EQ(captions(), "O2 D4 O1 D3 D5");
    EXPECT_EQ(field(4).linkki, 2);
    EXPECT_EQ(field(5).linkki, 3);
}

TEST_F(ColumnOrder, WhatListsSayWronglyIsPassedOver) {
    title("5|5|0|-1|99999999999|1e400|abc||3|2.0|6");
    data(0);
    title("2|5");
    data(-7);
    data(1234);
    data(300);
    move({3, 3, 1, 2, 0, -1, 4000});
    EXPECT_EQ(captions(), "O3 D2 D5 O1 D6 D4");
    EXPECT_EQ(list_of(1), "2|3");
    EXPECT_EQ(list_of(4), "5");
    EXPECT_EQ(field(3).linkki, 1);
    EXPECT_EQ(field(6).linkki, -7);
}

TEST_F(ColumnOrder, RecordsBehindTheCardStayWhereTheyAre) {
    data(0);
    title("3");
    data(2);
    card.fields = 2; // the third was deleted
    move({2});
    EXPECT_EQ(captions(), "O2 D1");
    EXPECT_EQ(list_of(1), "");
    EXPECT_EQ(fields.size(), 4U);
    EXPECT_EQ(field(3).caption.trimmed(), "D3");
}

TEST_F(ColumnOrder, EveryRecordIsThereOnceWhateverTheRecordsSay) {
    std::mt19937 random(5);
    auto const at = [&](int from, int to) {
        return from + static_cast<int>(random() % static_cast<unsigned>(to - from + 1));
    };
    for (int round = 0; round < 300; ++round) {
        card.fields = 0;
        int const count = at(1, 40);
        std::vector<int> titles;
        for (int i = 1; i <= count; ++i) {
            if (at(0, 2) != 0) {
                data(at(-5, 60));
                continue;
            }
            std::string list;
            for (int k = at(0, 8); k > 0; --k)
                list += std::to_string(at(-5, 60)) + "|";
            title(list);
            if (at(0, 4) != 0)
                titles.push_back(i);
        }
        std::shuffle(titles.begin(), titles.end(), random);
        move(titles);
        std::set<std::string> found;
        for (int i = 1; i <= count; ++i)
            found.insert(field(i).caption.trimmed());
        ASSERT_EQ(found.size(), static_cast<std::size_t>(count));
    }
}

} // namespace kehystin
