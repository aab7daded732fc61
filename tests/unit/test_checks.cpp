#include "card/checks.h"

#include "card/linking.h"
#include "tests/unit/card_in_hand.h"

namespace kehystin {

class Checks : public CardInHand {
  protected:
    std::vector<int> found(Check check) {
        link_card(data_);
        return offenders(check, data_);
    }
};

TEST_F(Checks, LabelsThatDoNotShowAreAskedAbout) {
    add_field(Style::CHK, 10, 10, 24, 16, "Kapea");
    add_field(Style::OPT, 10, 40, 25, 16, "Leveä");
    add_field(Style::OPT, 10, 70, 90, 16, " ");
    add_field(Style::TXT, 10, 100, 10, 16, "");
    EXPECT_EQ(found(Check::no_label), (std::vector{1, 3}));
}

TEST_F(Checks, OnlyLinkedTitlesOfOneCaptionAreTheSame) {
    for (int i = 0; i < 3; ++i) {
        add_field(Style::OTS, 10, 10 + 50 * i, 80, 16, i == 1 ? "NIMI " : "Nimi");
        add_field(Style::TXT, 100, 10 + 50 * i, 80, 16);
    }
    add_field(Style::OTS, 300, 480, 80, 16, "Nimi");
    field(5).value = "NOLINK";
    EXPECT_EQ(found(Check::same_title), (std::vector{1, 3}));
}

} // namespace kehystin
