#include "card/linking.h"

#include "tests/unit/card_in_hand.h"

namespace kehystin {

class LinkCard : public CardInHand {};

TEST_F(LinkCard, AListThatIsFullIsCutInTheMiddleOfANumber) {
    add_field(Style::OTS, 0, 0, 900, 16, "Kaikki");
    for (int i = 0; i < 150; ++i)
        add_field(Style::TXT, 0, 20 + i, 50, 20);
    EXPECT_EQ(link_card(data_).links.size(), 150U);
    EXPECT_EQ(field(1).list.trimmed().size(), 400U);
}

TEST_F(LinkCard, AFailureEndsTheRunWhereItIs) {
    add_field(Style::OTS, 10, 10, 50, 16, "Nimi");
    add_field(Style::TXT, 100, 10, 50, 20);
    add_field(Style::TXT, 100, 40, 50, 20).linkitys = true;
    add_field(Style::TXT, 100, 70, 50, 20).group = "Vanha";
    field(1).caption = " Nimi";
    for (int const number : {0, 5, -1}) {
        field(3).linkki = number;
        auto const linking = link_card(data_);
        ASSERT_TRUE(linking.failure);
        EXPECT_TRUE(linking.failure->is(ErrorNumber::subscript_out_of_range));
        EXPECT_EQ(linking.links.size(), 1U);
        EXPECT_EQ(field(1).list.trimmed(), "2|");
        EXPECT_EQ(field(4).group.trimmed(), "");
        EXPECT_TRUE(field(1).caption.bytes().starts_with("Nimi")); // trimmed, as its field has it
    }
    field(1).left = 32760; // a sum beyond 16 bits
    EXPECT_TRUE(link_card(data_).failure.value().is(ErrorNumber::overflow));
}

} // namespace kehystin
