// Boxes in Finnish, with the buttons and the answers that their flags name.
#include "tests/desktop/real_program.h"

#include "desktop/boxes.h"

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

TEST_F(Boxes, EscapeIsTheCautiousAnswer) {
    for (auto const& [flags, answer] :
         {std::pair{box::yes_no, Answer::no}, std::pair{box::ok_cancel, Answer::cancel}}) {
        QTimer::singleShot(
            50, qApp, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
        EXPECT_EQ(desktop::showMessage(nullptr, "?", flags, "x"), answer);
    }
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

} // namespace kehystin
