// What the mouse does to surface, frames and tips beside moving fields: stacking, tags, gates.
#include "mainwindow/card_size.h"
#include "mainwindow/tips.h"
#include "model/settings.h"
#include "platform/input.h"
#include "platform/system.h"
#include "surface/load_card.h"
#include "surface/selection.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

class SurfaceMouse : public FreshSession {
  protected:
    void SetUp() override {
        start();
        card.width = 600;
        card.height = 400;
        fEditor->cmd_grid_snap.Checked = false;
        card.fields = 0;
        add_field(Style::OTS, 20, 20, 60, 16, "A");
        add_field(Style::OTS, 120, 20, 60, 16, "B");
        ASSERT_TRUE(load_card());
    }
    /// The object that stands above all others on the surface.
    static Control* topmost() { return fCard->children().back(); }
    static int pointer() { return System::current().MousePointer(); }
};

TEST_F(SurfaceMouse, WhatIsSelectedComesToTheFront) {
    set_focus(2);
    EXPECT_EQ(topmost(), &fCard->focus(2));
    set_focus(1);
    EXPECT_EQ(topmost(), &fCard->focus(1));
    input::mouse_press(*fCard, 100, 100, false);
    input::mouse_move(*fCard, 110, 110);
    EXPECT_EQ(topmost(), &fCard->bigfocus);
    input::mouse_move(*fCard, 110, 10);
    input::mouse_move(*fCard, 200, 10);
    input::mouse_release(*fCard, 200, 10);
    EXPECT_EQ(topmost(), &fCard->focus(2));
}

TEST_F(SurfaceMouse, ClearingTheSelectionEndsEveryPress) {
    set_focus(1);
    for (int i = 0; i <= 2; ++i)
        fCard->focus(i).set_grab(Grab::move);
    fCard->focus(1).Left = 300;
    fCard->bigfocus.Visible = true;
    fCard->bigfocus.set_grab(Grab::band);
    zip_focus();
    for (int i = 0; i <= 2; ++i) {
        EXPECT_EQ(fCard->focus(i).Tag, "");
        EXPECT_FALSE(fCard->focus(i).Visible);
    }
    EXPECT_EQ(fCard->focus(1).Left, 19);
    EXPECT_FALSE(fCard->bigfocus.Visible);
    EXPECT_EQ(fCard->bigfocus.Tag, "");
}

TEST_F(SurfaceMouse, NothingHappensWhileCodeFillsThePanel) {
    set_focus(1);
    session.pro_updating = true;
    fCard->MouseDown(-1, {1, 0, 300, 300});
    EXPECT_EQ(fCard->bigfocus.Tag, "");
    EXPECT_TRUE(fCard->focus(1).Visible);
    fCard->ots(2).MouseDown(2, {1, 0, 75, 75});
    EXPECT_FALSE(fCard->focus(2).Visible);
    EXPECT_EQ(fCard->focus(2).Tag, "");
    fCard->bigfocus.set_grab(Grab::band);
    System::current().set_MousePointer(6);
    fCard->MouseMove(-1, {1, 0, 310, 310});
    EXPECT_FALSE(fCard->bigfocus.Visible);
    EXPECT_EQ(pointer(), 6);
    fCard->MouseUp(-1, {1, 0, 310, 310});
    EXPECT_EQ(fCard->bigfocus.Tag, "FocusFields");
    EXPECT_EQ(pointer(), 6);
    session.pro_updating = false;
    fCard->MouseUp(-1, {1, 0, 310, 310});
    EXPECT_EQ(fCard->bigfocus.Tag, "");
}

TEST_F(SurfaceMouse, TheSecondButtonDrawsABandAsWell) {
    input::mouse_press(*fCard, 10, 10, false, 2);
    input::mouse_move(*fCard, 200, 50);
    EXPECT_TRUE(fCard->bigfocus.Visible);
    input::mouse_release(*fCard, 200, 50);
    EXPECT_EQ(selected_fields(), (std::vector{1, 2}));
}

