// The panel as a view, where no scenario can look: what lies behind the rows, the timers, and the
// comparison of several fields.
#include "forms/panel_rows.h"
#include "mainwindow/bars.h"
#include "mainwindow/card_size.h"
#include "mainwindow/status_bar.h"
#include "panel/selection_rows.h"
#include "platform/input.h"
#include "platform/system.h"
#include "surface/load_card.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

class PanelRows : public FreshSession {
  protected:
    void SetUp() override {
        start();
        card.width = 600;
        card.height = 400;
        card.fields = 0;
    }
    void show() {
        ASSERT_TRUE(load_card());
        show_card_bars();
        fEditor->cmb_field.ListIndex = 0;
        host.clock.run(100);
    }
    static void select_all() {
        for (int i = 1; i <= card.fields; ++i)
            fCard->focus(i).Visible = true;
        set_pro();
    }
    static std::vector<DrawingLayer::FilledBox> strips() {
        std::vector<DrawingLayer::FilledBox> found;
        for (auto const& item : fEditor->proPic.drawing().items())
            found.push_back(std::get<DrawingLayer::FilledBox>(item));
        return found;
    }
    static bool has_strip(double x1, double y1, double x2, double y2, Colour colour) {
        // The last one drawn over a place is the one that shows.
        auto const all = strips();
        for (auto one = all.rbegin(); one != all.rend(); ++one)
            if (one->x1 == x1 && one->y1 == y1 && one->x2 == x2 && one->y2 == y2)
                return one->colour == colour;
        return false;
    }
};

TEST_F(PanelRows, EveryRowHasItsTwoStrips) {
    show();
    constexpr auto pale = RGB(253, 253, 240);
    // The card's rows are 1995 high: captions at 0 to 1995, values at 0 to 1425.
    EXPECT_EQ(strips().size(), 8U + 6U);
    EXPECT_TRUE(has_strip(0, 0, 1200, 255, pale));
    EXPECT_TRUE(has_strip(0, 1995, 1200, 2250, pale));
    EXPECT_TRUE(has_strip(1230, 0, 2790, 255, colours::white));
    EXPECT_TRUE(has_strip(1230, 1425, 2790, 1680, colours::white));
}

TEST_F(PanelRows, TheStripBehindTheLinkTellsWhetherItIsMadeByHand) {
    add_field(Style::OTS, 20, 20, 80, 16, "A");
    add_field(Style::TXT, 110, 20, 80, 16);
    add_field(Style::TXT, 110, 60, 80, 16).linkitys = true;
    field(3).linkki = 1;
    show();
    constexpr auto grey = RGB(222, 222, 222);
    fEditor->cmb_field.ListIndex = 2;
    double const top = fEditor->txt_linkki.Top - 30;
    double const left = fEditor->txt_linkki.Left - 30;
    EXPECT_TRUE(has_strip(left, top, 2790, top + 255, grey));
    fEditor->cmb_field.ListIndex = 3;
    EXPECT_TRUE(has_strip(left, top, 2790, top + 255, colours::white));
    input::paste(fEditor->txt_linkitys, "auto");
    EXPECT_TRUE(has_strip(left, top, 2790, top + 255, grey));
    input::paste(fEditor->txt_linkitys, "manu");
    EXPECT_TRUE(has_strip(left, top, 2790, top + 255, colours::white));
    fCard->focus(2).Visible = true;
    set_pro();
    double const common = fEditor->txt_linkki.Top - 30;
    EXPECT_TRUE(has_strip(left, common, 2790, common + 255, grey));
}

TEST_F(PanelRows, TwoRowsSelectAsMuchAsAnotherRowHolds) {
    card.name = "Abc";
    add_field(Style::OTS, 20, 20, 80, 16, "Pitempi");
    add_field(Style::TXT, 110, 20, 80, 16).linkitys = true;
    add_field(Style::OTS, 20, 60, 80, 16, "Tämä otsikko on pitkä");
    field(2).linkki = 3;
    show();
    fEditor->cmb_field.ListIndex = 1;
    input::focus(fEditor->txt_caption);
    fEditor->focusTimer.Enabled = true;
    host.clock.run(20);
    EXPECT_EQ(System::current().focused(), &fEditor->txt_caption);
    EXPECT_EQ(fEditor->txt_caption.SelLength, 3);
    EXPECT_FALSE(fEditor->focusTimer.Enabled);
    fEditor->cmb_field.ListIndex = 2;
    input::focus(fEditor->txt_linkki);
    fEditor->focusTimer.Enabled = true;
    host.clock.run(20);
    // "Manuaalinen"
    EXPECT_EQ(fEditor->txt_linkki.SelLength, 11);
}

