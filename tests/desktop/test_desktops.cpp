// The program on other desktops than its authors': dark ones, those of high contrast, with small
// and large fonts, and on small screens.
#include "desktop/bar_overflow.h"
#include "desktop/boxes.h"
#include "desktop/colours.h"
#include "desktop/help_browser.h"
#include "desktop/help_window.h"
#include "desktop/look.h"
#include "forms/font_form.h"
#include "platform/system.h"
#include "tests/desktop/mouse_program.h"

#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>
#include <QToolButton>
#include <QTreeWidget>

#include <chrono>
#include <map>

namespace kehystin {

namespace {

using desktop::contrast;

QPalette two_colours(QColor const& ground, QColor const& base, QColor const& ink,
                     QColor const& chosen) {
    QPalette palette;
    for (auto const role : {QPalette::Window, QPalette::Button, QPalette::ToolTipBase})
        palette.setColor(role, ground);
    palette.setColor(QPalette::Base, base);
    for (auto const role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::HighlightedText})
        palette.setColor(role, ink);
    palette.setColor(QPalette::Highlight, chosen);
    return palette;
}

QPalette dark() {
    return two_colours(QColor(42, 46, 50), QColor(27, 30, 32), QColor(252, 252, 252),
                       QColor(61, 120, 190));
}

/// Dark windows with white fields, as some desktops have had them.
QPalette half_dark() {
    auto palette = dark();
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::ToolTipBase, QColor(255, 255, 220));
    palette.setColor(QPalette::ToolTipText, Qt::black);
    return palette;
}

QPalette white_on_black() {
    return two_colours(Qt::black, Qt::black, Qt::white, QColor(0, 60, 200));
}

QPalette black_on_white() {
    return two_colours(Qt::white, Qt::white, Qt::black, QColor(150, 200, 255));
}

QPalette light() {
    return QApplication::style()->standardPalette();
}

QFont font_of(int points) {
    return {QStringLiteral("DejaVu Sans"), points};
}

QFont usual_font() {
    return {QStringLiteral("Sans Serif"), 9};
}

/// What there is to read or to recognise on a control; empty for nothing.
std::string text_on(Control const& control) {
    if (auto const* const label = dynamic_cast<Label const*>(&control))
        return label->Caption;
    if (auto const* const text = dynamic_cast<TextBox const*>(&control))
        return text->Text;
    if (auto const* const check = dynamic_cast<CheckBox const*>(&control))
        return check->Caption;
    if (auto const* const option = dynamic_cast<OptionButton const*>(&control))
        return option->Caption;
    if (auto const* const combo = dynamic_cast<ComboBox const*>(&control))
        return combo->chosen_text();
    if (auto const* const button = dynamic_cast<Button const*>(&control))
        return button->Picture.get().empty() ? button->Caption.get() : button->Picture.get().name();
    return {};
}

/// The colour that most of a picture's part has, and how far the furthest other is from it.
struct Seen {
    QColor ground;
    double strongest = 1;
};

Seen seen_in(QImage const& image, QRect const& place) {
    std::map<QRgb, int> counts;
    for (int y = place.top(); y <= place.bottom(); ++y)
        for (int x = place.left(); x <= place.right(); ++x)
            if (image.rect().contains(x, y))
                ++counts[image.pixel(x, y)];
    Seen seen;
    int most = 0;
    for (auto const& [colour, count] : counts)
        if (count > most) {
            most = count;
            seen.ground = QColor(colour);
        }
    for (auto const& [colour, count] : counts)
        seen.strongest = std::max(seen.strongest, contrast(QColor(colour), seen.ground));
    return seen;
}

} // namespace

class Desktops : public MouseProgram {
  protected:
    void SetUp() override { desktop::dress(light(), usual_font()); }
    void TearDown() override { desktop::dress(light(), usual_font()); }

