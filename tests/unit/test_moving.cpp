// The mouse on the fields: zones, smallest sizes, snapping and the ends of the number range, kind
// by kind. What a user does with them as a whole stands in the scenarios.
#include "model/settings.h"
#include "platform/input.h"
#include "platform/system.h"
#include "surface/load_card.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

namespace {

constexpr int left = 100;
constexpr int top = 50;
constexpr int width = 60;
constexpr int height = 40;

} // namespace

class Moving : public FreshSession {
  protected:
    void SetUp() override {
        start();
        card.width = 600;
        card.height = 400;
        fEditor->cmd_grid_snap.Checked = false;
    }
    /// A card with one field, which is selected.
    void show(Style style) {
        card.fields = 0;
        add_field(style, left, top, width, height, "A").value = "0";
        ASSERT_TRUE(load_card());
        fEditor->cmb_field.ListIndex = 1;
    }
    // Points are those of the field.
    static void press(double x, double y, bool modifier = false) {
        input::mouse_press(*fCard, field(1).left + x, field(1).top + y, modifier);
    }
    static void move(double x, double y) {
        input::mouse_move(*fCard, field(1).left + x, field(1).top + y);
    }
    static void release() { input::mouse_release(*fCard, 0, 0); }
    static Shape& frame(int number = 1) { return fCard->focus(number); }

    /// What a press there begins. The button comes up again, and nothing has changed.
    static std::string grab(double x, double y) {
        press(x, y);
        auto const tag = frame().Tag.get();
        release();
        EXPECT_EQ(field(1).width, width);
        return tag.starts_with("ScaleField_") ? tag.substr(11) : tag;
    }
    static int pointer(double x, double y) {
        move(x, y);
        return System::current().MousePointer();
    }
    /// To the right and down. Drop-downs are taken by their corner, others away from their edges.
    static void drag(double x, double y) {
        bool const by_corner = field(1).is(Style::CMB);
        double const from_x = by_corner ? 0 : 30;
        double const from_y = by_corner ? 0 : 8;
        press(from_x, from_y);
        if (x != 0 || y != 0)
            move(from_x + x, from_y + y);
        release();
    }
    /// Where the field stands after a drag by that much.
    static int dragged_left(double pixels) {
        press(30, 8);
        move(30 + pixels, 8);
        release();
        return field(1).left;
    }
};

TEST_F(Moving, EachKindHasItsOwnZonesForAPress) {
    struct Zones {
        Style style;
        double near;
        double far;
    };
    using enum Style;
    for (auto const [style, near, far] :
         {Zones{CHK, 5, 5}, Zones{OPT, 5, 5}, Zones{OTS, 4, 4}, Zones{TXT, 4, 8}, Zones{STX, 4, 8},
          Zones{LST, 4, 8}, Zones{IMG, 4, 4}}) {
        SCOPED_TRACE(code_of(style));
        show(style);
        double const right = width - far;
        double const bottom = height - far;
        EXPECT_EQ(grab(near - 1, 20), "W");
        EXPECT_EQ(grab(near, 20), "MoveField");
        EXPECT_EQ(grab(right, 20), "MoveField");
        EXPECT_EQ(grab(right + 1, 20), "E");
        EXPECT_EQ(grab(30, near - 1), "N");
        EXPECT_EQ(grab(30, near), "MoveField");
        EXPECT_EQ(grab(30, bottom), "MoveField");
        EXPECT_EQ(grab(30, bottom + 1), "S");
        EXPECT_EQ(grab(near - 1, near - 1), "NW");
        EXPECT_EQ(grab(right + 1, near - 1), "NE");
        EXPECT_EQ(grab(right + 1, bottom + 1), "SE");
        EXPECT_EQ(grab(1, bottom + 1), "SW");
        EXPECT_EQ(grab(2, bottom + 1), "W");
    }
}

TEST_F(Moving, OnASmallFieldTheFirstZoneCounts) {
    card.fields = 0;
    add_field(Style::TXT, left, top, 6, 6);
    ASSERT_TRUE(load_card());
    fEditor->cmb_field.ListIndex = 1;
    press(3, 3);
    EXPECT_EQ(frame().Tag.get(), "ScaleField_NW");
    release();
    press(4, 4);
    EXPECT_EQ(frame().Tag.get(), "ScaleField_SE");
    release();
    press(4, 3);
    EXPECT_EQ(frame().Tag.get(), "ScaleField_SE");
    release();
}

