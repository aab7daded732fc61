// The rules of a card as another program uses them: no session, no host, no window.
#include "card/checks.h"
#include "card/column_order.h"
#include "card/identity.h"
#include "card/internal/key_index.h"
#include "card/linking.h"
#include "card/reading.h"
#include "card/writing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace kehystin {

namespace {

using namespace std::string_view_literals;

std::string example(std::string const& name) {
    std::ifstream file(KEHYSTIN_SCENARIOS "/../../examples/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Reading read(std::string_view bytes) {
    return read_card(bytes, {}, {});
}

} // namespace

TEST(CardLibrary, ACardComesBackAsItWasWritten) {
    auto const bytes = example("asiakkaat.krt");
    auto reading = read(bytes);
    ASSERT_EQ(reading.end, Reading::End::read);
    EXPECT_TRUE(reading.findings.empty());
    EXPECT_TRUE(write_card(reading.data) == bytes);
    auto again = read(write_card(reading.data));
    EXPECT_FALSE(is_another_card(reading.data, again.data));
    again.data.field(3).size += 1;
    EXPECT_TRUE(is_another_card(reading.data, again.data));
}

TEST(CardLibrary, WhatIsFoundNamesItsKeyAndWhatBecomesOfIt) {
    auto const reading = read(example("rikki.krt"));
    ASSERT_EQ(reading.end, Reading::End::read);
    auto const width =
        std::find_if(reading.findings.begin(), reading.findings.end(),
                     [](Finding const& finding) { return finding.key == "card.width"; });
    ASSERT_NE(width, reading.findings.end());
    EXPECT_EQ(width->what, Finding::What::repaired);
    EXPECT_EQ(width->found, "abc");
    EXPECT_EQ(width->kept, "300");
    EXPECT_EQ(reading.data.card.width, 300);
    for (auto const none : {""sv, "ei kortti"sv, "Norvak\r\nCardfile"sv, "\0\0\0"sv})
        EXPECT_EQ(read(none).end, Reading::End::not_a_card);
}

TEST(CardLibrary, WhatIsRepairedNeedsNoOtherRepair) {
    auto bytes = example("asiakkaat.krt");
    for (auto const& [key, value] :
         {std::pair("card.asiakasMin=", "10000000000"), {"card.asiakasMax=", "1"}}) {
        auto const at = bytes.find(key) + std::string_view(key).size();
        bytes.replace(at, bytes.find('\r', at) - at, value);
    }
    auto repaired = read(bytes);
    ASSERT_EQ(repaired.findings.size(), 1U);
    EXPECT_EQ(repaired.findings[0].kept, "10000000000"); // a hundred more is no other number
    auto again = read(write_card(repaired.data));
    EXPECT_TRUE(again.findings.empty());
    EXPECT_EQ(again.data.card.asiakasMax, 1e10F);
}

TEST(CardLibrary, AMissingKeyAsksWhetherToGoOn) {
    int asked = 0;
    auto const refused =
        read_card("Norvak Cardfile\r\ncard.name=A\r\n", {}, {}, [&](Finding const& finding) {
            ++asked;
            EXPECT_EQ(finding.what, Finding::What::missing_key);
            return finding.key != "card.transp";
        });
    EXPECT_EQ(refused.end, Reading::End::given_up);
    EXPECT_EQ(asked, 3); // for the fields, the colour and this one
}

TEST(CardLibrary, TwoCardsAreLinkedAndCheckedSideBySide) {
    auto one = read(example("vanha.krt")).data;
    auto other = one;
    other.field(1).style = 1; // no title any more
    EXPECT_EQ(link_card(one).links.size(), 6U);
    EXPECT_EQ(link_card(other).links.size(), 5U);
    EXPECT_TRUE(offenders(Check::no_title, one).empty());
    EXPECT_EQ(offenders(Check::no_title, other), (std::vector{1, 2}));
    order_columns(one, std::vector{11, 1});
    EXPECT_EQ(one.field(1).caption.trimmed(), "Huomautuksia");
    EXPECT_EQ(other.field(11).caption.trimmed(), "Huomautuksia");
}

TEST(CardLibrary, ACardThatSaysNonsenseIsHarmless) {
    for (int const fields : {-1, -2, -30000}) {
        auto card = read(example("vanha.krt")).data;
        card.card.fields = fields;
        EXPECT_TRUE(link_card(card).links.empty());
        order_columns(card, std::vector{1});
        EXPECT_TRUE(is_same_card(card, card));
        EXPECT_TRUE(write_card(card).ends_with("[FIELDS]\r\n"));
    }
    auto card = read(example("vanha.krt")).data;
    card.card.fields = 300;
    auto const before = card;
    EXPECT_THROW(link_card(card), RuntimeError);
    EXPECT_THROW(order_columns(card, std::vector{1}), RuntimeError);
    EXPECT_TRUE(card.fields == before.fields);
    card.card.fields = 12;
    EXPECT_THROW(link_card(card, 40000), RuntimeError);
}

TEST(CardLibrary, AKeyIsFoundWhereverItStandsAgain) {
    std::string bytes;
    std::vector<std::size_t> places;
    for (std::size_t gap : {0, 1, 90, 127, 128, 20000, 3, 2000000}) {
        bytes += std::string(gap, 'x') + ",";
        places.push_back(bytes.size());
        bytes += "card.ID=a,";
    }
    KeyIndex const index(bytes);
    std::size_t from = 0;
    for (auto const place : places) {
        EXPECT_EQ(index.find("card.ID", from), place);
        EXPECT_EQ(index.find("card.ID", place), place);
        from = place + 1;
    }
    EXPECT_EQ(index.find("card.ID", from), KeyIndex::npos);
    EXPECT_EQ(index.find("card.name", 0), KeyIndex::npos);
}

} // namespace kehystin
