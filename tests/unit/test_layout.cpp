#include "forms/editor_form.h"
#include "layout/align.h"
#include "layout/auto_place.h"
#include "layout/density.h"
#include "panel/selection_rows.h"
#include "surface/load_card.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

class Layout : public FreshSession {
  protected:
    void SetUp() override {
        start();
        card.width = 400;
        card.height = 300;
    }
    void build() {
        ASSERT_TRUE(load_card());
        session.cardModified = false;
    }
    static void select(std::initializer_list<int> numbers) {
        for (int const number : numbers)
            fCard->focus(number).Visible = true;
        set_pro();
    }
    static void expect_tops(std::initializer_list<int> tops) {
        int number = 0;
        for (int const top : tops) {
            ++number;
            EXPECT_EQ(field(number).top, top) << number;
            EXPECT_EQ(fCard->focus(number).Top, top - 1) << number;
        }
    }
};

TEST_F(Layout, TheMiddleIsRoundedOnceWithTiesToEven) {
    add_field(Style::TXT, 10, 10, 20, 20);
    add_field(Style::TXT, 71, 50, 30, 20);
    build();
    select({1, 2});
    cmd_align_center_Click(); // 45.5 + 10 - 10 and 45.5 + 10 - 15
    EXPECT_EQ(field(1).left, 46);
    EXPECT_EQ(field(2).left, 40);
    field(1).left = 10;
    field(1).width = 21;
    field(2).left = 70;
    cmd_align_center_Click(); // 45 + 10 - 10.5
    EXPECT_EQ(field(1).left, 44);
}

TEST_F(Layout, FileListsStayWhereTheyAreShown) {
    add_field(Style::LST, 50, 10, 100, 60);
    add_field(Style::OTS, 20, 100, 80, 16, "Nimi");
    build();
    select({1, 2});
    cmd_align_left_Click();
    EXPECT_EQ(field(1).left, 20);
    EXPECT_EQ(fCard->focus(1).Left, 19);
    EXPECT_EQ(fCard->lst(1).Left, 50);
    EXPECT_EQ(fCard->ots(2).Left, 20);
    EXPECT_EQ(fEditor->txt_left.Text.get(), "20");
    cmd_align_right_Click(); // the list reaches 120
    EXPECT_EQ(field(2).left, 40);
    EXPECT_EQ(fEditor->txt_left.Text.get(), "");
}

TEST_F(Layout, AnOverflowMovesNothing) {
    add_field(Style::TXT, 10, 10, 20, 20);
    add_field(Style::TXT, 100, 50, 20, 20);
    build();
    select({1, 2});
    field(2).left = 32760;
    EXPECT_THROW(cmd_align_right_Click(), RuntimeError);
    EXPECT_EQ(field(1).left, 10);
    EXPECT_FALSE(session.cardModified);
}

TEST_F(Layout, AFarEdgeIsInTheWayOfNoOther) {
    add_field(Style::TXT, 100, 10, 20, 20);
    add_field(Style::TXT, 32700, 32000, 100, 2000);
    build();
    host.answers.assign(9, Answer::ok); // linking cannot reach so far
    select({1, 2});
    cmd_align_center_Click();
    EXPECT_EQ(field(1).left, 16440); // (32800 - 100) / 2 + 100 - 10
    cmd_valign_top_Click();
    EXPECT_EQ(field(2).top, 10);
    field(2).left = 32700;
    cmd_align_left_Click();
    EXPECT_EQ(field(2).left, field(1).left);
}

TEST_F(Layout, NothingSelectedStillMarksTheCard) {
    add_field(Style::TXT, 10, 10, 20, 20);
    build();
    cmd_valign_bottom_Click();
    EXPECT_EQ(field(1).top, 10);
    EXPECT_TRUE(session.cardModified);
}

// The gap between the first two data fields is 10.
TEST_F(Layout, DensityStacksTheDataFieldsAndTitlesFollow) {
    add_field(Style::OTS, 10, 18, 80, 16, "Nimi");
    add_field(Style::TXT, 100, 20, 100, 20);
    add_field(Style::TXT, 100, 50, 100, 20);
    add_field(Style::CHK, 220, 55, 100, 16, "Kyllä");
    add_field(Style::OTS, 10, 200, 80, 16, "Irti");
    build();
    field(1).list = "3|2";
    fEditor->cmd_link_automatic.Checked = false;
    cmd_dense_Click(); // 20 + 20 + 8, then 48 + 20 + 8 and 4 more before the check box
    expect_tops({52, 20, 48, 80, 200});
    EXPECT_TRUE(session.cardModified);
    EXPECT_EQ(fCard->txt(3).Top, 48);
    EXPECT_EQ(field(4).left, 220);
}

