#include "cardfile/save_checks.h"

#include "surface/load_card.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

class SaveChecks : public FreshSession {
  protected:
    void SetUp() override {
        start();
        card.width = 500;
        card.height = 500;
        card.transp = -1;
        card.color = colours::light_grey;
        host.on_box = [this] {
            for (int i = 1; i <= card.fields; ++i)
                red += visual(i).BackColor == colours::red ? std::to_string(i) + " " : "";
        };
    }
    TextControl& visual(int number) { return fCard->visual(field(number).kind()->style, number); }
    std::string captions() {
        std::string all;
        for (int i = 1; i <= card.fields; ++i)
            all += field(i).caption.trimmed() + " ";
        return all;
    }

    std::string red; ///< numbers of the fields that were red while a box stood
};

TEST_F(SaveChecks, OffendingFieldsAreRedWhileTheBoxStands) {
    add_field(Style::OTS, 10, 10, 50, 16, "Turha").backColor = colours::blue;
    add_field(Style::TXT, 400, 400, 50, 20).backColor = colours::white;
    add_field(Style::CHK, 400, 430, 80, 16, "Rasti").backColor = colours::blue;
    field(1).value = "NOLINK";
    ASSERT_TRUE(load_card());
    host.answers.push_back(Answer::ok);
    EXPECT_FALSE(chk_nodata());
    EXPECT_EQ(red, "2 3 ");
    EXPECT_EQ(visual(2).BackColor, colours::white);
    // On a transparent card a check field goes back to the card's colour.
    EXPECT_EQ(visual(3).BackColor, colours::light_grey);
}

TEST_F(SaveChecks, ATransparentTitleIsOpaqueOnlyWhileItIsMarked) {
    add_field(Style::OTS, 10, 10, 50, 16, "Turha");
    ASSERT_TRUE(load_card());
    int back_style = 0;
    host.on_box = [&] { back_style = fCard->ots(1).BackStyle; };
    host.answers.push_back(Answer::ok);
    EXPECT_TRUE(chk_nolink());
    EXPECT_EQ(back_style, int(BackStyle::opaque));
    EXPECT_EQ(fCard->ots(1).BackStyle, int(BackStyle::transparent));
    EXPECT_EQ(field(1).value.trimmed(), "NOLINK");
}

TEST_F(SaveChecks, FiftyColumnsPassAndFiftyOneAsk) {
    host.on_box = nullptr; // no surface is needed to count
    for (int i = 0; i < 51; ++i)
        add_field(Style::OTS, 0, 0, 10, 10).list = "1";
    host.answers.push_back(Answer::no);
    EXPECT_FALSE(chk_maxdata());
    field(51).list = "";
    EXPECT_TRUE(chk_maxdata());
    EXPECT_EQ(host.boxes.size(), 1U);
}

TEST_F(SaveChecks, UnlinkedTitlesCanBeMovedToTheFront) {
    for (auto const* const caption : {"A", "N1", "B", "N2", "D"})
        add_field(caption[0] == 'D' ? Style::TXT : Style::OTS, 0, 0, 1, 1, caption).value =
            caption[0] == 'N' ? "NOLINK" : "";
    order_nolink();
    EXPECT_EQ(captions(), "N2 N1 A B D ");
}

} // namespace kehystin