    static QWidget& part(QWidget& in, QString const& name) {
        auto* const found = in.findChild<QWidget*>(name);
        EXPECT_TRUE(found) << name.toStdString();
        return found ? *found : in;
    }
    static void click(QWidget& in, char const* name) {
        QTest::mouseClick(&part(in, QLatin1String(name)), Qt::LeftButton);
    }
    void in_entry(QString const& entry, std::function<void(QWidget&)> const& use) {
        in_dialog([&] { action(entry)->trigger(); }, use);
    }
    /// Shows every dialog of the program and every page of it.
    void in_every_dialog(std::function<void(QWidget&)> const& use) {
        in_entry(QStringLiteral("Asetukset..."), use);
        in_entry(QStringLiteral("Sarakejärjestys..."), use);
        in_entry(QStringLiteral("Info..."), use);
        in_entry(QStringLiteral("Kenttämääritykset..."), [&](QWidget& roles) {
            auto& tree = dynamic_cast<QTreeWidget&>(part(roles, QStringLiteral("tree")));
            for (int i = 0; i < tree.topLevelItemCount(); ++i) {
                tree.setCurrentItem(tree.topLevelItem(i));
                Q_EMIT tree.itemClicked(tree.topLevelItem(i), 0);
                use(roles);
            }
        });
        session.cardModified = false; // nothing to ask about
        in_entry(QStringLiteral("Uusi..."), [&](QWidget& wizard) {
            EXPECT_EQ(wizard.objectName(), QStringLiteral("fVelho"));
            for (int page = 1; page <= 4; ++page) {
                if (page > 1)
                    click(wizard, "cmdSeuraava");
                use(wizard);
            }
            in_dialog([&] { click(wizard, "cmdFontTxt"); }, use);
        });
    }

    /// What of a form's texts and icons cannot be made out in its window, as " name contrast".
    static std::string hidden_in(QWidget& window) {
        std::string hidden;
        auto const image = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        for (auto* const form : System::current().forms())
            for (auto const* const control : form->controls()) {
                auto const* const shown =
                    window.findChild<QWidget*>(QString::fromStdString(control->full_name()));
                auto const* const look = dynamic_cast<TextControl const*>(control);
                if (text_on(*control).find_first_not_of(' ') == std::string::npos || !shown ||
                    !shown->isVisible() || (look && look->is_sample))
                    continue;
                auto const in_window = shown->visibleRegion().boundingRect().translated(
                    shown->mapTo(&window, QPoint()));
                if (in_window.isEmpty())
                    continue;
                auto const ratio = image.devicePixelRatio();
                QRect const place((QPointF(in_window.topLeft()) * ratio).toPoint(),
                                  (QSizeF(in_window.size()) * ratio).toSize());
                auto const seen = seen_in(image, place.adjusted(2, 2, -2, -2));
                double const wanted = control->is_enabled() ? 3.5 : 1.5;
                if (seen.strongest < wanted)
                    hidden += ' ' + control->full_name() + ' ' + std::to_string(seen.strongest);
            }
        return hidden;
    }
    /// The share of a window's pixels that are light.
    static double light_share(QWidget& window) {
        auto const image = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        qint64 lit = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                lit += qGray(image.pixel(x, y)) > 150 ? 1 : 0;
        return double(lit) / (double(image.width()) * image.height());
    }
    QMenu& file_menu() {
        return *qobject_cast<QMenu*>(action(QStringLiteral("Avaa..."))->parent());
    }
    void select(int number) {
        MouseProgram::click(middle_of(number));
        QCoreApplication::processEvents();
    }
    static QImage picture_of(QWidget& widget) { return widget.grab().toImage(); }
};