TEST_F(Layout, DensitySortsTheRecordsAndLeavesTheRoles) {
    add_field(Style::TXT, 100, 90, 100, 20);
    add_field(Style::TXT, 100, 30, 100, 20);
    add_field(Style::CHK, 100, 30, 100, 16, "Kyllä");
    card.fldSpeci[3] = 1;
    build();
    fCard->Move(600, 450);
    cmd_expand_Click(); // the first two stand side by side: -20 + 2
    EXPECT_TRUE(field(2).is(Style::CHK));
    expect_tops({30, 36, 38});
    EXPECT_EQ(card.fldSpeci[3], 1);
    EXPECT_EQ(fCard->Left, 600);
    EXPECT_EQ(fEditor->cmb_field.ListIndex, 0);
}

TEST_F(Layout, OneDataFieldOnlyDrawsItsTitle) {
    add_field(Style::OTS, 10, 50, 80, 16, "Nimi");
    add_field(Style::IMG, 100, 60, 60, 60, "[Ei kuvaa]");
    build();
    cmd_dense_Click();
    expect_tops({60, 60}); // an image is not sunken
}

TEST_F(Layout, TitlesOfSeveralFieldsGoBesideTheFirst) {
    add_field(Style::OTS, 10, 90, 80, 16, "Monta");
    add_field(Style::OTS, 10, 120, 80, 16, "Yksi");
    add_field(Style::CHK, 100, 40, 100, 16, "Kyllä");
    add_field(Style::TXT, 100, 70, 100, 20);
    build();
    fEditor->cmd_link_automatic.Checked = false;
    field(1).list = "3|4";
    field(2).list = "4";
    host.answers = {Answer::cancel};
    cmd_valign_link_Click();
    EXPECT_FALSE(session.cardModified);
    host.answers = {Answer::ok};
    cmd_valign_link_Click();
    expect_tops({44, 120, 40, 70});
    EXPECT_EQ(fCard->ots(1).Top, 44);
    // Each title takes its place when its turn comes: the second goes by where the first is now.
    field(2).list = "1|4";
    field(3).top = 80;
    host.answers = {Answer::ok};
    cmd_valign_link_Click();
    EXPECT_EQ(field(1).top, 84);
    EXPECT_EQ(field(2).top, 88);
}

class AutoPlacing : public Layout {
  protected:
    void SetUp() override {
        Layout::SetUp();
        add_field(Style::OTS, 200, 200, 80, 16, "Nimi");
        add_field(Style::TXT, 300, 100, 80, 20);
        add_field(Style::CHK, 300, 130, 80, 16, "Kyllä");
        add_field(Style::OTS, 7, 8, 80, 16, "Irti");
        field(1).list = "2|3";
        build();
        fEditor->cmd_link_automatic.Checked = false;
        field(1).list = "2|3";
        field(4).list = "";
    }
    static void expect_place(int number, int left, int top) {
        EXPECT_EQ(field(number).left, left) << number;
        EXPECT_EQ(field(number).top, top) << number;
    }
};

TEST_F(AutoPlacing, PutsFieldsBelowTheirTitle) {
    host.answers = {Answer::yes, Answer::ok};
    cmdAutoPlace_Click();
    expect_place(1, 25, 20);
    expect_place(2, 20, 40);
    expect_place(3, 20, 70);
    expect_place(4, 25, 96);
    EXPECT_EQ(card.height, 146);
    EXPECT_EQ(card.width, 400);
    EXPECT_FALSE(session.cardModified);
}

TEST_F(AutoPlacing, OrBesideIt) {
    host.answers = {Answer::yes};
    AutoPlace(2);
    expect_place(2, 120, 20);
    expect_place(3, 120, 30); // twenty above where the field before it ended, with the gap of ten
    expect_place(4, 25, 56);
}

TEST_F(AutoPlacing, ANoPutsEverythingBack) {
    host.answers = {Answer::no};
    AutoPlace(1);
    expect_place(1, 200, 200);
    expect_place(3, 300, 130);
    EXPECT_EQ(card.height, 300);
    EXPECT_EQ(fCard->txt(2).Left, 300);
}

TEST_F(AutoPlacing, ANumberWithoutAFieldChangesNothing) {
    field(1).list = "2|9";
    EXPECT_THROW(AutoPlace(1), RuntimeError);
    expect_place(1, 200, 200);
    expect_place(2, 300, 100);
}

} // namespace kehystin
