#include "cardfile/identity.h"

#include "tests/unit/fresh_session.h"

#include <cctype>

namespace kehystin {

class Identity : public FreshSession {
  protected:
    void SetUp() override {
        start();
        card.ID = "170520040930abcdefgh";
        add_field(Style::OTS, 0, 0, 10, 10, "Nimi");
        add_field(Style::TXT, 20, 0, 10, 10).linkki = 1;
        SaveCardBefore();
        session.needNewID = false;
    }
    bool becomes_another() {
        session.needNewID = false;
        CompareCards();
        return static_cast<bool>(session.needNewID);
    }
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
    EXPECT_TRUE(changed([] { field(1).caption = "Osoite"; }));
    EXPECT_TRUE(changed([] { field(2).style = 7; }));
    EXPECT_TRUE(changed([] { field(2).linkki = 0; }));
    EXPECT_TRUE(changed([] { field(1).size = 2; }));
    EXPECT_FALSE(changed([] { field(1).linkki = 2; }));
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

TEST_F(Identity, ANewOneIsDateFirstAndNeverTheSame) {
    auto const first = GetNewID();
    ASSERT_EQ(first.size(), 20U);
    EXPECT_EQ(first.substr(0, 12), "170520040930");
    for (char const c : first)
        EXPECT_TRUE(std::isalnum(static_cast<unsigned char>(c))) << first;
    EXPECT_NE(GetNewID(), first);
}

} // namespace kehystin
