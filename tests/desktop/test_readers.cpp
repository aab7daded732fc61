// What a screen reader finds: names, the fields of the card, the texts of boxes.
#include "desktop/boxes.h"
#include "desktop/help_window.h"
#include "desktop/spoken_card.h"
#include "desktop/text.h"
#include "forms/panel_rows.h"
#include "mainwindow/card_place.h"
#include "surface/adding.h"
#include "tests/desktop/mouse_program.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

#include <chrono>

namespace kehystin {

namespace {

QString name_of(QObject& what) {
    auto* const found = QAccessible::queryAccessibleInterface(&what);
    return found ? found->text(QAccessible::Name) : QString();
}

/// What a reader is told to be the caption of something.
QStringList captions_of(QObject& what) {
    QStringList names;
    for (auto const& [caption, kind] :
         QAccessible::queryAccessibleInterface(&what)->relations(QAccessible::Label))
        names += caption->text(QAccessible::Name);
    return names;
}

/// What takes the focus in a window and has no name, as " class object;".
QString nameless(QWidget& window) {
    QString found;
    int focusable = 0;
    for (auto* const one : window.findChildren<QWidget*>()) {
        bool const stands_for_another = one->focusProxy() != nullptr;
        if (!one->isVisible() || one->focusPolicy() == Qt::NoFocus || stands_for_another)
            continue;
        ++focusable;
        auto const name = name_of(*one);
        // Signs for the eye say nothing when they are read.
        if (name.trimmed().isEmpty() || name.contains(u'&') || name == QStringLiteral("▾") ||
            name == QStringLiteral("…"))
            found += u' ' + QLatin1String(one->metaObject()->className()) + u' ' +
                     one->objectName() + u' ' + name + u';';
    }
    return focusable ? found : QStringLiteral("nothing takes the focus");
}

} // namespace

#define EXPECT_ALL_NAMED(window) EXPECT_EQ(nameless(window).toStdString(), "")

class Readers : public MouseProgram {
  protected:
    static void in_dialog(std::function<void()> const& open,
                          std::function<void(QWidget&)> const& use) {
        MouseProgram::in_dialog(open, [&](QWidget& modal) {
            EXPECT_ALL_NAMED(modal) << modal.windowTitle().toStdString();
            use(modal);
        });
    }
    void in_entry(char const* entry, std::function<void(QWidget&)> const& use) {
        in_dialog([&] { action(QString::fromUtf8(entry))->trigger(); }, use);
    }
    static QString name_in(QWidget& dialog, char const* widget) {
        auto* const found = dialog.findChild<QWidget*>(QLatin1String(widget));
        return found ? name_of(*found) : QStringLiteral("?");
    }
    /// The card as a reader finds it, and the field of a number on it.
    QAccessibleInterface& spoken_card() { return *QAccessible::queryAccessibleInterface(canvas()); }
    QAccessibleInterface* spoken_field(int number) {
        auto const at = canvas()->mapToGlobal(middle_of(number));
        return spoken_card().childAt(at.x(), at.y());
    }
};

TEST_F(Readers, EveryPartOfTheMainWindowHasAName) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    EXPECT_ALL_NAMED(*window());
    EXPECT_EQ(name_of(widget("drag_cmb")), QStringLiteral("Lisää alasvetovalikko"));
    EXPECT_EQ(name_of(widget("ico(1)")), QStringLiteral("Uusi"));
    QStringList icons;
    for (int i = 1; i <= session.iconCount; ++i)
        icons += name_of(widget(fEditor->ico(i).full_name().c_str()));
    EXPECT_TRUE(icons.contains(QStringLiteral("Lukitse kentät"))); // it has no tip
    QList<Row> seen;
    for (auto const& kind : kinds) {
        auto& button = (*fEditor).*fEditor->drag_buttons[kind_index(kind.style)];
        Form_DragDrop(button, 5, 5);
        ASSERT_TRUE(field(card.fields).is(kind.style)) << kind.prefix;
        for (auto const number : panel_kind(kind.prefix)->rows) {
            auto const& row = panel_row(number);
            auto const caption = desktop::toQt(row.caption);
            auto const expect_caption = [&](Control& part) {
                EXPECT_EQ(name_of(widget(part.name().c_str())), caption) << part.name();
            };
            if (!((*fEditor).*row.editor).Enabled)
                continue;
            ((*fEditor).*row.editor).SetFocus();
            if (row.list)
                ((*fEditor).*row.list).Visible = true;
            fEditor->bot_list.Visible = number == Row::list;
            QCoreApplication::processEvents();
            EXPECT_ALL_NAMED(*window()) << kind.prefix << " " << row.caption;
            expect_caption((*fEditor).*row.editor);
            EXPECT_EQ(captions_of(widget(((*fEditor).*row.editor).name().c_str())),
                      QStringList(caption));
            if (row.scroll)
                expect_caption((*fEditor).*row.scroll);
            if (row.button)
                expect_caption((*fEditor).*row.button);
            if (row.list)
                expect_caption((*fEditor).*row.list);
        }
    }
}

