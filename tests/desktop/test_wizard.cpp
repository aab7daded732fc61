// The wizard with real clicks and keys, from its first page to the painted card.
#include "forms/font_form.h"
#include "forms/velho_form.h"
#include "tests/desktop/real_program.h"

#include <QLineEdit>

namespace kehystin {

class Wizard : public RealProgram {
  protected:
    /// Opens the wizard and runs the steps in it, one each time the windows have settled.
    void run_wizard(std::vector<std::function<void()>> steps) {
        std::size_t next = 0;
        QTimer clock;
        clock.callOnTimeout([&] {
            if (QApplication::activeModalWidget() && !button_is_down() && next < steps.size())
                QTimer::singleShot(0, qApp, steps[next++]); // a dialog may open in it
        });
        clock.start(20);
        action(QStringLiteral("Uusi..."))->trigger();
        EXPECT_EQ(next, steps.size());
    }
    /// An access key holds its button down for a moment before it counts.
    static bool button_is_down() {
        return find_child<QAbstractButton>(*QApplication::activeModalWidget(),
                                           [](QAbstractButton& button) { return button.isDown(); });
    }
    /// What stands in the dialog in front, by the name of its control.
    static QWidget* widget(char const* name) {
        return QApplication::activeModalWidget()->findChild<QWidget*>(QLatin1String(name));
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget()
                                                    : QApplication::activeModalWidget(),
                        key, modifiers);
    }
    static void type(char const* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    static void click(char const* name) { QTest::mouseClick(widget(name), Qt::LeftButton); }
};

TEST_F(Wizard, BuildsACardWithTheKeyboardAlone) {
    start();
    run_wizard({
        [] { type("2"); },
        [] { press(Qt::Key_Return); },
        [] {
            auto* const first = qobject_cast<QLineEdit*>(QApplication::focusWidget());
            ASSERT_TRUE(first);
            EXPECT_EQ(first->selectedText(), QStringLiteral("Nimi"));
            type("Etunimi");
            press(Qt::Key_Tab);
        },
        [] {
            EXPECT_EQ(QApplication::focusWidget(), widget("txtOtsikko(2)"));
            type("Sukunimi");
            press(Qt::Key_S, Qt::AltModifier);
        },
        [] {
            EXPECT_TRUE(widget("imgYV")->isVisible());
            press(Qt::Key_S, Qt::AltModifier);
        },
        [] { press(Qt::Key_V, Qt::AltModifier); },
    });
    ASSERT_TRUE(card_window());
    EXPECT_EQ(card.fields, 4);
    EXPECT_EQ(field(1).caption.trimmed(), "Etunimi");
    EXPECT_EQ(field(2).caption.trimmed(), "Sukunimi");
    EXPECT_EQ(session.link_count, 2);
    EXPECT_EQ(card_window()->windowTitle(), QStringLiteral(" Velhokortti"));
    // The text field is painted where its record says, white on the grey card.
    auto const painted = canvas()->grab().toImage();
    auto const& text = field(3);
    QRect const place(text.left, text.top, text.width, text.height);
    EXPECT_EQ(painted.pixelColor(place.center()), QColor(Qt::white));
    EXPECT_EQ(painted.pixelColor(place.center().x(), place.bottom() + 3), QColor(222, 222, 222));
}

TEST_F(Wizard, ScrollsItsRowsAndTakesAFontFromItsDialog) {
    start();
    run_wizard({
        [] {
            type("12");
            click("cmdSeuraava");
        },
        [] {
            auto* const rows = widget("picOtsikko");
            auto const bottom_of = [&](char const* name) {
                return widget(name)->mapTo(rows, QPoint(0, widget(name)->height())).y();
            };
            EXPECT_LE(bottom_of("txtOtsikko(8)"), rows->height());
            EXPECT_GT(bottom_of("txtOtsikko(9)"), rows->height());
            fVelho->scrOtsikko.Value = fVelho->scrOtsikko.Max.get();
        },
        [] {
            auto* const rows = widget("picOtsikko");
            auto* const last = widget("txtOtsikko(12)");
            EXPECT_LE(last->mapTo(rows, QPoint(0, last->height())).y(), rows->height());
            EXPECT_GE(last->mapTo(rows, QPoint(0, 0)).y(), 0);
            click("cmdSeuraava");
        },
        [] { click("optPosLeft"); },
        [] {
            EXPECT_TRUE(widget("imgVV")->isVisible());
            EXPECT_FALSE(widget("imgYV")->isVisible());
            click("cmdSeuraava");
        },
        [] { click("cmdFontTxt"); },
        [] {
            ASSERT_TRUE(fFont);
            press(Qt::Key_K, Qt::AltModifier); // the label's key leads to the list behind it
        },
        [] {
            EXPECT_EQ(QApplication::focusWidget(), widget("lst_size"));
            fFont->lst_size.ListIndex = 16 - FontForm::smallest_size;
        },
        [] { press(Qt::Key_Return); },
        [] {
            EXPECT_EQ(fVelho->labFontTxt.Caption.get(), "MS Sans Serif, 16 pt");
            click("cmdSeuraava");
        },
    });
    EXPECT_EQ(card.fields, 24);
    EXPECT_EQ(field(13).fontSize, 16);
    EXPECT_EQ(session.link_count, 12);
}

TEST_F(Wizard, EscapeAndTheWindowsButtonLeaveTheCardAsItIs) {
    start(QStringLiteral("examples/vanha.krt"));
    int const before = card.fields;
    run_wizard({[] { press(Qt::Key_Escape); }});
    run_wizard({[] { click("cmdSeuraava"); }, [] { QApplication::activeModalWidget()->close(); }});
    EXPECT_EQ(card.fields, before);
    EXPECT_FALSE(session.cardModified);
    EXPECT_TRUE(card_window());
}

} // namespace kehystin