TEST_F(Moving, EachKindHasItsOwnZonesForThePointer) {
    struct Zones {
        Style style;
        double side;
    };
    using enum Style;
    for (auto const [style, side] : {Zones{CHK, 4}, Zones{OPT, 4}, Zones{OTS, 4}, Zones{TXT, 8},
                                     Zones{STX, 8}, Zones{LST, 8}, Zones{IMG, 4}}) {
        SCOPED_TRACE(code_of(style));
        show(style);
        EXPECT_EQ(pointer(30, 20), 0);
        EXPECT_EQ(pointer(3, 20), 9);
        EXPECT_EQ(pointer(4, 20), 0);
        EXPECT_EQ(pointer(width - side, 20), 0);
        EXPECT_EQ(pointer(width - side + 1, 20), 9);
        EXPECT_EQ(pointer(30, 3), 7);
        EXPECT_EQ(pointer(30, 4), 0);
        EXPECT_EQ(pointer(30, height - side), 0);
        EXPECT_EQ(pointer(30, height - side + 1), 7);
        EXPECT_EQ(pointer(3, 3), 8);
        EXPECT_EQ(pointer(4, 3), style == CHK ? 8 : 7);
        EXPECT_EQ(pointer(5, 3), 7);
        EXPECT_EQ(pointer(width - 3, height - 3), 8);
        EXPECT_EQ(pointer(width - 3, 3), 6);
        EXPECT_EQ(pointer(1, height - 3), 6);
        EXPECT_EQ(pointer(2, height - 3), 9);
    }
}

TEST_F(Moving, EachKindHasItsOwnSmallestSize) {
    struct Smallest {
        Style style;
        double size;
    };
    using enum Style;
    for (auto const [style, size] :
         {Smallest{CHK, 14}, Smallest{OPT, 14}, Smallest{OTS, 2}, Smallest{TXT, 2},
          Smallest{STX, 2}, Smallest{LST, 2}, Smallest{IMG, 2}}) {
        SCOPED_TRACE(code_of(style));
        show(style);
        press(width - 1, 20);
        move(size, 20);
        EXPECT_EQ(frame().Width, size);
        move(size - 1, 20);
        EXPECT_EQ(frame().Width, size);
        release();
        show(style);
        press(30, height - 1);
        move(30, size);
        EXPECT_EQ(frame().Height, size);
        move(30, size - 1);
        EXPECT_EQ(frame().Height, size);
        release();
        show(style);
        press(0, 20);
        move(width - size, 20);
        EXPECT_EQ(frame().Left, left + width - size - 1);
        EXPECT_EQ(frame().Width, size + 3);
        move(width - size + 1, 20);
        EXPECT_EQ(frame().Width, size + 3);
        release();
        show(style);
        press(30, 0);
        move(30, height - size);
        EXPECT_EQ(frame().Top, top + height - size - 1);
        EXPECT_EQ(frame().Height, size + 3);
        move(30, height - size + 1);
        EXPECT_EQ(frame().Height, size + 3);
        release();
    }
}

TEST_F(Moving, ACornerFollowsInBothDirectionsOrNotAtAll) {
    struct Corner {
        double x;
        double y;
    };
    for (auto const [x, y] : {Corner{0, 0}, Corner{59, 0}, Corner{0, 39}, Corner{59, 39}}) {
        show(Style::OTS);
        press(x, y);
        // Over the opposite edge in one direction, well inside in the other.
        move(x == 0 ? 70 : -10, 20);
        move(30, y == 0 ? 50 : -10);
        EXPECT_EQ(frame().Width, width + 2);
        EXPECT_EQ(frame().Height, height + 2);
        release();
        EXPECT_EQ(field(1).left, left);
        EXPECT_EQ(field(1).top, top);
    }
}

TEST_F(Moving, PlacesGoToTheNearestLineHalvesToTheHigher) {
    fEditor->cmd_grid_snap.Checked = true;
    settings.gridX = 10;
    settings.gridY = 10;
    struct Drag {
        Style style;
        int grid;
        int from;
        double by;
        int to;
    };
    // Drop-downs are not stopped at the edge.
    for (auto const [style, grid, from, by, to] :
         {Drag{Style::OTS, 10, 12, 7, 20}, Drag{Style::OTS, 10, 10, 5, 20},
          Drag{Style::OTS, 10, 10, 4.9, 10}, Drag{Style::OTS, 7, 10, 0, 7},
          Drag{Style::OTS, 7, 11, 0, 14}, Drag{Style::CMB, 10, 5, -10, 0},
          Drag{Style::CMB, 10, 5, -11, -10}, Drag{Style::CMB, 10, 12, 7, 20}}) {
        SCOPED_TRACE(from);
        settings.gridX = grid;
        show(style);
        field(1).left = from;
        ASSERT_TRUE(load_card());
        EXPECT_EQ(dragged_left(by), to);
        EXPECT_EQ(field(1).top, top);
    }
}

