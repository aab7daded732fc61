#include "surface/undo.h"

#include "surface/load_card.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

class Undo : public FreshSession {
  protected:
    void SetUp() override {
        start();
        card.width = 300;
        card.height = 200;
        add_field(Style::OTS, 20, 30, 80, 16, "Nimi");
        add_field(Style::TXT, 110, 28, 150, 21);
        ASSERT_TRUE(load_card());
    }
    static void expect_place(int number, int left, int top) {
        EXPECT_EQ(field(number).left, left) << number;
        EXPECT_EQ(field(number).top, top) << number;
    }
};

TEST_F(Undo, PutsPlacesBackAndNothingElse) {
    undo(0);
    field(1).left = 200;
    field(1).top = 150;
    field(1).width = 44;
    field(2).left = 7;
    field(2).caption = "Toinen";
    undo(1);
    expect_place(1, 20, 30);
    expect_place(2, 110, 28);
    EXPECT_EQ(field(1).width, 44);
    EXPECT_EQ(field(2).caption.trimmed(), "Toinen");
    EXPECT_EQ(fCard->ots(1).Left, 20);
    EXPECT_EQ(fCard->ots(1).Width, 44);
}

TEST_F(Undo, OneSnapshotServesAgainAndIsReplacedByTheNext) {
    undo(0);
    field(1).left = 50;
    undo(1);
    field(1).left = 60;
    undo(1);
    expect_place(1, 20, 30);
    field(1).left = 70;
    undo(0);
    field(1).left = 80;
    undo(1);
    expect_place(1, 70, 30);
}

TEST_F(Undo, WhatHasNoPlaceInTheSnapshotGoesToTheCorner) {
    undo(1);
    expect_place(1, 0, 0);
    expect_place(2, 0, 0);
    field(1).left = 9;
    undo(0);
    add_field(Style::TXT, 40, 60, 150, 21);
    undo(1);
    expect_place(1, 9, 0);
    expect_place(3, 0, 0);
}

TEST_F(Undo, AnyOtherModeOnlyFitsTheSnapshotToTheFields) {
    undo(0);
    field(1).left = 50;
    undo(2);
    undo(-1);
    expect_place(1, 50, 30);
    card.fields = 1;
    undo(7);
    card.fields = 2;
    undo(1);
    expect_place(1, 20, 30);
    expect_place(2, 0, 0);
}

TEST_F(Undo, ACardWithoutFieldsHasNothingToRemember) {
    card.fields = 0;
    fields.resize(1);
    undo(0);
    undo(1);
    EXPECT_EQ(card.fields, 0);
    EXPECT_EQ(fEditor->cmb_field.ListCount(), 1);
}

} // namespace kehystin