TEST_F(SurfaceMouse, AfterAStepThatFailedNothingIsUnderWay) {
    field(2).left = 32000;
    ASSERT_TRUE(load_card());
    set_focus(2);
    input::mouse_press(*fCard, 30, 28, true);
    System::current().set_MousePointer(8);
    fCard->bigfocus.set_grab(Grab::through, "CMB");
    host.answers.assign(1, Answer::ok);
    input::mouse_move(*fCard, 1030, 28);
    EXPECT_EQ(host.boxes.size(), 1U);
    for (int i = 1; i <= 2; ++i)
        EXPECT_EQ(fCard->focus(i).Tag, "");
    EXPECT_EQ(fCard->bigfocus.Tag, "");
    EXPECT_EQ(pointer(), 0);
    fCard->ots(1).MouseMove(1, {1, 0, 900, 300});
    EXPECT_EQ(fCard->focus(1).Left, 19);
    fCard->MouseMove(-1, {1, 0, 300, 300});
    EXPECT_FALSE(fCard->bigfocus.Visible);
    fCard->ots(1).MouseUp(1, {1, 0, 900, 300});
    EXPECT_EQ(field(1).left, 20);
    EXPECT_EQ(field(2).left, 32000);
}

TEST_F(SurfaceMouse, EveryStepOfADragBringsTheStatusBarUpToDate) {
    auto& bar = fEditor->stsBar;
    bar.Visible = true;
    input::mouse_press(*fCard, 30, 28, false);
    bar.set_Panels(3, "old");
    input::mouse_move(*fCard, 35, 28);
    EXPECT_EQ(bar.Panels(3), " Sijainti:  20, 20  ");
    bar.set_Panels(3, "old");
    bar.Visible = false;
    input::mouse_move(*fCard, 40, 28);
    EXPECT_EQ(bar.Panels(3), "old");
    input::mouse_release(*fCard, 40, 28);
}

TEST_F(SurfaceMouse, TheFieldBarTakesTipAndPointerAway) {
    fEditor->fldBar.Visible = true;
    host.hover(&fEditor->drag_ots);
    host.clock.run(500);
    ASSERT_TRUE(fTip && fTip->Visible);
    fEditor->drag_ots.MouseDown(-1, {1, 0, 10, 10});
    EXPECT_FALSE(fTip);
    EXPECT_EQ(fEditor->tipTimer.Interval, 500);
    System::current().set_MousePointer(8);
    fEditor->fldBar.MouseMove(-1, {0, 0, 10, 10});
    EXPECT_EQ(pointer(), 0);
}

TEST_F(SurfaceMouse, TwoThousandFieldsAreBandedMovedAndDeleted) {
    for (int i = 3; i <= 2000; ++i)
        add_field(i % 2 == 0 ? Style::TXT : Style::OTS, 20 + i % 50 * 10, 60 + i % 30 * 10, 8, 8);
    ASSERT_TRUE(load_card());
    input::mouse_press(*fCard, 590, 390, false);
    input::mouse_move(*fCard, 0, 0);
    input::mouse_release(*fCard, 0, 0);
    EXPECT_EQ(selected_fields().size(), 2000U);
    input::mouse_press(*fCard, 50, 28, true);
    input::mouse_move(*fCard, 57, 31);
    input::mouse_release(*fCard, 57, 31);
    EXPECT_EQ(field(1).left, 27);
    EXPECT_EQ(field(2000).left, 27);
    EXPECT_EQ(field(2000).top, 60 + 2000 % 30 * 10 + 3);
    host.answers = {Answer::ok};
    input::click(fEditor->cmd_field_del);
    EXPECT_EQ(card.fields, 0);
}

TEST_F(SurfaceMouse, ACardThatCannotBeFittedKeepsSizeAndSelection) {
    set_focus(2);
    field(1).top = 32740;
    EXPECT_THROW(fit_card(), RuntimeError);
    EXPECT_EQ(card.width, 600);
    EXPECT_EQ(fEditor->cmb_field.ListIndex, 2);
}

} // namespace kehystin