TEST_F(Desktops, DarkOnesAreFollowedByAllButTheCard) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    select(3);
    ASSERT_TRUE(soon([&] { return !host->timers().isAnyShorterThan(100); }));
    window()->setFocus(); // no blinking caret in the pictures
    auto const card_before = picture_of(*canvas());
    auto const bars = {"icoBar", "fldBar", "proBar", "stsBar"};
    std::map<std::string, QImage> before;
    for (auto const* const bar : bars)
        before[bar] = picture_of(widget(bar));

    for (auto const& palette : {dark(), half_dark(), white_on_black()}) {
        desktop::dress(palette, usual_font()); // while the program runs
        QCoreApplication::processEvents();
        EXPECT_EQ(picture_of(*canvas()), card_before);
        EXPECT_EQ(hidden_in(*window()), "");
        for (auto const* const bar : bars)
            EXPECT_LT(light_share(widget(bar)), 0.25) << bar;
        EXPECT_LT(light_share(*window()->findChild<QMenuBar*>()), 0.2);
        EXPECT_LT(light_share(file_menu()), 0.3);
        in_every_dialog([](QWidget& dialog) {
            EXPECT_LT(light_share(dialog), 0.2) << dialog.objectName().toStdString();
            EXPECT_EQ(hidden_in(dialog), "") << dialog.objectName().toStdString();
        });
        EXPECT_EQ(fEditor->txt_left.BackColor, colours::white) << "numbers are the program's";
    }
    desktop::dress(light(), usual_font());
    QCoreApplication::processEvents();
    for (auto const* const bar :
         {"fldBar", "proBar", "stsBar"}) // the icon bar has the keyboard now
        EXPECT_EQ(picture_of(widget(bar)), before[bar]) << bar;
    EXPECT_EQ(picture_of(*canvas()), card_before);
}

TEST_F(Desktops, ACardIsTheSameThatIsOpenedOnADarkOne) {
    start(QStringLiteral("examples/tuotteet.krt"));
    auto const before = picture_of(*canvas());
    program.reset();
    host.reset();
    desktop::dress(white_on_black(), usual_font());
    start(QStringLiteral("examples/tuotteet.krt"));
    EXPECT_EQ(picture_of(*canvas()), before);
    // Nor are the samples of a look another one there.
    in_entry(QStringLiteral("Uusi..."), [](QWidget& wizard) {
        for (int page = 2; page <= 4; ++page)
            click(wizard, "cmdSeuraava");
        auto const& sample = part(wizard, QStringLiteral("fontOts"));
        EXPECT_EQ(
            seen_in(wizard.grab(QRect(sample.mapTo(&wizard, QPoint()), sample.size())).toImage(),
                    QRect(QPoint(), sample.size()))
                .ground,
            QColor(222, 222, 222));
    });
}

TEST_F(Desktops, HighContrastHasStrongFrames) {
    for (auto const& palette : {white_on_black(), black_on_white()}) {
        desktop::dress(palette, usual_font());
        start(QStringLiteral("examples/asiakkaat.krt"));
        EXPECT_EQ(hidden_in(*window()), "");
        in_every_dialog([](QWidget& dialog) {
            EXPECT_EQ(hidden_in(dialog), "") << dialog.objectName().toStdString();
            // Whatever can be pressed or typed into can be told from what lies around it.
            auto const image = picture_of(dialog).convertToFormat(QImage::Format_RGB32);
            for (auto* const one : dialog.findChildren<QWidget*>()) {
                if (!one->isVisible() || !one->isEnabled() || one->focusPolicy() == Qt::NoFocus ||
                    one->inherits("desktop::PaintedWidget") || dynamic_cast<QLabel*>(one) ||
                    one->visibleRegion().boundingRect() != one->rect())
                    continue;
                if (!qobject_cast<QAbstractButton*>(one) && !one->inherits("QComboBox"))
                    continue;
                auto const ratio = image.devicePixelRatio();
                // From what it stands on over its left edge: inside, the keyboard's mark lies on
                // it.
                auto const corner = one->mapTo(&dialog, QPoint(-6, one->height() / 2));
                QRect const edge(int(corner.x() * ratio), int(corner.y() * ratio), int(10 * ratio),
                                 1);
                EXPECT_GE(seen_in(image, edge).strongest, 3) << one->objectName().toStdString();
            }
        });
        program.reset();
        host.reset();
    }
}

