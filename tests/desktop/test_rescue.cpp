// Work that outlives the process, in the real windows and before the real disk.
#include "cardfile/document_commands.h"
#include "desktop/end_requests.h"
#include "tests/desktop/real_program.h"

#include <QDir>

#include <csignal>
#include <cstdio>

namespace kehystin {

class RealRescue : public RealProgram {
  protected:
    QStringList kept() const {
#ifdef Q_OS_WIN
        auto const where = QStringLiteral("state/kehystin/rescue");
#else
        auto const where = QStringLiteral("state/kehystin");
#endif
        return QDir(folder.filePath(where)).entryList({QStringLiteral("*.work")}, QDir::Files);
    }
};

TEST_F(RealRescue, AChangeIsOnTheDiskSoonAndOpensAtTheNextStart) {
    auto const file = copy_of(QStringLiteral("asiakkaat.krt"));
    start(file);
    auto const left_before = field(2).left;
    fEditor->cmb_field.ListIndex = 2;
    fEditor->txt_left.Text = std::to_string(left_before + 7);
    EXPECT_TRUE(kept().isEmpty());
    ASSERT_TRUE(soon([&] { return kept().size() == 1; }));
    program.reset(); // as if it had been killed: nobody was asked
    host.reset();

    NextBox box(QStringLiteral("Kyllä"));
    start();
    EXPECT_TRUE(box.was_shown());
    EXPECT_TRUE(box.text().contains(file)) << box.text().toStdString();
    EXPECT_EQ(field(2).left, left_before + 7);
    EXPECT_TRUE(static_cast<bool>(session.cardModified));
    EXPECT_EQ(kept().size(), 1); // by this session now
    cmdTallenna_Click();
    EXPECT_FALSE(static_cast<bool>(session.cardModified));
    EXPECT_TRUE(kept().isEmpty());
}

TEST_F(RealRescue, LoggingOutKeepsTheWorkAndAsksWhereNothingElseIsAsked) {
    start(copy_of(QStringLiteral("asiakkaat.krt")));
    desktop::EndRequests requests([&] { program->keep_work(); },
                                  [&] { return host->closeForLogout(); });
    auto const may_ask = [] { return true; };
    fEditor->cmb_field.ListIndex = 2;
    fEditor->txt_left.Text = "33";
    EXPECT_TRUE(requests.mayLogOut([] { return false; }));
    EXPECT_EQ(kept().size(), 1);
    EXPECT_FALSE(host->isSessionOver());

    fEditor->txt_left.Text = "34";
    bool went_on = false;
    QTimer::singleShot(0, &requests, [&] { went_on = requests.mayLogOut(may_ask); });
    {
        NextBox standing(QStringLiteral("Kyllä"));
        cmd_close_Click();
        EXPECT_TRUE(standing.was_shown());
    }
    EXPECT_TRUE(went_on);
    EXPECT_FALSE(host->isSessionOver());

    NextBox question(QStringLiteral("Kyllä"));
    EXPECT_TRUE(requests.mayLogOut(may_ask));
    EXPECT_TRUE(host->isSessionOver());
    EXPECT_FALSE(question.was_shown()); // nothing is open any more
}

#ifndef Q_OS_WIN // where no signal ends a program: the system's own request does
TEST(EndRequests, ASignalKeepsTheWorkAndThenEndsTheProcess) {
    auto const end_by = [](int number) {
        desktop::EndRequests const requests([] { std::fputs("kept", stderr); },
                                            [] { return true; });
        std::raise(number);
        QTest::qWait(5000);
    };
    EXPECT_EXIT(end_by(SIGTERM), testing::KilledBySignal(SIGTERM), "kept");
    EXPECT_EXIT(end_by(SIGHUP), testing::KilledBySignal(SIGHUP), "kept");
    auto const outlive = [](int number) { // as under nohup
        std::signal(number, SIG_IGN);
        desktop::EndRequests const requests([] {}, [] { return true; });
        std::raise(number);
        QTest::qWait(50);
        std::_Exit(7);
    };
    EXPECT_EXIT(outlive(SIGHUP), testing::ExitedWithCode(7), "");
}
#endif

} // namespace kehystin