TEST_F(Readers, AnIconThatSwitchesSaysWhetherItIsOn) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    auto const state_of = [&](char const* name) {
        for (int i = 1; i <= session.iconCount; ++i)
            if (auto& icon = widget(fEditor->ico(i).full_name().c_str());
                name_of(icon) == QString::fromUtf8(name))
                return QAccessible::queryAccessibleInterface(&icon)->state();
        ADD_FAILURE() << name;
        return QAccessible::State();
    };
    EXPECT_FALSE(state_of("Tallenna nimellä...").checkable);
    struct Toggle {
        char const* icon;
        char const* entry;
    };
    for (auto const& [icon, entry] :
         {Toggle{"Ruudukko", "Näytä Ruudukko"}, Toggle{"Apuviivat", "Näytä Apuviivat"},
          Toggle{"Kentät", "Kentät"}, Toggle{"Ominaisuudet", "Ominaisuudet"},
          Toggle{"Linkit", "Linkit"}, Toggle{"Lukitse kentät", "Lukitse kentät"}}) {
        EXPECT_TRUE(state_of(icon).checkable) << icon;
        bool const before = state_of(icon).checked;
        action(QString::fromUtf8(entry))->trigger();
        EXPECT_EQ(state_of(icon).checked, !before) << icon;
        action(QString::fromUtf8(entry))->trigger();
        EXPECT_EQ(state_of(icon).checked, before) << icon;
    }
    EXPECT_TRUE(state_of("Ruudukko").checked);
    EXPECT_FALSE(state_of("Lukitse kentät").checked);
}

TEST_F(Readers, EveryPartOfADialogHasAName) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    in_entry("Asetukset...", [](QWidget& dialog) {
        EXPECT_EQ(name_in(dialog, "txt_grid_X"), QStringLiteral("Vaakatiheys"));
        EXPECT_EQ(name_in(dialog, "scr_guide_Y"), QStringLiteral("Pystytiheys"));
        // The caption beside it, and not that of the frame around.
        auto& density = *dialog.findChild<QWidget*>(QStringLiteral("txt_guide_X"));
        EXPECT_EQ(captions_of(density), QStringList(QStringLiteral("Vaakatiheys")));
        EXPECT_EQ(name_of(*density.parentWidget()), QStringLiteral("Apuviivat"));
    });
    in_entry("Kenttämääritykset...", [](QWidget& dialog) {
        EXPECT_EQ(name_in(dialog, "txtAsiakasStep"), QStringLiteral("Askel"));
        auto& tree = *dialog.findChild<QTreeWidget*>(QStringLiteral("tree"));
        for (int i = 1; i < tree.topLevelItemCount(); ++i) {
            QTest::keyClick(&tree, Qt::Key_Down);
            EXPECT_ALL_NAMED(dialog) << i;
        }
        auto& box = *dialog.findChild<QComboBox*>(QStringLiteral("cmbLaskuselite"));
        EXPECT_EQ(name_of(box), QStringLiteral("Maksuselite: ") + box.currentText().trimmed());
    });
    in_entry("Sarakejärjestys...", [](QWidget&) {});
    in_entry("Info...", [](QWidget&) {});
    in_entry("Uusi...", [](QWidget& wizard) {
        for (int page = 1; page < 4; ++page) {
            QTest::keyClick(&wizard, Qt::Key_Return);
            EXPECT_ALL_NAMED(wizard) << page;
        }
        EXPECT_EQ(name_in(wizard, "txtOtsikko(2)"), QStringLiteral("Kenttä 2"));
        auto* const option = wizard.findChild<QWidget*>(QStringLiteral("optAlignRight"));
        auto* const spoken = QAccessible::queryAccessibleInterface(option);
        EXPECT_EQ(spoken->role(), QAccessible::RadioButton);
        EXPECT_EQ(name_of(*option), QStringLiteral("Tasaa otsikot: Oikealle"));
        EXPECT_FALSE(spoken->state().checked);
        auto* const font = wizard.findChild<QAbstractButton*>(QStringLiteral("cmdFontOts"));
        ASSERT_TRUE(font && font->isVisible());
        in_dialog([&] { font->click(); },
                  [](QWidget& dialog) {
                      EXPECT_EQ(name_in(dialog, "lst_size"), QStringLiteral("Koko"));
                  });
    });
}

