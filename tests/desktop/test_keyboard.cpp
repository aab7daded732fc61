// The keyboard alone: every stop of Tab can be seen, and nothing is out of its reach.
#include "desktop/control_widget.h"
#include "desktop/text.h"
#include "forms/panel_rows.h"
#include "platform/form.h"
#include "surface/adding.h"
#include "tests/desktop/mouse_program.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QTreeWidget>

namespace kehystin {

namespace {

QString called(QWidget const& widget) {
    auto const name = widget.objectName();
    return u' ' + (name.isEmpty() ? QLatin1String(widget.metaObject()->className()) : name);
}

void press_key(int key, Qt::KeyboardModifiers modifiers = {}) {
    ASSERT_TRUE(QApplication::focusWidget()) << "the keyboard is nowhere";
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
}

/// What Tab finds in the window that has the keyboard, until it comes round.
struct Walk {
    QList<QWidget*> stops;
    QString
        unseen; ///< stops that look with the keyboard as they do without it, or lie out of sight
};

Walk walk(QWidget& window) {
    constexpr int enough = 100;
    Walk made;
    EXPECT_TRUE(soon([] { return QApplication::focusWidget() != nullptr; }));
    auto* at = QApplication::focusWidget();
    while (at && !made.stops.contains(at) && made.stops.size() < enough) {
        made.stops.append(at);
        if (at->window() != &window || at->visibleRegion().isEmpty())
            made.unseen += called(*at);
        auto const with = at->grab().toImage();
        press_key(Qt::Key_Tab);
        if (at->isVisible() && at->grab().toImage() == with)
            made.unseen += called(*at);
        at = QApplication::focusWidget();
    }
    return made;
}

platform::Control* control_of(QWidget& widget) {
    auto* const shown = dynamic_cast<desktop::ControlWidget*>(&widget);
    return shown ? shown->control() : nullptr;
}

/// What a hand on the mouse can use in a window and the walk has not come to.
QString unreached(QWidget& window, QList<QWidget*> const& stops) {
    QString found;
    for (auto* const one : window.findChildren<QWidget*>()) {
        auto* const control = one->isVisible() ? control_of(*one) : nullptr;
        bool const used = control && control->can_take_focus() &&
                          control->control_class() != platform::ControlClass::picture_box;
        if (!used || stops.contains(one))
            continue;
        // The arrows lead to the other options of a group, one of which is a stop.
        auto const* const option = dynamic_cast<platform::OptionButton*>(control);
        if (!option || option->Value)
            found += called(*one);
    }
    return found;
}

} // namespace

class Keyboard : public MouseProgram {
  protected:
    void SetUp() override { QApplication::setCursorFlashTime(0); } // a caret stays in sight

