// Selecting, moving and sizing fields with real mouse events on the painted card.
#include "tests/desktop/mouse_program.h"

namespace kehystin {

using Mouse = MouseProgram;

QString const customers = QStringLiteral("examples/asiakkaat.krt");

TEST_F(Mouse, APressSelectsAndItsFrameIsPainted) {
    start(customers);
    auto const corner = place_of(3).topLeft() - QPoint(1, 1);
    auto const bare = canvas()->grab().toImage().pixelColor(corner);
    click(middle_of(3));
    EXPECT_EQ(selected(), QList{3});
    EXPECT_EQ(canvas()->grab().toImage().pixelColor(corner), QColor(255, 0, 0));
    click(middle_of(5), Qt::ShiftModifier);
    EXPECT_EQ(selected(), (QList{3, 5}));
    click(middle_of(2));
    EXPECT_EQ(selected(), QList{2});
    EXPECT_EQ(canvas()->grab().toImage().pixelColor(corner), bare);
    EXPECT_TRUE(is_mouse_free());
}

TEST_F(Mouse, ABandTakesWhatItTouchesAndAModifierKeepsTheRest) {
    start(customers);
    auto const outside = place_of(2).topLeft() - QPoint(6, 2);
    press(place_of(5).bottomRight() + QPoint(4, 3));
    move(outside);
    EXPECT_TRUE(fCard->bigfocus.Visible);
    release(outside);
    EXPECT_EQ(selected(), (QList{2, 3, 4, 5}));
    EXPECT_FALSE(fCard->bigfocus.Visible);
    drag(place_of(6).topLeft() - QPoint(6, 3), place_of(6).topLeft() + QPoint(1, 1),
         Qt::ControlModifier);
    EXPECT_EQ(selected(), (QList{2, 3, 4, 5, 6}));
    click(outside);
    EXPECT_TRUE(selected().isEmpty());
}

TEST_F(Mouse, AFieldMovesAtTheReleaseAndAGroupWithItsModifier) {
    start_free(customers);
    auto const two = place_of(2);
    auto const three = place_of(3);
    press(middle_of(3));
    move(middle_of(3) + QPoint(30, 12));
    EXPECT_EQ(place_of(3), three);
    EXPECT_EQ(fCard->txt(3).Left, three.left());
    EXPECT_EQ(fCard->focus(3).Left, three.left() + 29);
    release(middle_of(3) + QPoint(30, 12));
    EXPECT_EQ(place_of(3), three.translated(30, 12));
    EXPECT_EQ(fCard->txt(3).Left, three.left() + 30);

    click(middle_of(2), Qt::ShiftModifier);
    drag(middle_of(2), middle_of(2) + QPoint(5, 40), Qt::ShiftModifier);
    EXPECT_EQ(place_of(2), two.translated(5, 40));
    EXPECT_EQ(place_of(3), three.translated(35, 52));
    EXPECT_TRUE(static_cast<bool>(session.cardModified));
}

TEST_F(Mouse, ASelectedTitleIsSizedAtEveryEdgeAndCorner) {
    start_free(customers);
    // The title is 100 by 16; the last one presses a pixel beside the narrow corner.
    struct Case {
        QPoint from, to;
        QRect becomes; // from the old corner
    };
    Case const cases[] = {
        {{98, 8}, {150, 8}, {0, 0, 148, 16}},   {{50, 14}, {50, 30}, {0, 0, 100, 28}},
        {{1, 8}, {-9, 8}, {-9, 0, 110, 16}},    {{50, 1}, {50, -9}, {0, -9, 100, 26}},
        {{1, 1}, {-9, -9}, {-9, -9, 110, 26}},  {{98, 14}, {150, 30}, {0, 0, 148, 28}},
        {{98, 1}, {150, -9}, {0, -9, 148, 26}}, {{1, 14}, {-9, 30}, {-9, 0, 110, 28}},
        {{2, 14}, {-9, 30}, {-9, 0, 110, 16}},
    };
    auto const original = field(2);
    auto const place = place_of(2);
    ASSERT_EQ(place.size(), QSize(100, 16));
    click(middle_of(2));
    for (auto const& test : cases) {
        drag(place.topLeft() + test.from, place.topLeft() + test.to);
        EXPECT_EQ(place_of(2), test.becomes.translated(place.topLeft()))
            << test.from.x() << ',' << test.from.y();
        EXPECT_EQ(selected(), QList{2});
        field(2) = original;
        fCard->ots(2).Move(place.left(), place.top(), place.width(), place.height());
        fCard->focus(2).Move(place.left() - 1, place.top() - 1, place.width() + 2,
                             place.height() + 2);
    }
}

TEST_F(Mouse, AnotherButtonChangesNothingInADrag) {
    start_free(customers);
    auto const place = place_of(3);
    auto const from = middle_of(3);
    press(from);
    move(from + QPoint(10, 0));
    press(from + QPoint(10, 0), {}, Qt::RightButton);
    release(from + QPoint(10, 0), {}, Qt::RightButton);
    EXPECT_FALSE(is_mouse_free());
    EXPECT_EQ(place_of(3), place);
    move(from + QPoint(20, 0));
    press(from + QPoint(20, 0), {}, Qt::RightButton);
    release(from + QPoint(20, 0)); // the left one; the right one is still down
    EXPECT_EQ(place_of(3), place.translated(20, 0));
    EXPECT_TRUE(is_mouse_free());
    release(from, {}, Qt::RightButton);
    click(middle_of(2)); // with any other button as with the left one
    press(middle_of(5), {}, Qt::RightButton);
    release(middle_of(5), {}, Qt::RightButton);
    EXPECT_EQ(selected(), QList{5});
}

TEST_F(Mouse, ALostReleaseComesWithTheNextEvent) {
    start_free(customers);
    auto const place = place_of(3);
    auto const from = middle_of(3);
    release(from); // one without a press is nothing
    EXPECT_TRUE(selected().isEmpty());
    press(from);
    move(from + QPoint(10, 0));
    down = {};
    move(from + QPoint(50, 50));
    EXPECT_TRUE(is_mouse_free());
    EXPECT_EQ(place_of(3), place.translated(10, 0));
    press(middle_of(3));
    move(middle_of(3) + QPoint(10, 0));
    press(middle_of(2)); // the same button once more
    EXPECT_EQ(place_of(3), place.translated(20, 0));
    release(middle_of(2));
    EXPECT_EQ(selected(), QList{2});
}

TEST_F(Mouse, ABoxThatComesUpInADragEndsIt) {
    start_free(customers);
    auto const place = place_of(3);
    press(middle_of(3));
    move(middle_of(3) + QPoint(10, 0));
    NextBox told(QStringLiteral("OK"));
    host->MsgBox("?", box::information, "x");
    ASSERT_TRUE(told.was_shown());
    EXPECT_TRUE(soon([] { return is_mouse_free(); }));
    EXPECT_EQ(place_of(3), place.translated(10, 0));
    EXPECT_EQ(fCard->focus(3).Tag, std::string());
}

TEST_F(Mouse, ACardThatIsClosedInADragLeavesNoPress) {
    start(customers);
    QPointer<QWidget> const was = canvas();
    press(middle_of(3));
    move(middle_of(3) + QPoint(10, 0));
    NextBox agreed(QStringLiteral("OK"));
    card_window()->close();
    NextBox unsaved(QStringLiteral("Ei")); // the drag ended behind the first box
    // What Qt still has for the window reaches nobody.
    soon([&] {
        if (was)
            send(*was, QEvent::MouseMove, {50, 50}, Qt::NoButton);
        return !was;
    });
    EXPECT_FALSE(card_window());
    EXPECT_TRUE(is_mouse_free());
    EXPECT_FALSE(action(QStringLiteral("Sulje"))->isEnabled());
}

TEST_F(Mouse, TheBorderSizesTheCard) {
    start(customers);
    int const width = card.width;
    auto& frame = *card_window();
    QPoint const border(frame.width() - 2, frame.height() / 2);
    send(frame, QEvent::MouseMove, border, Qt::NoButton);
    down = Qt::LeftButton;
    send(frame, QEvent::MouseButtonPress, border, Qt::LeftButton);
    send(frame, QEvent::MouseMove, border + QPoint(40, 0), Qt::NoButton);
    down = {};
    send(frame, QEvent::MouseButtonRelease, border + QPoint(40, 0), Qt::LeftButton);
    EXPECT_TRUE(soon([&] { return card.width == width + 40; }));
    EXPECT_EQ(card_window()->width(), width + 40);
}

} // namespace kehystin