TEST_F(Moving, EachDirectionHasItsOwnSpacing) {
    settings.gridX = 7;
    settings.gridY = 11;
    settings.guideX = 40;
    settings.guideY = 30;
    auto const expect_place = [](int number, int x, int y) {
        EXPECT_EQ(field(number).left, x);
        EXPECT_EQ(field(number).top, y);
    };
    show(Style::OTS); // at 100, 50
    fEditor->fldBar.Visible = true;
    fEditor->cmd_grid_snap.Checked = true;
    input::drop(fEditor->drag_ots, *fCard, 205, 205);
    expect_place(2, 203, 198);
    fEditor->cmd_grid_snap.Checked = false;
    fEditor->cmd_guide_snap.Checked = true;
    input::drop(fEditor->drag_ots, *fCard, 305, 305);
    expect_place(3, 320, 300);
    fEditor->cmb_field.ListIndex = 1;
    drag(15, 20);
    expect_place(1, 120, 60);
    drag(0, 0);
    expect_place(1, 120, 60);
    host.answers.assign(1, Answer::yes);
    fEditor->cmd_grid_snap.Click(-1);
    expect_place(1, 119, 55);
    expect_place(2, 203, 198);
    expect_place(3, 322, 297);
}

TEST_F(Moving, WithoutSnappingHalfAPixelGoesToTheEvenNeighbour) {
    show(Style::OTS);
    EXPECT_EQ(dragged_left(2.5), left + 3);
    show(Style::OTS);
    EXPECT_EQ(dragged_left(3.5), left + 3);
    show(Style::CMB);
    EXPECT_EQ(dragged_left(2.5), left + 2);
}

TEST_F(Moving, AFieldAtTheEndOfTheNumberRangeGoesNoFurther) {
    for (auto const style : {Style::OTS, Style::CMB})
        for (int const end : {-32768, 32767})
            for (bool const across : {true, false}) {
                SCOPED_TRACE(testing::Message() << code_of(style) << " at " << end);
                show(style);
                auto& place = across ? field(1).left : field(1).top;
                place = end;
                ASSERT_TRUE(load_card());
                int const outward = end > 0 ? 50 : -50;
                drag(0, 0);
                EXPECT_EQ(place, end);
                EXPECT_TRUE(host.boxes.empty());
                host.answers.assign(1, Answer::ok);
                drag(outward, outward);
                EXPECT_EQ(place, end);
                EXPECT_EQ(host.boxes.size(), 1U);
                host.boxes.clear();
                drag(-outward, -outward);
                // From above and from the left, all but drop-downs stop inside the card.
                bool const stopped = end < 0 && style != Style::CMB;
                EXPECT_EQ(place, stopped ? 1 : end - outward);
            }
}

TEST_F(Moving, FourKindsCanBePressedThroughTheSurface) {
    struct Pressed {
        Style style;
        std::string_view tag;
    };
    using enum Style;
    for (auto const [style, tag] :
         {Pressed{CHK, "CHK"}, Pressed{OPT, "OPT"}, Pressed{CMB, "CMB"}, Pressed{LST, "LST"},
          Pressed{OTS, "FocusFields"}, Pressed{TXT, "FocusFields"}, Pressed{STX, "FocusFields"},
          Pressed{IMG, "FocusFields"}}) {
        SCOPED_TRACE(tag);
        show(style);
        bool const taken = tag != "FocusFields";
        fCard->MouseDown(-1, {1, 0, left, top});
        EXPECT_EQ(fCard->bigfocus.Tag.get(), tag);
        EXPECT_EQ(frame().Visible, taken);
        fCard->MouseMove(-1, {1, 0, left + 10, top - 7});
        EXPECT_EQ(fCard->bigfocus.Visible, !taken);
        fCard->MouseUp(-1, {1, 0, left + 10, top - 7});
        EXPECT_EQ(fCard->bigfocus.Tag.get(), "");
        EXPECT_EQ(field(1).left, taken ? left + 10 : left);
        EXPECT_EQ(field(1).top, taken ? top - 7 : top);
    }
}

TEST_F(Moving, AnyMouseButtonWillDo) {
    show(Style::OTS);
    fEditor->cmb_field.ListIndex = 0;
    input::mouse_press(*fCard, left + 30, top + 20, false, 2);
    EXPECT_TRUE(frame().Visible);
    move(37, 20);
    release();
    EXPECT_EQ(field(1).left, left + 7);
}

TEST_F(Moving, AReleaseWithoutAPressDoesNothing) {
    show(Style::OTS);
    session.cardModified = false;
    input::mouse_release(*fCard, left + 5, top + 5);
    fCard->ots(1).MouseUp(1, {1, 0, 75, 75});
    EXPECT_TRUE(frame().Visible);
    EXPECT_EQ(field(1).left, left);
    EXPECT_FALSE(session.cardModified);
    fCard->MouseUp(-1, {1, 0, 300, 300});
    EXPECT_FALSE(fCard->bigfocus.Visible);
    EXPECT_EQ(field(1).left, left);
    EXPECT_FALSE(session.cardModified);
}

} // namespace kehystin
