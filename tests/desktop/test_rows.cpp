// Editing in the property panel with real keys: fluent typing, pop-up lists, the walk with Tab.
#include "tests/desktop/mouse_program.h"

#include <QLineEdit>
#include <QListView>

namespace kehystin {

class Rows : public MouseProgram {
  protected:
    /// A text field is selected and one of its rows has the keyboard.
    QLineEdit& open_row(char const* name) {
        start(QStringLiteral("examples/asiakkaat.krt"));
        click(middle_of(5));
        EXPECT_TRUE(field(5).is(Style::TXT));
        EXPECT_TRUE(soon([&] { return !host->timers().isAnyShorterThan(100); }));
        return take_keyboard(name);
    }
    QLineEdit& take_keyboard(char const* name) {
        auto& editor = static_cast<QLineEdit&>(widget(name));
        QTest::mouseClick(&editor, Qt::LeftButton);
        EXPECT_TRUE(soon([&] { return editor.hasFocus(); })) << name;
        return editor;
    }
};

TEST_F(Rows, EachKeyIsAppliedAndTheCaretStays) {
    auto& left = open_row("txt_left");
    int const applied[] = {2, 20, 203};
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&left, "203"[i]);
        EXPECT_EQ(field(5).left, applied[i]);
        EXPECT_EQ(left.cursorPosition(), i + 1);
        EXPECT_FALSE(left.hasSelectedText());
    }
    EXPECT_EQ(fCard->txt(5).Left, 203);
    QTest::keyClick(&left, Qt::Key_Left);
    QTest::keyClick(&left, Qt::Key_Backspace); // from "203" to "23", the caret between
    EXPECT_EQ(field(5).left, 23);
    EXPECT_EQ(left.cursorPosition(), 1);
    QTest::keyClick(&left, Qt::Key_Return);
    EXPECT_TRUE(left.hasFocus());
    EXPECT_EQ(left.text(), QStringLiteral("23"));
}

TEST_F(Rows, TheCardIsSizedWhileItsSizeIsTyped) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    auto& width = take_keyboard("txt_width");
    QTest::keyClicks(&width, QStringLiteral("7005"));
    EXPECT_EQ(card.width, 700); // 7005 is too wide
    EXPECT_EQ(width.text(), QStringLiteral("7005"));
    EXPECT_EQ(width.cursorPosition(), 4);
    QTest::keyClick(&width, Qt::Key_Backspace);
    EXPECT_EQ(card_window()->width(), 700);
    QTest::keyClicks(&width, QStringLiteral("x"));
    EXPECT_TRUE(width.hasFocus());
}

TEST_F(Rows, ANumberThatCannotStandComesBackAndTheKeyboardGoesWhereTheUserTookIt) {
    auto& left = open_row("txt_left");
    int const before = field(5).left;
    QTest::keyClicks(&left, QStringLiteral("abc"));
    EXPECT_EQ(field(5).left, 0); // no number reads as 0, which a place can be
    auto& size = take_keyboard("txt_size");
    EXPECT_EQ(left.text(), QStringLiteral("0"));
    EXPECT_TRUE(soon([&] { return !fEditor->focusTimer.Enabled; }));
    EXPECT_TRUE(size.hasFocus());
    // Its arrows work at 0 all the same.
    take_keyboard("txt_left");
    auto& arrows = widget("scr_left");
    for (int i = 0; i < 2; ++i)
        QTest::mouseClick(&arrows, Qt::LeftButton, {}, {arrows.width() / 2, 3});
    EXPECT_EQ(field(5).left, 2);
    EXPECT_NE(before, 2);
}

TEST_F(Rows, WithoutTheKeyboardALongTextShowsItsBeginning) {
    open_row("txt_left");
    field(5).value = "Alku " + std::string(60, 'x') + " loppu";
    click(middle_of(3));
    click(middle_of(5));
    auto& value = static_cast<QLineEdit&>(widget("txt_value"));
    auto const shows_from = [&] { return value.cursorPositionAt({0, value.height() / 2}); };
    ASSERT_TRUE(value.text().startsWith(QStringLiteral("Alku")));
    EXPECT_FALSE(value.hasFocus());
    EXPECT_EQ(shows_from(), 0);
    take_keyboard("txt_value");
    QTest::keyClick(&value, Qt::Key_End);
    value.repaint();
    EXPECT_GT(shows_from(), 0);
    int const caret = fEditor->txt_value.SelStart;
    take_keyboard("txt_top");
    value.repaint();
    EXPECT_EQ(shows_from(), 0);
    EXPECT_EQ(fEditor->txt_value.SelStart, caret);
}

