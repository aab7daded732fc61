// Dialogs under mouse and keyboard: column order, settings, field roles.
#include "dialogs/font_dialog.h"
#include "forms/cols_form.h"
#include "forms/font_form.h"
#include "forms/prop_form.h"
#include "forms/speci_form.h"
#include "model/settings.h"
#include "tests/desktop/real_program.h"

#include <QComboBox>
#include <QListView>
#include <QTreeWidget>

#include <chrono>

namespace kehystin {

class Dialogs : public RealProgram {
  protected:
    /// Opens a dialog by its menu entry, lets `use` work in it, and closes it where it still
    /// stands.
    void in_dialog(QString const& entry, std::function<void()> const& use) {
        bool used = false;
        QTimer waiting;
        waiting.callOnTimeout([&] {
            auto* const modal = QApplication::activeModalWidget();
            if (used || !modal || !modal->isVisible())
                return;
            used = true;
            dialog = modal;
            EXPECT_TRUE(soon([&] { return modal->isActiveWindow(); })); // and has the keyboard
            use();
            if (modal == QApplication::activeModalWidget())
                modal->close();
        });
        waiting.start(std::chrono::milliseconds(10));
        action(entry)->trigger(); // returns when the dialog has closed
        EXPECT_TRUE(used) << entry.toStdString();
    }

    QWidget& widget(char const* name) {
        auto* const found = find_child<QWidget>(*dialog, [&](QWidget& one) {
            return one.objectName() == QLatin1String(name) && one.isVisible();
        });
        EXPECT_TRUE(found) << name;
        return found ? *found : *dialog;
    }
    void click(char const* name, QPoint point = {}) {
        QTest::mouseClick(&widget(name), Qt::LeftButton, {}, point);
    }
    void type(QString const& text) { QTest::keyClicks(dialog->focusWidget(), text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(dialog->focusWidget(), key, modifiers);
    }
    void click_item(QAbstractItemView& view, int row) {
        auto const place = view.visualRect(view.model()->index(row, 0));
        QTest::mouseMove(view.viewport(), place.center());
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place.center());
    }
    void choose_node(int row) { click_item(dynamic_cast<QTreeWidget&>(widget("tree")), row); }
    /// Opens a box and clicks an item of its list.
    void choose(char const* name, int row) {
        auto& combo = dynamic_cast<QComboBox&>(widget(name));
        QTest::mouseClick(&combo, Qt::LeftButton);
        ASSERT_TRUE(soon([&] { return combo.view()->isVisible(); }));
        QTest::qWait(QApplication::doubleClickInterval()); // the click that opened it is over
        click_item(*combo.view(), row);
    }

    QWidget* dialog = nullptr;
};

TEST_F(Dialogs, ARoleIsSetByTheMouse) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    card.fldSpeci[1] = 0;
    in_dialog(QStringLiteral("Kenttämääritykset..."), [&] {
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral(" Kenttämääritykset"));
        EXPECT_TRUE(widget("botAsiakas").isVisible());
        choose_node(2);
        choose("cmbEmail", 4);
        EXPECT_EQ(fSpeciField->cmbEmail.ListIndex, 4);
        EXPECT_EQ(widget("cmbEmail").palette().color(QPalette::Base), QColor(255, 255, 192));
        click("cmdOK");
    });
    EXPECT_FALSE(fSpeciField);
    EXPECT_NE(card.fldSpeci[1], 0);
    EXPECT_EQ(field(card.fldSpeci[1]).style, 1);
    EXPECT_TRUE(session.cardModified);
}

TEST_F(Dialogs, ARoleIsSetByKeysAndEscapeLeavesAll) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    auto const before = card.fldSpeci;
    auto const down_to_internet = [&] {
        ASSERT_TRUE(widget("tree").hasFocus());
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        press(Qt::Key_Tab);
        ASSERT_TRUE(widget("cmbEmail").hasFocus());
        press(Qt::Key_Down);
    };
    in_dialog(QStringLiteral("Kenttämääritykset..."), [&] {
        down_to_internet();
        press(Qt::Key_Escape);
        EXPECT_TRUE(fSpeciField->is_closing());
    });
    EXPECT_EQ(card.fldSpeci, before);
    in_dialog(QStringLiteral("Kenttämääritykset..."), [&] {
        down_to_internet();
        press(Qt::Key_Return);
        EXPECT_TRUE(fSpeciField->is_closing());
    });
    EXPECT_NE(card.fldSpeci[1], before[1]);
    EXPECT_EQ(card.fldSpeci[2], before[2]);
}