TEST_F(PanelRows, TheListsRowIsInUseOnlyWhileItsEditorIsOpen) {
    add_field(Style::CMB, 20, 20, 80, 21).list = "Yksi|";
    show();
    auto& form = *fEditor;
    form.cmb_field.ListIndex = 1;
    input::focus(form.txt_list);
    EXPECT_EQ(session.pro_focus, 3);
    form.focusTimer.Enabled = true;
    host.clock.run(20);
    EXPECT_EQ(System::current().focused(), &form.txt_list);
    EXPECT_EQ(session.pro_focus, 0);
    // Without a row in use an open editor gets the keyboard at its first button.
    input::click(form.cmd_list);
    session.pro_focus = 0;
    form.focusTimer.Enabled = true;
    host.clock.run(20);
    EXPECT_EQ(System::current().focused(), &form.cmd_list_add);
    EXPECT_EQ(session.pro_focus, 0);
    EXPECT_TRUE(form.bot_list.Visible);
    // Another row in use closes it.
    input::focus(form.txt_left);
    EXPECT_FALSE(form.bot_list.Visible);
    EXPECT_FALSE(form.cmd_list.Visible);
}

TEST_F(PanelRows, AMinimizedWindowIsFittedOnceItIsBack) {
    show();
    auto& form = *fEditor;
    double const height = form.proBot.Height;
    input::set_window_state(form, WindowState::minimized);
    form.proBot.Height = 1000;
    form.paintTimer.Enabled = true;
    host.clock.run(200);
    EXPECT_EQ(form.proBot.Height, 1000);
    EXPECT_TRUE(form.paintTimer.Enabled);
    input::set_window_state(form, WindowState::normal);
    host.clock.run(50);
    EXPECT_EQ(form.proBot.Height, height);
    EXPECT_FALSE(form.paintTimer.Enabled);
}

TEST_F(PanelRows, ComparingSeveralFieldsKnowsTheseKeys) {
    add_field(Style::IMG, 20, 20, 30, 30);
    add_field(Style::IMG, 60, 20, 30, 30);
    show();
    select_all();
    auto& second = field(2);
    for (auto const key : {"ALIGN", "IMGFILE", "LINKITYS", "LINKKI", "SCALING", "BORDER", "MUU"})
        EXPECT_TRUE(all_same(key)) << key;
    second.align = 1;
    second.list = "kuva.bmp";
    second.linkitys = true;
    second.linkki = 1;
    second.scaling = 2;
    second.border = 1;
    for (auto const key : {"ALIGN", "IMGFILE", "LINKITYS", "LINKKI", "SCALING", "BORDER"})
        EXPECT_FALSE(all_same(key)) << key;
    EXPECT_TRUE(all_same("MUU"));
    // The number that stands for "none seen yet" is taken for just that.
    field(1).left = -333;
    EXPECT_TRUE(all_same("LEFT"));
    field(1).left = 60;
    second.left = -333;
    EXPECT_FALSE(all_same("LEFT"));
    field(1).caption = "StartValue";
    second.caption = "B";
    EXPECT_TRUE(all_same("CAPTION"));
    second.caption = " StartValue ";
    EXPECT_TRUE(all_same("CAPTION"));
    fCard->focus(2).Visible = false;
    EXPECT_TRUE(all_same("ALIGN"));
}

TEST_F(PanelRows, AFieldLeftOfTheCardIsCutAtItsEdge) {
    struct Neighbour {
        int left, neighbour;
        bool free;
    };
    // From -10 on 30 wide the field takes 1 to 19.
    for (auto const [left, neighbour, free] :
         {Neighbour{-10, 20, true}, Neighbour{-10, 19, false}, Neighbour{0, 30, true},
          Neighbour{0, 29, false}, Neighbour{-40, 1, true}, Neighbour{-29, 0, true},
          Neighbour{1, 31, true}, Neighbour{1, 30, false}}) {
        SCOPED_TRACE(testing::Message() << left << " beside " << neighbour);
        card.fields = 0;
        add_field(Style::OTS, left, 10, 30, 10);
        add_field(Style::OTS, neighbour, 40, 30, 10);
        ASSERT_TRUE(load_card());
        select_all();
        EXPECT_EQ(fEditor->cmd_valign_top.Enabled, free);
        EXPECT_TRUE(fEditor->cmd_align_left.Enabled);
    }
}

TEST_F(PanelRows, TheCommandOfTheCardsSizeFitsItAtOnce) {
    add_field(Style::OTS, 20, 20, 80, 16, "A");
    show();
    cmd_card_autosize_Click();
    EXPECT_EQ(card.width, 135);
    EXPECT_EQ(card.height, 81);
    EXPECT_FALSE(fEditor->cmd_card_size.Enabled);
    card.width = 300;
    cmd_card_autosize_Click();
    EXPECT_EQ(card.width, 300);
    EXPECT_TRUE(fEditor->cmd_card_size.Enabled);
}

TEST_F(PanelRows, TheStatusBarTrimsTheCardsName) {
    show();
    card.name = "  Nimi  ";
    upd_sts();
    EXPECT_EQ(fEditor->stsBar.Panels(1), " Nimi  ");
    EXPECT_TRUE(card.name.str().starts_with("Nimi"));
}

} // namespace kehystin
