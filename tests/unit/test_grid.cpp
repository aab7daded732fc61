#include "surface/grid.h"

#include "model/settings.h"
#include "platform/input.h"
#include "surface/deleting.h"
#include "surface/load_card.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

class Grid : public FreshSession {
  protected:
    void SetUp() override {
        start();
        card.width = 100;
        card.height = 80;
        settings.gridX = 7;
        settings.gridY = 11;
        settings.guideX = 40;
        settings.guideY = 30;
    }
    void draw(Colour colour) {
        card.color = colour;
        ASSERT_TRUE(load_card());
        upd_gg();
        upd_gg(); // what stood before goes: nothing doubles
    }
    template <class Item>
    std::vector<Item> drawn() {
        std::vector<Item> found;
        for (auto const& item : fCard->drawing().items())
            if (auto const* one = std::get_if<Item>(&item))
                found.push_back(*one);
        return found;
    }
};

TEST_F(Grid, DotsBeginOneStepInAndEndWithTheWindow) {
    draw(colours::light_grey);
    auto const dots = drawn<DrawingLayer::Dots>();
    ASSERT_EQ(dots.size(), 1U);
    EXPECT_EQ(dots[0].points.size(), 14U * 7U);
    EXPECT_EQ(dots[0].points.front(), (std::pair<std::int16_t, std::int16_t>(7, 11)));
    EXPECT_EQ(dots[0].points.back(), (std::pair<std::int16_t, std::int16_t>(98, 77)));
    EXPECT_EQ(dots[0].colour, colours::white);
    EXPECT_TRUE(drawn<DrawingLayer::Line>().empty());
}

TEST_F(Grid, OnlyAWhiteCardHasGreyMarks) {
    draw(colours::white);
    EXPECT_EQ(drawn<DrawingLayer::Dots>()[0].colour, colours::grey);
    draw(RGB(255, 255, 254));
    EXPECT_EQ(drawn<DrawingLayer::Dots>()[0].colour, colours::white);
}

TEST_F(Grid, GuidesRunAcrossTheWholeWindow) {
    fEditor->cmd_grid_show.Checked = false;
    fEditor->cmd_guide_show.Checked = true;
    draw(colours::white);
    auto const guides = drawn<DrawingLayer::Line>();
    ASSERT_EQ(guides.size(), 4U);
    EXPECT_EQ(guides[0].y1, 30);
    EXPECT_EQ(guides[0].x2, 100);
    EXPECT_EQ(guides[3].x1, 80);
    EXPECT_EQ(guides[3].y2, 80);
    EXPECT_TRUE(drawn<DrawingLayer::Dots>().empty());
}

TEST_F(Grid, MarksAreDrawnAnewWhereverTheSurfaceOrTheCommandChanges) {
    card.fields = 0;
    add_field(Style::OTS, 10, 10, 20, 16, "A");
    add_field(Style::OTS, 10, 40, 20, 16, "B");
    draw(colours::light_grey);
    auto& form = *fEditor;
    form.cmd_grid_show.Click(-1);
    EXPECT_TRUE(fCard->drawing().empty());
    form.cmd_grid_show.Click(-1);
    EXPECT_EQ(drawn<DrawingLayer::Dots>().size(), 1U);
    form.cmd_guide_show.Click(-1);
    EXPECT_EQ(drawn<DrawingLayer::Line>().size(), 4U);
    form.cmb_field.ListIndex = 2;
    host.answers.assign(1, Answer::ok);
    cmd_field_del_Click();
    EXPECT_EQ(card.fields, 1);
    EXPECT_EQ(drawn<DrawingLayer::Line>().size(), 4U);
    form.cmd_guide_snap.Checked = false;
    host.answers.assign(1, Answer::yes);
    form.cmd_guide_snap.Click(-1);
    EXPECT_EQ(field(1).left, 0);
    EXPECT_EQ(drawn<DrawingLayer::Line>().size(), 4U);
    EXPECT_EQ(drawn<DrawingLayer::Dots>().size(), 1U);
    // White is the one colour of a card that asks for grey marks.
    form.proBar.Visible = true;
    form.cmb_field.ListIndex = 0;
    host.answers.assign(1, scenario::ColourAnswer{colours::white});
    input::click(form.BC);
    EXPECT_EQ(drawn<DrawingLayer::Dots>()[0].colour, colours::grey);
    // A larger window has room for more of both, once the button is up.
    host.button_down = true;
    input::resize(*fCard, 130 * 15, 80 * 15);
    host.clock.run(60);
    EXPECT_EQ(drawn<DrawingLayer::Line>().size(), 4U);
    host.button_down = false;
    host.clock.run(60);
    EXPECT_EQ(drawn<DrawingLayer::Line>().size(), 5U);
    EXPECT_EQ(drawn<DrawingLayer::Dots>()[0].points.size(), 18U * 7U);
}

TEST_F(Grid, WithoutASpacingThereAreNoMarks) {
    fEditor->cmd_guide_show.Checked = true;
    for (int const none : {0, -3}) {
        settings.gridX = settings.guideY = none;
        draw(colours::white);
        EXPECT_TRUE(fCard->drawing().empty()) << none;
        EXPECT_EQ(snapped(13, none), 13);
    }
}

TEST_F(Grid, ARebuiltCardStandsWhereItStood) {
    card.fields = 0;
    add_field(Style::OTS, 10, 10, 20, 16, "A");
    draw(colours::light_grey);
    fEditor->cmd_card_autocenter.Checked = false;
    fCard->Move(1234, 5678);
    fEditor->cmd_guide_snap.Checked = false;
    host.answers.assign(1, Answer::yes);
    fEditor->cmd_guide_snap.Click(-1);
    EXPECT_EQ(fCard->Left, 1234);
    EXPECT_EQ(fCard->Top, 5678);
}

} // namespace kehystin