TEST_F(Dialogs, TheCustomerNumberFollowsArrowsAndChecks) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    in_dialog(QStringLiteral("Kenttämääritykset..."), [&] {
        auto const& arrows = widget("scrAsiakasMin");
        click("scrAsiakasMin", {arrows.width() / 2, 3});
        EXPECT_EQ(fSpeciField->txtAsiakasMin.Text.get(), "2");
        EXPECT_EQ(fSpeciField->labMalli.Caption.get(), "0002");
        click("scrAsiakasMin", {arrows.width() / 2, arrows.height() - 3});
        click("chkEtunollat", {5, widget("chkEtunollat").height() / 2});
        EXPECT_EQ(fSpeciField->labMalli.Caption.get(), "1");
        EXPECT_FALSE(widget("txtAsiakasNum").isEnabled());
        // A frame takes what stands in it along, and no keyboard.
        EXPECT_EQ(widget("txtAsiakasMin").parentWidget(), &widget("frmNumero"));
        EXPECT_EQ(widget("frmNumero").focusPolicy(), Qt::NoFocus);
        click("cmdPeruuta");
    });
    EXPECT_EQ(card.asiakasMin, 1);
    EXPECT_TRUE(card.asiakasZero);
}

TEST_F(Dialogs, ADensityIsTypedOrStepped) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    in_dialog(QStringLiteral("Asetukset..."), [&] {
        ASSERT_TRUE(widget("txt_grid_X").hasFocus());
        type(QStringLiteral("12")); // over the old number, which is selected
        EXPECT_EQ(fProp->scr_grid_X.Value, -12);
        click("txt_guide_Y", {5, 5});
        press(Qt::Key_A, Qt::ControlModifier);
        type(QStringLiteral("1"));
        EXPECT_EQ(fProp->scr_guide_Y.Value, -20);
        auto const& arrows = widget("scr_guide_X");
        click("scr_guide_X", {arrows.width() / 2, 3});
        EXPECT_EQ(fProp->txt_guide_X.Text.get(), "21");
        click("chkShowVelho", {5, widget("chkShowVelho").height() / 2});
        press(Qt::Key_Return);
    });
    EXPECT_FALSE(fProp);
    EXPECT_EQ(settings.gridX, 12);
    EXPECT_EQ(settings.gridY, 5);
    EXPECT_EQ(settings.guideX, 21);
    EXPECT_EQ(settings.guideY, 20);
    EXPECT_EQ(settings.showVelho, 0);
}

TEST_F(Dialogs, AColumnIsMovedWithItsData) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    int const before = card.fields;
    std::string second;
    in_dialog(QStringLiteral("Sarakejärjestys..."), [&] {
        auto& list = dynamic_cast<QListView&>(widget("lst"));
        click_item(list, 1);
        second = fCols->lst.chosen_text();
        click("cmd_up");
        EXPECT_EQ(list.currentIndex().row(), 0);
        EXPECT_FALSE(widget("cmd_up").isEnabled());
        click("cmd_ok");
    });
    EXPECT_FALSE(fCols);
    EXPECT_EQ(card.fields, before);
    EXPECT_EQ(field(1).caption.trimmed() + " ", second);
    EXPECT_EQ(field(2).linkki, 1);
    EXPECT_TRUE(canvas());
    // By keys, and given up by the window's own button.
    auto const first = field(1).caption.trimmed();
    in_dialog(QStringLiteral("Sarakejärjestys..."), [&] {
        press(Qt::Key_Down);
        EXPECT_EQ(fCols->lst.ListIndex, 1);
        press(Qt::Key_Tab);
        press(Qt::Key_Space);
        EXPECT_EQ(fCols->lst.ListIndex, 0);
        dialog->close();
    });
    EXPECT_EQ(field(1).caption.trimmed(), first);
}

TEST_F(Dialogs, TheLargestSampleOfAFontIsWholeInEveryStyle) {
    start();
    FontForm form;
    constexpr double border = 15;
    // DejaVu stands in for whatever a machine lacks.
    for (auto const* name : {"Arial", "Courier New", "Tahoma", "Times New Roman", "DejaVu Sans"})
        for (int style = 0; style < 4; ++style) {
            auto& sample = form.ots;
            sample.FontName = name;
            sample.FontSize = FontForm::largest_size;
            sample.FontBold = style % 2 == 1;
            sample.FontItalic = style / 2 == 1;
            center_sample(sample);
            EXPECT_GE(sample.Left, border) << name << style;
            EXPECT_GE(sample.Top, border) << name << style;
            EXPECT_LE(sample.Left + sample.Width, form.bot.Width - border) << name << style;
            EXPECT_LE(sample.Top + sample.Height, form.bot.Height - border) << name << style;
        }
    EXPECT_LE(form.Width / 15, 1024);
    EXPECT_LE(form.Height / 15, 600 - 40); // there may be a bar of the desktop
}

} // namespace kehystin
