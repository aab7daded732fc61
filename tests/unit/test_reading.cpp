#include "card/reading.h"

#include "card/format.h"
#include "card/writing.h"
#include "tests/unit/card_in_hand.h"

#include <tuple>

namespace kehystin {

class ReadCard : public CardInHand, protected CardText {
  protected:
    void SetUp() override {
        make_two_fields(data_);
        text = write_card(data_);
    }
    /// Reads the text as after Yes to every question.
    bool read() {
        Surroundings around;
        around.today = today;
        around.kept_font = [](std::string const& name) {
            return name == "Outo Fontti" ? "MS Sans Serif" : name;
        };
        asked = 0;
        auto reading = read_card(text, {}, around, [this](Finding const&) { return ++asked > 0; });
        report = reading.report();
        data_ = std::move(reading.data);
        return reading.end == Reading::End::read;
    }
    bool report_has(std::string_view row) const {
        return ("\r\n" + report).find("\r\n" + std::string(row) + "\r\n") != std::string::npos;
    }

    Date const today = to_date({2004, 5, 17});
    std::string report;
    int asked = 0; ///< missing keys that the user is asked about
};

TEST_F(ReadCard, TheSearchGoesOnFromTheLastKeyAndOnceAround) {
    // Behind the first field's lines its caption stands again: the search takes the first from
    // where it is. Before them a second `size` of field 2 stands: found only on the way around.
    text.insert(text.find("field(1).style"), "field(2).size=77\r\n");
    text.insert(text.find("field(1).group"), "field(1).group=toinen\r\n");
    EXPECT_TRUE(read());
    EXPECT_EQ(field(1).group.trimmed(), "toinen");
    EXPECT_EQ(field(2).size, 1);
    replace_line("field(2).caption", "field(2).caption=x field(2).size=9");
    EXPECT_TRUE(read());
    EXPECT_EQ(field(2).caption.trimmed(), "x field(2).size=9");
    EXPECT_EQ(field(2).size, 1);
    text.insert(text.find("field(2).size=1\r"), "field(2).group= field(2).size=5\r\n");
    // That item holds the key too, and its value begins behind its first "=".
    EXPECT_TRUE(read());
    EXPECT_TRUE(report_has("field(2).size:  0  ->  1     (1 - 30000)"));
}

TEST_F(ReadCard, ACaptionWithAKeyInItAnswersForTheKey) {
    // The value is what stands behind the first "=".
    replace_line("field(1).caption", "field(1).caption=Nimi, field(1).size=7");
    replace_line("field(1).size", "");
    EXPECT_TRUE(read());
    EXPECT_EQ(field(1).caption.trimmed(), "Nimi");
    EXPECT_EQ(field(1).size, 7);
}

TEST_F(ReadCard, KeysOfLaterVersionsHaveDefaults) {
    for (auto const* const key : {"align", "scaling", "border", "linkitys", "linkki"})
        for (auto const* const number : {"1", "2"})
            replace_line("field(" + std::string(number) + ")." + key, "");
    for (auto const* const key :
         {"STPP", "ID", "fldSpeci(3)", "dateStyle(4)", "asiakasStyle", "asiakasMin", "asiakasMax",
          "asiakasStep", "asiakasNum", "asiakasZero", "autoZip", "editDate"})
        replace_line("card." + std::string(key), "");
    EXPECT_TRUE(read());
    EXPECT_EQ(report, "");
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(field(2).align, 0);
    EXPECT_EQ(field(2).scaling, 1);
    EXPECT_EQ(field(2).border, 1);
    EXPECT_EQ(field(2).linkki, 0);
    EXPECT_EQ(card.STPP, 15);
    EXPECT_EQ(card.dateStyle[4], 1);
    EXPECT_EQ(card.asiakasMax, 1000);
    EXPECT_EQ(card.asiakasNum, 4);
    EXPECT_TRUE(static_cast<bool>(card.asiakasZero));
    EXPECT_EQ(card.editDate, today);
}

struct Repaired {
    std::string_view key;
    std::string_view bad;
    std::string_view row; ///< empty: repaired silently
    std::string_view good;
};

void PrintTo(Repaired const& test, std::ostream* out) {
    *out << test.key << "=" << test.bad;
}

class RepairedValues : public ReadCard, public testing::WithParamInterface<Repaired> {};

TEST_P(RepairedValues, AreStoredAndTold) {
    auto const& test = GetParam();
    value(test.key, test.bad);
    ASSERT_TRUE(read());
    if (test.row.empty())
        EXPECT_EQ(report, "");
    else
        EXPECT_TRUE(report_has(test.row)) << report;
    auto const line = "\n" + std::string(test.key) + "=" + std::string(test.good) + "\r";
    EXPECT_NE(write_card(data_).find(line), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Table, RepairedValues,
    testing::Values(
        Repaired{"card.width", "abc", "Korttimallin leveys:  0  ->  300     (60 - 3000)", "300"},
        Repaired{"card.width", "59", "Korttimallin leveys:  59  ->  300     (60 - 3000)", "300"},
        Repaired{"card.width", "99999", "card.width:  99999  ->  300     (60 - 3000)", "300"},
        Repaired{"card.height", "99999", "Korttimallin korkeus:  31111  ->  300     (60 - 3000)",
                 "300"},
        Repaired{"card.height", "3000", "", "3000"},
        Repaired{"card.transp", "1", "Kenttien läpinäkyvyys kortilla:  1  ->  -1     (0 tai -1)",
                 "-1"},
        Repaired{"card.STPP", "31", "", "15"}, Repaired{"card.ID", "lyhyt", "", ""},
        Repaired{"card.fldSpeci(7)", "3", "", "0"}, Repaired{"card.fldSpeci(7)", "2", "", "2"},
        Repaired{"card.dateStyle(2)", "5", "", "1"}, Repaired{"card.asiakasStyle", "-1", "", "1"},
        Repaired{"card.asiakasMin", "0.5", "", "1"}, Repaired{"card.asiakasMax", "1", "", "101"},
        Repaired{"card.asiakasStep", "10000", "", "1"}, Repaired{"card.asiakasNum", "21", "", "4"},
        Repaired{"card.asiakasZero", "5", "", "-1"}, Repaired{"card.autoZip", "0", "", "0"},
        Repaired{"card.editDate", "31.12.2999", "", "17.5.2004"},
        Repaired{"card.editDate", "eilen", "", "17.5.2004"},
        Repaired{"card.color", "-2147483633", "", "-2147483633"},
        Repaired{"field(1).style", "8", "field(1).style:  8  ->  0     (0 - 7)", "0"},
        Repaired{"field(2).size", "0", "field(2).size:  0  ->  1     (1 - 30000)", "1"},
        Repaired{"field(2).size", "-99999", "field(2).size:  31111  ->  1     (1 - 30000)", "1"},
        Repaired{"field(2).left", "401", "field(2).left:  401  ->  20     (1 - kortin leveys)",
                 "20"},
        Repaired{"field(2).left", "400", "", "400"},
        Repaired{"field(2).top", "-1", "field(2).top:  -1  ->  20     (1 - kortin korkeus)", "20"},
        Repaired{"field(2).width", "700", "", "700"},
        Repaired{"field(2).width", "701", "field(2).width:  701  ->  100     (1 - kortin leveys)",
                 "100"},
        Repaired{"field(2).height", "0", "field(2).height:  0  ->  25     (1 - kortin korkeus)",
                 "25"},
        Repaired{"field(2).fontName", "Outo Fontti", "", "MS Sans Serif"},
        Repaired{"field(2).fontName", "Tahoma", "", "Tahoma"},
        Repaired{"field(2).fontSize", "33", "field(2).fontSize:  33  ->  8     (4 - 32)", "8"},
        Repaired{"field(2).fontBold", "7", "field(2).fontBold:  7  ->  0     (0 tai -1)", "0"},
        Repaired{"field(2).tabIndex", "991", "", "0"},
        Repaired{"field(2).tabIndex", "99999", "", "0"}, Repaired{"field(2).align", "3", "", "0"},
        Repaired{"field(2).scaling", "4", "", "0"}, Repaired{"field(2).border", "-1", "", "0"},
        Repaired{"field(2).border", "1.5", "", "2"}, Repaired{"field(2).linkitys", "7", "", "-1"},
        Repaired{"field(2).linkki", "3", "", "0"}));

TEST_F(ReadCard, LongTextsAreCutAndTold) {
    std::string const caption(101, 'x');
    value("field(1).caption", caption);
    ASSERT_TRUE(read());
    EXPECT_TRUE(report_has("field(1 ).caption:  " + caption + "  ->  " + caption.substr(1) +
                           "     (max 100 merkkiä)"));
}

TEST_F(ReadCard, APictureThatWasNeverChosenIsNone) {
    value("card.picture", std::string(150, '\0'));
    ASSERT_TRUE(read());
    EXPECT_TRUE(card.picture.is_blank());
}

TEST_F(ReadCard, NumbersAreJudgedAsTheyAreWritten) {
    value("field(2).left", "32767.4");
    value("field(2).tabIndex", "990.4");
    value("card.transp", "-0.4");
    value("field(1).linkitys", "0.4");
    value("field(2).size", "50.5");
    ASSERT_TRUE(read());
    EXPECT_TRUE(report_has("field(2).left:  31111  ->  20     (1 - kortin leveys)"));
    EXPECT_TRUE(report_has("Kenttien läpinäkyvyys kortilla:  0  ->  -1     (0 tai -1)"));
    EXPECT_EQ(field(2).tabIndex, 0);
    EXPECT_EQ(field(2).size, 50); // what stands is rounded, to the even neighbour
    EXPECT_EQ(field(1).linkitys.number(), -1);
    value("card.width", " 1e999 ");
    ASSERT_TRUE(read());
    EXPECT_TRUE(report_has("card.width:  1e999  ->  300     (60 - 3000)"));
}

TEST_F(ReadCard, TheHighestNumberIsComparedAsItIsStored) {
    for (auto const& [lowest, highest, stored] : {std::tuple{"1.3", "1.3", 101.3F},
                                                  {"16777216", "16777217", 16777316.0F},
                                                  {"1.3", "1.4", 1.4F},
                                                  {"1", "-1e300", 101.0F}}) {
        value("card.asiakasMin", lowest);
        value("card.asiakasMax", highest);
        ASSERT_TRUE(read());
        EXPECT_EQ(card.asiakasMax, stored) << highest;
    }
}

TEST_F(ReadCard, TooManyFieldsGiveAnEmptyCard) {
    value("card.fields", "301");
    ASSERT_TRUE(read());
    EXPECT_EQ(card.fields, 0);
    EXPECT_EQ(fields.size(), 1U);
}

TEST_F(ReadCard, OneItemThatHoldsEveryKeyIsReadOnce) {
    // All keys in one line of a megabyte: looking for its end again for each would take minutes.
    text = "Norvak Cardfile\r\n=300 ";
    for (auto const& member : card_members())
        for (int i = member.first; i <= member.last; ++i)
            text += card_key(member, i) + " ";
    for (int i = 1; i <= 300; ++i)
        for (auto const& member : field_members())
            text += field_key(member, i) + " ";
    text += std::string(800'000, 'x');
    ASSERT_TRUE(read());
    EXPECT_EQ(card.fields, 300);
    EXPECT_EQ(field(300).left, 300);
    EXPECT_LT(report.size(), 120'000U);
}

} // namespace kehystin
