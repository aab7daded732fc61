// Boxes in Finnish, with the buttons and the answers that their flags name.
#include "tests/desktop/real_program.h"

#include "desktop/boxes.h"
#include "desktop/text.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTextEdit>

namespace kehystin {

using Boxes = RealProgram;

TEST_F(Boxes, ButtonsAreFinnishAndAnswerAsTheyRead) {
    struct Case {
        int flags;
        char const* press;
        QStringList buttons;
        Answer answer;
    };
    Case const cases[] = {
        {box::warning, "OK", {"OK"}, Answer::ok},
        {box::information + box::ok_cancel, "Peruuta", {"OK", "Peruuta"}, Answer::cancel},
        {box::question + box::yes_no, "Kyllä", {"Kyllä", "Ei"}, Answer::yes},
        {box::question + box::yes_no, "Ei", {"Kyllä", "Ei"}, Answer::no},
    };
    for (auto const& test : cases) {
        NextBox next(QString::fromUtf8(test.press));
        auto const answer = desktop::showMessage(nullptr, " Rivi yksi     \r\n rivi <b>kaksi</b>",
                                                 test.flags, " X");
        EXPECT_EQ(answer, test.answer);
        auto shown = next.buttons();
        auto wanted = test.buttons;
        shown.sort();
        wanted.sort();
        EXPECT_EQ(shown, wanted);
        EXPECT_TRUE(next.text().contains(QStringLiteral("<b>kaksi</b>")));
    }
}

TEST_F(Boxes, EscapeAndTheFrameAnswerOnlyWhatDoesNoHarm) {
    struct Case {
        int flags;
        bool closes;
        Answer answer;
    };
    for (auto const& [flags, closes, answer] :
         {Case{box::ok, true, Answer::ok}, Case{box::ok_cancel, true, Answer::cancel},
          Case{box::yes_no_cancel, true, Answer::cancel}, Case{box::yes_no, false, Answer::yes},
          Case{box::yes_no + box::second_default, false, Answer::no}}) {
        for (bool const byKey : {true, false}) {
            bool closed = true;
            WhileOpen<QMessageBox> const then([&](QMessageBox& shown) {
                QPointer<QMessageBox> const watched(&shown);
                EXPECT_EQ(shown.windowFlags().testFlag(Qt::WindowCloseButtonHint), closes);
                byKey ? QTest::keyClick(&shown, Qt::Key_Escape) : void(shown.close());
                QTest::qWait(200); // Qt presses the button as slowly as a hand would
                closed = !watched || !watched->isVisible();
                if (!closed)
                    QTest::keyClick(&shown, Qt::Key_Return);
            });
            EXPECT_EQ(desktop::showMessage(nullptr, "?", flags, "x"), answer) << flags;
            EXPECT_EQ(closed, closes) << flags;
        }
    }
}

TEST_F(Boxes, AQuestionEndsWithItsOwnerAndWithTheSession) {
    auto* const owner = new QWidget;
    owner->show();
    QTimer::singleShot(50, owner, [&] { delete owner; });
    desktop::showMessage(owner, "?", box::yes_no, "x");
    bool answered = false;
    QTimer::singleShot(0, qApp, [&] {
        desktop::showMessage(nullptr, "?", box::yes_no, "x");
        answered = true;
    });
    QTimer::singleShot(50, qApp, [] { QApplication::exit(); });
    QApplication::exec();
    EXPECT_TRUE(answered);
}

TEST_F(Boxes, AMessageOfAnyLengthFitsTheScreenWithItsButtons) {
    std::string rows;
    for (int i = 0; i < 3000; ++i)
        rows += " Kentän " + std::to_string(i) + " arvo on korjattu.     \r\n";
    QString const asked = QStringLiteral("Jatketaanko?");
    for (auto const& text : {rows + asked.toStdString() + "     \r\n", std::string(5000, 'x'),
                             rows + std::string(5000, 'x')}) {
        WhileOpen<QMessageBox> const then([&](QMessageBox& shown) {
            EXPECT_TRUE(shown.screen()->availableGeometry().contains(shown.frameGeometry()));
            EXPECT_TRUE(shown.rect().contains(shown.defaultButton()->geometry()));
            EXPECT_TRUE(shown.defaultButton()->hasFocus());
            EXPECT_EQ(shown.text(), desktop::toQtLines(text));
            auto& page = *find_child<QTextEdit>(shown);
            // A last line that is short stands below the page, where it is not scrolled away.
            auto* const below = find_child<QLabel>(
                shown, [&](QLabel& one) { return one.isVisible() && one.text() == asked; });
            auto const whole = desktop::toQtLines(text);
            ASSERT_EQ(below != nullptr, whole.contains(asked));
            EXPECT_EQ(page.toPlainText(),
                      below ? whole.left(whole.indexOf(asked)).trimmed() : whole);
            EXPECT_EQ(page.horizontalScrollBar()->maximum(), 0);
            auto& bar = *page.verticalScrollBar();
            EXPECT_EQ(bar.value(), 0);
            QTest::keyClick(shown.defaultButton(), Qt::Key_PageDown);
            EXPECT_EQ(bar.value(), std::min(bar.maximum(), bar.pageStep()));
            QTest::keyClick(shown.defaultButton(), Qt::Key_End);
            EXPECT_EQ(bar.value(), bar.maximum());
            QTest::keyClick(&shown, Qt::Key_Return);
        });
        EXPECT_EQ(desktop::showMessage(nullptr, text, box::warning + box::ok_cancel, "x"),
                  Answer::ok);
    }
    WhileOpen<QMessageBox> const then([&](QMessageBox& shown) {
        EXPECT_FALSE(find_child<QTextEdit>(shown));
        QTest::keyClick(&shown, Qt::Key_Return);
    });
    desktop::showMessage(nullptr, " Lyhyt.     ", box::ok, "x");
}

TEST_F(Boxes, TheSecondButtonIsTheDefaultWhereTheFlagsSaySo) {
    QTimer::singleShot(50, qApp,
                       [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
    EXPECT_EQ(desktop::showMessage(nullptr, "?", box::yes_no + box::second_default, "x"),
              Answer::no);
}

TEST_F(Boxes, ADamagedFileIsRefusedWithItsBoxAndTheSessionGoesOn) {
    QFile bad(folder.filePath(QStringLiteral("roska.krt")));
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write("ei kortti");
    bad.close();
    NextBox refused(QStringLiteral("OK"));
    start(bad.fileName());
    EXPECT_TRUE(refused.text().contains(QStringLiteral("ei kyetty tunnistamaan")));
    EXPECT_FALSE(card_window());
    EXPECT_TRUE(action(QStringLiteral("Avaa..."))->isEnabled());
}

TEST_F(Boxes, TheInputBoxTakesAndGivesOneLine) {
    WhileOpen<QInputDialog> const then([](QInputDialog& shown) {
        auto& line = *find_child<QLineEdit>(shown);
        EXPECT_EQ(line.text(), QStringLiteral("yksi kaksi"));
        QApplication::clipboard()->setText(QStringLiteral(" A\r\nB\nC\rD"));
        line.end(false);
        line.paste();
        EXPECT_EQ(line.text(), QStringLiteral("yksi kaksi A B C D"));
        EXPECT_EQ(line.cursorPosition(), line.text().size());
        QTest::keyClick(&line, Qt::Key_Return);
    });
    EXPECT_EQ(desktop::askText(nullptr, "Nimi?", "x", "yksi\r\nkaksi"), "yksi kaksi A B C D");
}

TEST_F(Boxes, AFileDialogStartsInItsOwnFolderOrWhereTheLastOneEnded) {
    QDir const here(folder.path());
    for (auto const* name : {"a", "b"}) {
        ASSERT_TRUE(here.mkdir(QLatin1String(name)));
        QFile file(here.filePath(QLatin1String(name) + QStringLiteral("/kuva.bmp")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    QString started;
    auto const choose = [&](QString const& folderWanted, QString const& typed) {
        WhileOpen<QFileDialog> const then([&](QFileDialog& shown) {
            started = shown.directory().absolutePath();
            shown.findChild<QLineEdit*>()->setText(typed);
            QTest::keyClick(shown.findChild<QLineEdit*>(), Qt::Key_Return);
        });
        platform::CommonDialog dialog;
        dialog.InitDir = desktop::fromQt(folderWanted);
        return desktop::toQt(desktop::askFile(nullptr, dialog, desktop::FileTask::open));
    };
    auto const picture = QStringLiteral("kuva.bmp");
    auto const chosen = QDir::toNativeSeparators(here.filePath("a/kuva.bmp"));
    EXPECT_EQ(choose(here.filePath("a"), picture), chosen);
    EXPECT_EQ(started, here.filePath("a"));
    choose({}, here.filePath("b/kuva.bmp"));
    EXPECT_EQ(started, here.filePath("a"));
    choose(here.filePath("olematon"), picture);
    EXPECT_EQ(started, here.filePath("b"));
    EXPECT_EQ(choose(here.filePath("a") + u'/', picture), chosen);
}

TEST_F(Boxes, APathMeansTheSameFileFromAnyFolder) {
    desktop::QtHost machine{{}};
    auto const here = [](char const* name) {
        return desktop::fromQt(QDir::toNativeSeparators(QDir::current().filePath(name)));
    };
    EXPECT_EQ(machine.absolute_path("examples/../kortti.krt"), here("kortti.krt"));
    EXPECT_EQ(machine.absolute_path("./a b.krt"), here("a b.krt"));
#ifndef Q_OS_WIN // there it begins with no drive
    EXPECT_EQ(machine.absolute_path("/tmp//./x/../a.krt"), "/tmp//./x/../a.krt");
#endif
    EXPECT_EQ(machine.absolute_path(""), "");
}

} // namespace kehystin