    void expect_all_seen_and_reached(QWidget& dialog, std::string const& what) {
        auto const walked = walk(dialog);
        EXPECT_GT(walked.stops.size(), 1) << what;
        EXPECT_EQ(walked.unseen.toStdString(), "") << what << ": no visible focus";
        EXPECT_EQ(unreached(dialog, walked.stops).toStdString(), "") << what << ": out of reach";
    }
    /// Chooses a menu entry and walks through the window that it opens, and through what `pages`
    /// then shows of it, as long as it shows something.
    void walk_through(char const* entry, std::function<bool(QWidget&, int)> const& page = {}) {
        int pages = 0;
        WhileOpen<QDialog> walking([&](QDialog& dialog) {
            do {
                expect_all_seen_and_reached(dialog, entry + std::to_string(++pages));
            } while (page && page(dialog, pages));
            dialog.close();
        });
        action(QString::fromUtf8(entry))->trigger();
        EXPECT_GT(pages, 0) << entry;
    }
    /// Alt+Down in a row opens its list or its dialog, which Escape closes again.
    bool opens_beside(PanelRow const& row) {
        bool opened = false;
        QTimer closing;
        closing.callOnTimeout([&] {
            if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                opened = true;
                dialog->reject();
            }
        });
        closing.start(10);
        auto& editor = widget(((*fEditor).*row.editor).name().c_str());
        QTest::keyClick(&editor, Qt::Key_Down, Qt::AltModifier);
        window()->activateWindow(); // as a window manager does when a dialog has closed
        EXPECT_TRUE(soon([] { return QApplication::focusWidget() != nullptr; })) << row.caption;
        if (row.list)
            opened = ((*fEditor).*row.list).is_shown() && !editor.hasFocus();
        if (row.row == Row::list)
            opened = fEditor->bot_list.is_shown();
        if (!editor.hasFocus())
            press_key(Qt::Key_Escape);
        return opened && editor.hasFocus();
    }
    void expect_rows_reached(std::span<Row const> rows, std::string const& kind) {
        fEditor->cmb_field.SetFocus();
        QCoreApplication::processEvents();
        auto const walked = walk(*window());
        EXPECT_EQ(walked.unseen.toStdString(), "") << kind << ": no visible focus";
        QStringList missing;
        for (auto const number : rows) {
            auto const& row = panel_row(number);
            auto& control = (*fEditor).*row.editor;
            auto& editor = widget(control.name().c_str());
            bool const stops = walked.stops.contains(&editor);
            if (control.Enabled && !stops)
                missing += desktop::toQt(row.caption);
            if (!stops || (!row.button && !row.scroll))
                continue;
            control.SetFocus();
            QCoreApplication::processEvents();
            // The value of a text is free: its button has nothing to offer.
            bool const is_free = number == Row::value && (kind == "TXT" || kind == "STX");
            if (row.button && !is_free && !opens_beside(row))
                missing += desktop::toQt(row.caption) + QStringLiteral(" (button)");
            if (row.scroll && control.stepper != &((*fEditor).*row.scroll))
                missing += desktop::toQt(row.caption) + QStringLiteral(" (arrows)");
        }
        EXPECT_EQ(missing.join(u' ').toStdString(), "") << kind << ": out of reach";
    }
};

TEST_F(Keyboard, EveryRowOfEveryKindIsReachedAndSeen) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    expect_rows_reached(panel_kind(card_prefix)->rows, "the card");
    for (auto const& kind : kinds) {
        Form_DragDrop((*fEditor).*fEditor->drag_buttons[kind_index(kind.style)], 5, 5);
        expect_rows_reached(panel_kind(kind.prefix)->rows, std::string(kind.prefix));
    }
}

TEST_F(Keyboard, TheBarsOfTheMainWindowAreReachedAndSeen) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    window()->resize(1200, 800); // a bar of icons is cut off at the right
    QList<QWidget*> stops;
    for (int bar = 0; bar < 3; ++bar) {
        press_key(Qt::Key_F6, Qt::ControlModifier);
        auto const walked = walk(*window());
        EXPECT_EQ(walked.unseen.toStdString(), "") << bar;
        stops += walked.stops;
    }
    for (auto const& kind : kinds)
        EXPECT_TRUE(stops.contains(
            &widget(((*fEditor).*fEditor->drag_buttons[kind_index(kind.style)]).name().c_str())))
            << kind.prefix;
    for (int i = 1; i <= session.iconCount; ++i)
        if (fEditor->ico(i).Enabled) {
            EXPECT_TRUE(stops.contains(&widget(fEditor->ico(i).full_name().c_str()))) << i;
        }
}

