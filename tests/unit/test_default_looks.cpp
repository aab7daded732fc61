#include "model/default_looks.h"

#include "tests/unit/fresh_session.h"

namespace kehystin {

class DefaultLook : public FreshSession {
  protected:
    void SetUp() override { start(); }
};

TEST_F(DefaultLook, FollowsTheLastFieldOfEachKind) {
    add_field(Style::TXT, 0, 0, 10, 20);
    auto& last = add_field(Style::TXT, 0, 0, 30, 40);
    last.fontName = "Arial";
    last.fontBold = -1;
    last.fontItalic = -1;
    last.foreColor = colours::red;
    last.backColor = colours::blue;
    UpdDefVar();
    auto const& look = default_look(Style::TXT);
    EXPECT_EQ(look.fontName, "Arial");
    EXPECT_TRUE(look.fontBold && look.fontItalic);
    EXPECT_EQ(look.foreColor, colours::red);
    EXPECT_EQ(look.backColor, colours::blue);
    EXPECT_EQ(look.width, 30);
    EXPECT_EQ(look.height, 40);
    EXPECT_EQ(default_look(Style::STX).width, 360);
    EXPECT_EQ(default_look(Style::IMG).border, 1);
    EXPECT_EQ(default_look(Style::TXT).border, 0);
}

TEST_F(DefaultLook, FollowsTheWizardsCardUpToItsFirstTitleBehindATextField) {
    add_field(Style::TXT, 0, 0, 10, 11);
    add_field(Style::TXT, 0, 0, 20, 21);
    add_field(Style::OTS, 0, 0, 30, 31);
    add_field(Style::TXT, 0, 0, 40, 41);
    UpdateDefaultFont();
    for (auto const style : {Style::TXT, Style::STX, Style::CMB}) {
        EXPECT_EQ(default_look(style).width, 20);
        EXPECT_EQ(default_look(style).height, 21);
        EXPECT_EQ(default_look(style).caption, "Uusi");
    }
    for (auto const style : {Style::OTS, Style::CHK, Style::OPT})
        EXPECT_EQ(default_look(style).width, 30);
    EXPECT_EQ(default_look(Style::LST).width, 20);
    EXPECT_EQ(default_look(Style::LST).height, 63);
}

} // namespace kehystin