TEST_F(Rows, TabWalksTheRowsAsTheyStand) {
    open_row("txt_size");
    char const* const rows[] = {"txt_fontName", "txt_fontSize", "txt_fontBold", "txt_fontItalic",
                                "txt_bc",       "txt_fc",       "txt_left",     "txt_top",
                                "txt_width",    "txt_height",   "txt_value",    "txt_tabindex",
                                "txt_linkitys"};
    for (auto const* const row : rows) {
        QTest::keyClick(window()->focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(widget(row).hasFocus()) << row;
    }
    for (auto row = std::rbegin(rows) + 1; row != std::rend(rows); ++row) {
        QTest::keyClick(window()->focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_TRUE(widget(*row).hasFocus()) << *row;
    }
}

TEST_F(Rows, TheKeyboardGoesFromBarToBarAndShowsWhereItIs) {
    open_row("txt_size");
    auto const bar_key = [&](Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(window()->focusWidget(), Qt::Key_F6, modifiers);
        return window()->focusWidget();
    };
    auto const plain = widget("drag_ots").grab().toImage();
    EXPECT_EQ(bar_key(Qt::ControlModifier), &widget("drag_ots"));
    EXPECT_NE(widget("drag_ots").grab().toImage(), plain);
    EXPECT_EQ(bar_key(Qt::ControlModifier)->objectName(), QStringLiteral("ico(1)"));
    QTest::keyClick(window()->focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(window()->focusWidget()->objectName().startsWith(QStringLiteral("ico")));
    EXPECT_EQ(bar_key(Qt::ControlModifier | Qt::ShiftModifier), &widget("drag_ots"));
    int const before = card.fields;
    QTest::keyClick(&widget("drag_ots"), Qt::Key_Space);
    EXPECT_EQ(card.fields, before + 1);
}

TEST_F(Rows, ALetterChoosesAWordAndAListOpensUnderItsRow) {
    auto& bold = open_row("txt_fontBold");
    QTest::keyClick(&bold, Qt::Key_K);
    EXPECT_EQ(field(5).fontBold, -1);
    EXPECT_EQ(bold.selectedText(), QStringLiteral("Kyllä"));
    QTest::mouseClick(&widget("cmd_fontBold"), Qt::LeftButton);
    auto& list = widget("lst_boolean");
    EXPECT_TRUE(list.isVisible());
    auto const below = bold.mapToGlobal(QPoint(0, bold.height()));
    EXPECT_GE(list.mapToGlobal(QPoint()).y(), below.y());
    EXPECT_LE(list.mapToGlobal(QPoint()).y(), below.y() + 10);
    QTest::keyClick(&list, Qt::Key_Escape);
    EXPECT_FALSE(list.isVisible());
    EXPECT_TRUE(bold.hasFocus());
    QTest::mouseClick(&widget("cmd_fontBold"), Qt::LeftButton);
    auto& items = dynamic_cast<QListView&>(list);
    QTest::mouseClick(items.viewport(), Qt::LeftButton, {},
                      items.visualRect(items.model()->index(1, 0)).center());
    EXPECT_EQ(field(5).fontBold, 0);
    EXPECT_FALSE(list.isVisible());
    EXPECT_TRUE(bold.hasFocus());
    // With the keyboard alone a mark moves, and nothing is chosen before Enter.
    QTest::keyClick(&bold, Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(list.hasFocus());
    QTest::keyClick(&list, Qt::Key_Up);
    EXPECT_EQ(items.currentIndex().row(), 0);
    EXPECT_EQ(field(5).fontBold, 0);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(field(5).fontBold, -1);
    EXPECT_TRUE(bold.hasFocus());
    QTest::keyClick(&bold, Qt::Key_F4);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Escape);
    EXPECT_EQ(field(5).fontBold, -1);
    EXPECT_TRUE(bold.hasFocus());
    // It closes, too, when the keyboard goes elsewhere.
    QTest::mouseClick(&widget("cmd_fontBold"), Qt::LeftButton);
    take_keyboard("txt_top");
    EXPECT_FALSE(list.isVisible());
}

} // namespace kehystin