TEST_F(Readers, EveryPartOfTheHelpHasAName) {
    start();
    session.appPath =
        desktop::fromQt(QFileInfo(QStringLiteral(KEHYSTIN_HELP)).absolutePath() + u'/');
    QTest::keyClick(window(), Qt::Key_F1);
    for (auto* const widget : QApplication::topLevelWidgets())
        if (dynamic_cast<desktop::HelpWindow*>(widget) && widget->isVisible()) {
            auto* const tabs = widget->findChild<QTabWidget*>();
            for (int i = 0; i < tabs->count(); ++i) {
                tabs->setCurrentIndex(i);
                EXPECT_ALL_NAMED(*widget) << i;
            }
            widget->close();
            return;
        }
    ADD_FAILURE() << "no help";
}

TEST_F(Readers, ABoxIsReadWhole) {
    start();
    QString text;
    for (int i = 1; i <= 200; ++i)
        text += QStringLiteral("Rivi %1\r\n").arg(i);
    text += QStringLiteral("\r\nJatketaanko?     ");
    for (auto const& told : {text, text.right(20)})
        in_dialog(
            [&] {
                desktop::showMessage(window(), desktop::fromQt(told),
                                     box::question + box::ok_cancel, " Tallenna");
            },
            [&](QWidget& box) {
                auto* const found = QAccessible::queryAccessibleInterface(&box);
                EXPECT_EQ(found->text(QAccessible::Description),
                          QString(told).remove(u'\r').trimmed());
                EXPECT_FALSE(found->text(QAccessible::Name).isEmpty());
            });
    in_dialog([&] { desktop::askText(window(), "Muuta arvo", " Lista", "yksi"); }, [](QWidget&) {});
}

TEST_F(Readers, TheDialogsOfTheSystemHaveNames) {
    start();
    in_dialog([&] { EXPECT_THROW(desktop::askColour(window(), 0), std::exception); },
              [](QWidget&) {});
    platform::CommonDialog dialog;
    in_dialog(
        [&] {
            EXPECT_THROW(desktop::askFile(window(), dialog, desktop::FileTask::open),
                         std::exception);
        },
        [](QWidget&) {});
}

TEST_F(Readers, WhatHasNoWidgetOfItsOwnKindSaysWhatItIsAndCanBeUsed) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    in_entry("Asetukset...", [](QWidget& dialog) {
        auto* const arrows = QAccessible::queryAccessibleInterface(
            dialog.findChild<QWidget*>(QStringLiteral("scr_grid_X")));
        auto* const text = dialog.findChild<QLineEdit*>(QStringLiteral("txt_grid_X"));
        EXPECT_EQ(arrows->role(), QAccessible::SpinBox);
        auto* const value = arrows->valueInterface();
        ASSERT_TRUE(value);
        EXPECT_EQ(value->currentValue().toString(), text->text());
        EXPECT_LT(value->minimumValue().toInt(), value->maximumValue().toInt());
        value->setCurrentValue(17);
        EXPECT_EQ(text->text(), QStringLiteral("17"));
        value->setCurrentValue(100'000);
        EXPECT_EQ(text->text(), value->maximumValue().toString());
    });
    in_entry("Info...", [](QWidget& dialog) {
        int links = 0;
        for (auto* const one : dialog.findChildren<QLabel*>()) {
            auto* const spoken = QAccessible::queryAccessibleInterface(one);
            bool const is_link = one->focusPolicy() != Qt::NoFocus;
            EXPECT_EQ(spoken->role() == QAccessible::Link, is_link);
            links += is_link;
        }
        EXPECT_GT(links, 0);
    });
    auto* const bar = QAccessible::queryAccessibleInterface(&widget("stsBar"));
    EXPECT_EQ(bar->role(), QAccessible::StatusBar);
    EXPECT_FALSE(bar->text(QAccessible::Name).isEmpty());
    auto const before = card.fields;
    auto* const button = QAccessible::queryAccessibleInterface(&widget("drag_chk"));
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(soon([&] { return card.fields == before + 1; })); // it shows as pressed first
    QTest::mouseClick(&widget("drag_chk"), Qt::LeftButton);       // it is for dragging
    EXPECT_EQ(card.fields, before + 1);
}

