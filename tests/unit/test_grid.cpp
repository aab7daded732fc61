#include "surface/grid.h"

#include "model/settings.h"
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

} // namespace kehystin
