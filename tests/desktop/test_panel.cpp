// Field bar, menus and property panel under the mouse: new fields, deleted ones, edited ones.
#include "desktop/icons.h"
#include "tests/desktop/mouse_program.h"

#include <QWheelEvent>

namespace kehystin {

class Panel : public MouseProgram {};

TEST_F(Panel, EveryButtonOfTheFieldBarDropsItsKind) {
    start_free(QStringLiteral("examples/asiakkaat.krt"));
    QPoint const free(106, 40);
    int const before = card.fields;
    for (auto const& kind : kinds) {
        auto const style = kind.style;
        auto const* const button =
            (fEditor.get()->*fEditor->drag_buttons[kind_index(style)]).name().c_str();
        EXPECT_FALSE(
            desktop::iconPixmap(button, desktop::iconSize, 1, desktop::Ground::card).isNull())
            << button;
        auto const drag_of_it = drag_from_bar(button);
        ASSERT_TRUE(drop(*drag_of_it->mimeData(), *canvas(), free)) << button;
        int const added = card.fields;
        EXPECT_TRUE(field(added).is(style)) << button;
        EXPECT_EQ(place_of(added).topLeft(), free - QPoint(5, 5)) << button;
        EXPECT_EQ(selected(), QList{added}) << button;
        // The outline has shown where it comes to stand.
        EXPECT_EQ(drag_of_it->pixmap().size(), place_of(added).size()) << button;
        EXPECT_EQ(drag_of_it->hotSpot(), QPoint(5, 5)) << button;
        fCard->visual(style, added).Visible = false; // out of the next one's way
    }
    EXPECT_EQ(card.fields, before + static_cast<int>(kinds.size()));
}

TEST_F(Panel, ADropOnAnythingElseIsNone) {
    start_free(QStringLiteral("examples/asiakkaat.krt"));
    int const before = card.fields;
    auto const title = drag_from_bar("drag_ots");
    EXPECT_FALSE(drop(*title->mimeData(), *canvas(), middle_of(3)));
    EXPECT_FALSE(drop(*title->mimeData(), widget("proBot"), {5, 5}));
    QMimeData text;
    text.setText(QStringLiteral("teksti"));
    EXPECT_FALSE(drop(text, *canvas(), {106, 40}));
    EXPECT_EQ(card.fields, before);
}

TEST_F(Panel, DeletingAsksFirst) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    int const before = card.fields;
    auto const fourth = field(4).caption.trimmed();
    click(middle_of(3));
    {
        NextBox refused(QStringLiteral("Peruuta"));
        action(QStringLiteral("Poista"))->trigger();
        EXPECT_TRUE(refused.was_shown());
    }
    EXPECT_EQ(card.fields, before);
    NextBox agreed(QStringLiteral("OK"));
    action(QStringLiteral("Poista"))->trigger();
    EXPECT_TRUE(agreed.was_shown());
    EXPECT_EQ(card.fields, before - 1);
    EXPECT_EQ(field(3).caption.trimmed(), fourth);
    click(middle_of(3)); // on the surface built anew
    EXPECT_EQ(selected(), QList{3});
}

TEST_F(Panel, ACaptionGivesItsRowTheKeyboardAndTabWalksOn) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    click(middle_of(2));
    QTest::mouseClick(&widget("labProp(4)"), Qt::LeftButton);
    ASSERT_TRUE(soon([&] { return widget("txt_fontName").hasFocus(); }));
    EXPECT_TRUE(widget("cmd_fontName").isVisible());
    QTest::keyClick(&widget("txt_fontName"), Qt::Key_Tab);
    EXPECT_TRUE(widget("txt_fontSize").hasFocus());
    QTest::keyClick(&widget("txt_fontSize"), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(widget("txt_fontName").hasFocus());
    // By the mouse from one whole selected text into another.
    QTest::mouseClick(&widget("txt_left"), Qt::LeftButton);
    EXPECT_TRUE(widget("txt_left").hasFocus());
    EXPECT_EQ(System::current().focused(), &fEditor->txt_left);
}

TEST_F(Panel, ArrowsAndWheelChangeTheCardsWidth) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    int const width = card.width;
    click({2, 2});
    QTest::mouseClick(&widget("labProp(12)"), Qt::LeftButton);
    ASSERT_TRUE(soon([&] { return fEditor->scr_width.is_shown(); }));
    auto& arrows = widget("scr_width");
    QTest::mouseClick(&arrows, Qt::LeftButton, {}, {arrows.width() / 2, 3});
    EXPECT_EQ(card.width, width + 1);
    EXPECT_EQ(card_window()->width(), width + 1);
    QWheelEvent back(QPointF(2, 2), arrows.mapToGlobal(QPointF(2, 2)), {}, {0, -120}, {}, {},
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&arrows, &back);
    EXPECT_EQ(card.width, width);
    EXPECT_EQ(card_window()->width(), width);
}

} // namespace kehystin