TEST_F(Readers, TheCardIsACanvasWithItsFieldsOnIt) {
    start_free(QStringLiteral("examples/asiakkaat.krt"));
    window()->resize(1100, 900); // all of the card comes in sight
    ASSERT_TRUE(soon([&] { return window()->width() == 1100; }));
    center_card();
    ASSERT_TRUE(soon(
        [&] { return QRegion(canvas()->rect()).subtracted(canvas()->visibleRegion()).isEmpty(); }));
    auto& spoken = spoken_card();
    EXPECT_EQ(spoken.role(), QAccessible::Canvas);
    EXPECT_FALSE(spoken.text(QAccessible::Name).trimmed().isEmpty());
    ASSERT_EQ(spoken.childCount(), card.fields);
    for (int i = 1; i <= card.fields; ++i) {
        auto* const one = spoken_field(i);
        ASSERT_TRUE(one && one->isValid()) << i;
        EXPECT_EQ(one->rect().topLeft(), canvas()->mapToGlobal(place_of(i).topLeft())) << i;
        EXPECT_EQ(one->text(QAccessible::Description), desktop::toQt(field(i).kind()->name)) << i;
        EXPECT_FALSE(one->text(QAccessible::Name).isEmpty()) << i;
        EXPECT_EQ(one->parent(), &spoken);
        EXPECT_EQ(spoken.child(spoken.indexOfChild(one)), one) << i;
        if (field(i).is_title()) {
            EXPECT_EQ(one->text(QAccessible::Name), desktop::toQt(field(i).caption.trimmed()));
        }
    }
    EXPECT_EQ(spoken.childAt(0, 0), nullptr);
    auto* const third = spoken_field(3);
    EXPECT_FALSE(third->state().selected);
    click(middle_of(3));
    EXPECT_TRUE(third->state().selected);
    EXPECT_TRUE(third->state().movable);
    action(QStringLiteral("Lukitse kentät"))->trigger();
    EXPECT_TRUE(third->state().readOnly);
    EXPECT_FALSE(third->state().movable);
}

namespace {

QStringList told;

void note(QAccessibleEvent* event) {
    auto* const about = event->accessibleInterface();
    told += QString::number(event->type(), 16) + u' ' +
            (about && about->isValid() ? about->text(QAccessible::Name) : QStringLiteral("?"));
}

QString saying(QAccessible::Event event, QString const& name) {
    return QString::number(event, 16) + u' ' + name;
}

} // namespace

TEST_F(Readers, TellsWhatChangesOnTheCard) {
    start_free(QStringLiteral("examples/asiakkaat.krt"));
    auto const changes = [&] {
        told.clear();
        desktop::tellChanges(dynamic_cast<desktop::CardCanvas&>(*canvas()), note);
        return told;
    };
    changes(); // what has been told before is of no concern
    auto const name = spoken_field(3)->text(QAccessible::Name);
    click(middle_of(3));
    EXPECT_EQ(changes(), QStringList({saying(QAccessible::StateChanged, name),
                                      saying(QAccessible::SelectionAdd, name)}));
    EXPECT_EQ(changes(), QStringList());
    drag(middle_of(3), middle_of(3) + QPoint(4, 0));
    EXPECT_TRUE(changes().contains(saying(QAccessible::LocationChanged, name)));
    QTest::keyClick(&widget("drag_ots"), Qt::Key_Return);
    auto const whole = spoken_card().text(QAccessible::Name);
    EXPECT_TRUE(changes().contains(saying(QAccessible::ObjectReorder, whole)));
    EXPECT_EQ(spoken_card().childCount(), card.fields);
    {
        NextBox agreed(QStringLiteral("OK"));
        action(QStringLiteral("Poista"))->trigger(); // the title that has just come
    }
    EXPECT_EQ(spoken_card().childCount(), card.fields);
}

} // namespace kehystin