TEST_F(Keyboard, EveryCommandOfTheMenusIsReached) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    click(middle_of(3));
    QSet<QAction*> reached;
    std::function<void()> const walk_menu = [&] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        for (auto i = menu->actions().size(); i > 0; --i) {
            QTest::keyClick(menu, Qt::Key_Down);
            auto* const entry = menu->activeAction();
            if (!entry || reached.contains(entry))
                continue;
            reached.insert(entry);
            if (!entry->menu() || !entry->isEnabled())
                continue;
            QTest::keyClick(menu, Qt::Key_Right);
            walk_menu();
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Left);
        }
    };
    auto* const bar = find_child<QMenuBar>(*window());
    for (auto* const top : bar->actions()) {
        auto const keys = QKeySequence::mnemonic(top->text());
        ASSERT_FALSE(keys.isEmpty()) << top->text().toStdString();
        QTest::keyClick(window(), keys[0].key(), keys[0].keyboardModifiers());
        ASSERT_TRUE(QApplication::activePopupWidget()) << top->text().toStdString();
        // Two menus have the same letter: the arrows lead from the one to the other.
        for (auto i = bar->actions().size();
             i > 0 && QApplication::activePopupWidget() != top->menu(); --i)
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Right);
        ASSERT_EQ(QApplication::activePopupWidget(), top->menu());
        walk_menu();
        while (QApplication::activePopupWidget())
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    }
    QString missing;
    int commands = 0;
    std::function<void(QList<QAction*>)> const look = [&](QList<QAction*> const& entries) {
        for (auto* const entry : entries) {
            if (!entry->isVisible() || !entry->isEnabled() || entry->isSeparator())
                continue;
            ++commands;
            if (!reached.contains(entry))
                missing += u' ' + entry->text();
            if (entry->menu())
                look(entry->menu()->actions());
        }
    };
    for (auto* const top : bar->actions())
        look(top->menu()->actions());
    EXPECT_GT(commands, 25);
    EXPECT_EQ(missing.toStdString(), "");
}

TEST_F(Keyboard, TheOpenListOfFieldsAddsToTheSelection) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    fEditor->cmb_field.SetFocus();
    QCoreApplication::processEvents();
    auto& box = dynamic_cast<QComboBox&>(widget("cmb_field"));
    auto const selected = [] {
        std::vector<int> numbers;
        for (int i = 0; i <= card.fields; ++i)
            if (fCard->is_selected(i))
                numbers.push_back(i);
        return numbers;
    };
    auto const open_at = [&](int line) {
        box.showPopup();
        box.view()->setCurrentIndex(box.model()->index(line, 0));
    };
    open_at(3);
    QTest::keyClick(box.view(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(selected(), std::vector({3}));
    EXPECT_FALSE(fEditor->cmd_align_left.Enabled && fEditor->cmd_valign_top.Enabled);
    open_at(5);
    QTest::keyClick(box.view(), Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(box.view()->isVisible());
    QTest::keyClick(box.view(), Qt::Key_Home);
    QTest::keyClick(box.view(), Qt::Key_Return, Qt::ControlModifier); // the card is no field
    QTest::keyClick(box.view(), Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_EQ(selected(), std::vector({3, 5, 7}));
    window()->activateWindow(); // as a window manager does when a list has closed
    ASSERT_TRUE(soon([] { return QApplication::focusWidget() != nullptr; }));
    press_key(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(field(5).left, field(3).left);
    EXPECT_EQ(field(7).left, field(3).left);
}

TEST_F(Keyboard, WhatADoubleClickDoesInARowAltEnterDoesToo) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    fEditor->txt_transp.SetFocus();
    QCoreApplication::processEvents();
    auto const before = card.transp;
    press_key(Qt::Key_Return, Qt::AltModifier);
    EXPECT_NE(card.transp, before);
    press_key(Qt::Key_Enter, Qt::AltModifier | Qt::KeypadModifier);
    EXPECT_EQ(card.transp, before);
}

TEST_F(Keyboard, EveryPartOfTheDialogsIsReachedAndSeen) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    walk_through("Asetukset...");
    walk_through("Sarakejärjestys...");
    walk_through("Info...");
    walk_through("Kenttämääritykset...", [](QWidget& dialog, int page) {
        auto* const tree = dialog.findChild<QTreeWidget*>();
        tree->setFocus(Qt::TabFocusReason);
        QTest::keyClick(tree, Qt::Key_Down);
        return page < tree->topLevelItemCount();
    });
    walk_through("Uusi...", [this](QWidget& wizard, int page) {
        if (page < 4) {
            QTest::keyClick(&wizard, Qt::Key_Return);
            return true;
        }
        int walked = 0;
        QTimer walking;
        walking.callOnTimeout([&] {
            auto* const fonts = QApplication::activeModalWidget();
            if (fonts == &wizard || ++walked > 1)
                return;
            expect_all_seen_and_reached(*fonts, "fonts");
            fonts->close();
        });
        walking.start(20);
        wizard.findChild<QAbstractButton*>(QStringLiteral("cmdFontOts"))->click();
        EXPECT_EQ(walked, 1);
        return false;
    });
}

} // namespace kehystin
