#include "card/identity.h"

#include "tests/unit/card_in_hand.h"

namespace kehystin {

class Identity : public CardInHand {
  protected:
    void SetUp() override {
        card.ID = "170520040930abcdefgh";
        add_field(Style::OTS, 0, 0, 10, 10, "Nimi");
        add_field(Style::TXT, 20, 0, 10, 10).linkki = 1;
        before_ = data_;
    }
    bool becomes_another() { return is_another_card(before_, data_); }

    CardData before_;
};

TEST_F(Identity, LookAndPlaceKeepIt) {
    field(2).left = 200;
    field(2).fontBold = -1;
    field(2).value = "x";
    field(1).caption = "Nimi 2";
    add_field(Style::OTS, 0, 50, 10, 10, "Uusi otsikko");
    EXPECT_FALSE(becomes_another());
    field(1).caption = "NI";
    EXPECT_FALSE(becomes_another());
}

TEST_F(Identity, ChangesInSubstanceEndIt) {
    auto const before = fields;
    auto const changed = [&](auto const& change) {
        fields = before;
        change();
        return becomes_another();
    };
    EXPECT_TRUE(changed([&] { field(1).caption = "Osoite"; }));
    EXPECT_TRUE(changed([&] { field(2).style = 7; }));
    EXPECT_TRUE(changed([&] { field(2).linkki = 0; }));
    EXPECT_TRUE(changed([&] { field(1).size = 2; }));
    EXPECT_FALSE(changed([&] { field(1).linkki = 2; }));
    fields = before;
    add_field(Style::TXT, 0, 0, 1, 1);
    EXPECT_TRUE(becomes_another());
    card.fields = 1;
    EXPECT_TRUE(becomes_another());
}

TEST_F(Identity, ACardWithoutOneGetsOne) {
    card.ID = "170520040930abcdefg";
    EXPECT_TRUE(becomes_another());
    card.ID.assign_bytes(std::string(20, '\0'));
    EXPECT_TRUE(becomes_another());
}

} // namespace kehystin