TEST_F(Desktops, TheHelpIsDarkToo) {
    auto file = desktop::HelpFile::open(QStringLiteral(KEHYSTIN_HELP));
    ASSERT_TRUE(file);
    desktop::HelpWindow help(std::move(file));
    help.showPage(QStringLiteral("kentat_teksti.htm"));
    help.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&help));
    auto const before = picture_of(help);
    EXPECT_GT(light_share(help), 0.7);
    auto& browser = *help.findChild<desktop::HelpBrowser*>();
    browser.zoom(2);
    desktop::dress(dark(), font_of(14));
    QCoreApplication::processEvents();
    EXPECT_LT(light_share(help), 0.4); // its pictures are light
    EXPECT_EQ(browser.page(), QStringLiteral("kentat_teksti.htm"));
    // Its lists have room for the letters, its buttons for their words.
    auto const& contents = *help.findChild<QTreeWidget*>(QStringLiteral("contents"));
    EXPECT_GE(contents.visualItemRect(contents.topLevelItem(0)).height(),
              contents.fontMetrics().height());
    for (auto* const button : help.findChildren<QToolButton*>())
        if (button->isVisible()) {
            EXPECT_TRUE(soon([&] {
                return button->width() > button->fontMetrics().horizontalAdvance(button->text());
            })) << button->text().toStdString();
        }
    browser.zoom(0);
    desktop::dress(light(), usual_font());
    QCoreApplication::processEvents();
    EXPECT_TRUE(soon([&] { return picture_of(help) == before; }));
}

TEST_F(Desktops, MenusAndBoxesFollowTheFontAndRowsDoNot) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    select(3);
    QList<QImage> dialogs;
    in_every_dialog([&](QWidget& dialog) { dialogs += picture_of(dialog); });
    auto const caption = picture_of(widget("labProp(4)"));
    auto const row_font = widget("txt_left").font();
    auto const card_frame = picture_of(*card_window());
    auto& bar = *window()->findChild<QMenuBar*>();
    for (int const points : {6, 8, 12, 16}) {
        desktop::dress(light(), font_of(points));
        QCoreApplication::processEvents();
        EXPECT_EQ(QFontInfo(bar.font()).pixelSize(), qRound(points * 96 / 72.0));
        EXPECT_EQ(bar.font().family(), QStringLiteral("DejaVu Sans"));
        EXPECT_GE(bar.height(), bar.fontMetrics().height()) << points;
        for (auto* const menu : bar.actions())
            EXPECT_TRUE(bar.rect().contains(bar.actionGeometry(menu))) << points;
        EXPECT_EQ(file_menu().font().family(), QStringLiteral("DejaVu Sans"));
        EXPECT_EQ(picture_of(widget("labProp(4)")), caption) << points;
        EXPECT_EQ(widget("txt_left").font(), row_font) << points;
        EXPECT_EQ(picture_of(*card_window()), card_frame) << points;
        qsizetype next = 0;
        in_every_dialog([&](QWidget& dialog) {
            EXPECT_EQ(picture_of(dialog), dialogs.value(next++))
                << points << dialog.objectName().toStdString();
        });
        in_dialog(
            [&] {
                desktop::showMessage(window(), " Korttia ei ole tallennettu.     \r\n Jatketaanko?",
                                     platform::box::yes_no_cancel, " Kehystin", {});
            },
            [&](QWidget& box) {
                auto const& text = part(box, QStringLiteral("qt_msgbox_label"));
                EXPECT_EQ(QFontInfo(text.font()).pixelSize(), qRound(points * 96 / 72.0));
                EXPECT_GE(text.height(), text.sizeHint().height());
                for (auto* const button : box.findChildren<QAbstractButton*>())
                    EXPECT_GE(button->width(), button->sizeHint().width());
            });
    }
}

TEST_F(Desktops, IconsThatDoNotFitAreInAMenu) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    auto& bar = widget("icoBar");
    auto& more = part(bar, QStringLiteral("icoBar.more"));
    auto const is_in_sight = [&](QWidget& icon) {
        return bar.rect().contains(icon.geometry()) &&
               (more.isHidden() || !more.geometry().intersects(icon.geometry()));
    };
    for (int const width : {1100, 1000, 640, 400}) {
        window()->resize(width, 400);
        ASSERT_TRUE(soon([&] { return bar.width() <= width && bar.width() > width - 20; }));
        ASSERT_TRUE(soon([&] { return !host->timers().isAnyShorterThan(100); }));
        QStringList cut;
        for (int i = 1; i <= session.iconCount; ++i) {
            auto& icon = widget(("ico(" + std::to_string(i) + ")").c_str());
            if (!is_in_sight(icon))
                cut += icon.accessibleName();
        }
        EXPECT_EQ(more.isHidden(), cut.isEmpty()) << width;
        if (cut.isEmpty())
            continue;
        auto const sign = dynamic_cast<QToolButton&>(more).icon().pixmap(16).toImage();
        EXPECT_EQ(qAlpha(sign.pixel(0, 0)), 0);
        QStringList offered;
        bool const guides = fEditor->cmd_guide_show.Checked;
        QTimer::singleShot(50, [&] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            for (auto* const entry : menu->actions()) {
                offered += entry->text().remove(u'&');
                EXPECT_FALSE(entry->icon().isNull());
            }
            for (auto* const entry : menu->actions())
                if (entry->text() == QStringLiteral("Apuviivat"))
                    entry->trigger();
            menu->close();
        });
        QTest::mousePress(&more, Qt::LeftButton);
        QTest::mouseRelease(&more, Qt::LeftButton);
        QCursor::setPos(0, 0); // or the tip of an icon comes up
        EXPECT_EQ(offered.join(u';').toStdString(), cut.join(u';').toStdString()) << width;
        EXPECT_EQ(fEditor->cmd_guide_show.Checked != guides,
                  offered.contains(QStringLiteral("Apuviivat")));
    }
    // One that has the keyboard shows.
    auto& last = widget(("ico(" + std::to_string(session.iconCount) + ")").c_str());
    EXPECT_FALSE(is_in_sight(last));
    last.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(is_in_sight(last));
    widget("cmb_field").setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(is_in_sight(last));
}

/// Run on several screens: what does not fit one scrolls.
TEST_F(Desktops, EveryDialogFitsTheScreen) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    auto const screen = window()->screen()->availableGeometry();
    in_every_dialog([&](QWidget& dialog) {
        auto const name = dialog.objectName().toStdString();
        EXPECT_TRUE(screen.contains(dialog.frameGeometry())) << name;
        for (auto* const one : dialog.findChildren<QWidget*>()) {
            if (!one->isVisible() || !one->isEnabled() || !(one->focusPolicy() & Qt::TabFocus))
                continue;
            one->setFocus(Qt::TabFocusReason);
            QCoreApplication::processEvents();
            auto const in_sight = one->visibleRegion().boundingRect();
            EXPECT_TRUE(in_sight == one->rect() || in_sight.height() > 100)
                << name << ' ' << one->objectName().toStdString();
        }
    });
    for (auto const task : {desktop::FileTask::open, desktop::FileTask::save})
        in_dialog(
            [&] {
                try {
                    desktop::askFile(window(), {}, task);
                } catch (RuntimeError const&) {
                    // closed without a choice
                }
            },
            [&](QWidget& dialog) { EXPECT_TRUE(screen.contains(dialog.frameGeometry())); });
}

} // namespace kehystin
