// New, open, save and close with real clicks and keys.
#include "desktop/text.h"
#include "model/settings.h"
#include "tests/desktop/mouse_program.h"

#include <QInputDialog>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QUrl>

namespace kehystin {

using Documents = RealProgram;

TEST_F(Documents, ACardThatIsResizedByItsBorderIsSavedWithCtrlS) {
    auto const path = copy_of(QStringLiteral("asiakkaat.krt"));
    start(path);
    int const width = card.width;
    card_window()->resize(width + 40, card.height);
    ASSERT_TRUE(soon([] { return static_cast<bool>(session.cardModified); }));
    EXPECT_EQ(fCard->Width, (width + 40) * 15);
    EXPECT_TRUE(action(QStringLiteral("Tallenna"))->isEnabled());
    QTest::keyClick(window(), Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(soon([] { return !session.cardModified; }));
    EXPECT_FALSE(action(QStringLiteral("Tallenna"))->isEnabled());
    QFile saved(path);
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_TRUE(saved.readAll().startsWith("+----"));
}

TEST_F(Documents, TheCardsCloseButtonAsksAndTheTimerCloses) {
    start(QStringLiteral("examples/vanha.krt"));
    {
        NextBox refused(QStringLiteral("Peruuta"));
        card_window()->close();
        EXPECT_TRUE(refused.was_shown());
        QTest::qWait(50);
        EXPECT_TRUE(card_window());
    }
    NextBox agreed(QStringLiteral("OK"));
    card_window()->close();
    EXPECT_TRUE(soon([&] { return !card_window(); }));
    EXPECT_EQ(window()->windowTitle(), QStringLiteral(" Kehystin 5.6"));
    EXPECT_FALSE(action(QStringLiteral("Sulje"))->isEnabled());
}

TEST_F(Documents, AMenuEntryShowsTheLettersOfAFileNameAndNoAccessKey) {
    start();
    auto& entry = fEditor->cmd_open;
    auto const shows = [&](char const* text) {
        return soon([&] {
            return find_child<QAction>(
                *window(), [&](QAction& one) { return one.text() == QLatin1String(text); });
        });
    };
    entry.UseMnemonic = false;
    entry.Caption = "&1  /R&D/kortti.krt";
    EXPECT_TRUE(shows("&&1  /R&&D/kortti.krt"));
    entry.Caption = "&2  /R&D/kortti.krt"; // the entry is there already
    EXPECT_TRUE(shows("&&2  /R&&D/kortti.krt"));
    entry.UseMnemonic = true;
    EXPECT_TRUE(shows("&2  /R&D/kortti.krt"));
}

TEST_F(Documents, ANewCardIsNamedAndShown) {
    start();
    settings.showVelho = 0;
    QTimer name_it;
    name_it.callOnTimeout([&] {
        auto* const box = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        if (!box)
            return;
        name_it.stop();
        auto* const line = find_child<QLineEdit>(*box);
        line->clear();
        line->insert(QStringLiteral("Jäsenkortti")); // QTest types no letters beyond ASCII
        QTest::keyClick(line, Qt::Key_Return);
    });
    name_it.start(20);
    action(QStringLiteral("Uusi..."))->trigger();
    ASSERT_TRUE(card_window());
    EXPECT_EQ(card.name.trimmed(), "Jäsenkortti");
    EXPECT_EQ(card_window()->windowTitle().trimmed(), QStringLiteral("Jäsenkortti"));
    EXPECT_EQ(window()->windowTitle(), QStringLiteral(" Kehystin 5.6 - Uusi kortti"));
}

TEST_F(Documents, ClickingACheckBoxOnTheCardLeavesItsTick) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    for (int i = 1; i <= card.fields; ++i) {
        auto const& one = field(i);
        if (!one.is(Style::CHK))
            continue;
        auto const before = fCard->chk(i).Value.get();
        QTest::mouseClick(canvas(), Qt::LeftButton, {}, QPoint(one.left + 8, one.top + 8));
        EXPECT_EQ(fCard->chk(i).Value, before);
        EXPECT_TRUE(fCard->focus(i).Visible);
    }
}

TEST_F(Documents, TheMainWindowsCloseButtonEndsTheSessionAndWritesTheSettings) {
    start(QStringLiteral("examples/vanha.krt"));
    QTimer::singleShot(0, qApp, [&] { window()->close(); });
    EXPECT_EQ(QApplication::exec(), 0);
#ifdef Q_OS_WIN
    auto const written = QStringLiteral("state/kehystin/editor53.ini");
#else
    auto const written = QStringLiteral("kehystin/editor53.ini");
#endif
    EXPECT_EQ(QFileInfo(folder.filePath(written)).size(), 730);
}

TEST_F(Documents, F6HidesTheFieldBarAndCentresTheCard) {
    start(QStringLiteral("examples/vanha.krt"));
    int const left = card_window()->x();
    QTest::keyClick(window(), Qt::Key_F6);
    ASSERT_TRUE(soon([] { return !fEditor->fldBar.Visible; }));
    EXPECT_FALSE(action(QStringLiteral("Kentät"))->isChecked());
    EXPECT_EQ(card_window()->x(), left + 20);
}

TEST_F(Documents, F1AsAKeyKeepsThePageOfThePlaceAndTheEntryOpensTheContents) {
    start(QStringLiteral("examples/vanha.krt"));
    session.helpTopic = "kentat_kortti.htm";
    {
        NextBox missing(QStringLiteral("OK"));
        QTest::keyClick(window(), Qt::Key_F1);
        ASSERT_TRUE(soon([&] { return missing.was_shown(); }));
    }
    EXPECT_EQ(session.helpTopic, "kentat_kortti.htm");
    NextBox missing(QStringLiteral("OK"));
    action(QStringLiteral("Hakemisto"))->trigger();
    EXPECT_EQ(session.helpTopic, "sisallys.htm");
}

namespace {

using DroppedFiles = MouseProgram;

QList<QUrl> urls_of(QStringList const& files) {
    QList<QUrl> urls;
    for (auto const& file : files)
        urls.append(QUrl::fromLocalFile(file));
    return urls;
}

} // namespace

TEST_F(DroppedFiles, OpenWhereverOnTheWindowTheyAreDropped) {
    auto const files = {copy_of(QStringLiteral("vanha.krt")),
                        copy_of(QStringLiteral("laskut.krt"))};
#ifdef Q_OS_WIN // no name there has a line break
    auto const broken = folder.filePath(QStringLiteral("rivi kaksi %20.krt"));
#else
    auto const broken = folder.filePath(QStringLiteral("rivi\nkaksi %20.krt"));
#endif
    QFile::copy(QStringLiteral(KEHYSTIN_SOURCES "/examples/asiakkaat.krt"), broken);
    start(QStringLiteral("examples/jasenet.krt"));
    click(middle_of(1)); // its place stands in a text box then
    ASSERT_TRUE(soon([&] { return window()->findChild<QWidget*>("txt_left"); }));
    session.cardModified = false;
    QMimeData data;
    auto const drop_on = [&](QWidget& onto, QString const& file) {
        data.setUrls(urls_of({file}));
        EXPECT_TRUE(drop(data, onto, {60, 5}));
        EXPECT_NE(desktop::toQt(session.cardFile), file); // only when the drop is over
        return soon([&] { return desktop::toQt(session.cardFile) == file; });
    };
    EXPECT_TRUE(drop_on(widget("txt_left"), *files.begin()));
    EXPECT_TRUE(drop_on(*canvas(), *(files.begin() + 1)));
    EXPECT_FALSE(session.cardModified);
    EXPECT_TRUE(drop_on(*window(), broken));
    EXPECT_EQ(window()->windowTitle().count(u'\n'), 0);
    EXPECT_TRUE(action(desktop::toQt(fEditor->lastFile(1).Caption.get()).replace(u'\n', u' ')));
}

TEST_F(DroppedFiles, ManyAreTakenAsOneAndOtherThingsNotAtAll) {
    start();
    QMimeData data;
    data.setText(QStringLiteral("/etc/passwd"));
    EXPECT_FALSE(drop(data, *window(), {60, 5}));
    data.setUrls({QUrl(QStringLiteral("https://www.kehystin.example/kortti.krt"))});
    EXPECT_FALSE(drop(data, *window(), {60, 5}));
    QStringList files{copy_of(QStringLiteral("vanha.krt"))};
    for (int i = 0; i < 9999; ++i)
        files.append(QStringLiteral("/ei/ole/%1.krt").arg(i));
    data.setUrls(urls_of(files));
    NextBox others(QStringLiteral("OK"));
    EXPECT_TRUE(drop(data, *window(), {60, 5}));
    ASSERT_TRUE(soon([&] { return others.was_shown(); }));
    EXPECT_TRUE(others.text().contains(QStringLiteral("ja 9994 muuta")));
    EXPECT_EQ(desktop::toQt(session.cardFile), files.first());
}

TEST_F(DroppedFiles, WaitBehindNoBox) {
    start(QStringLiteral("examples/vanha.krt"));
    QMimeData data;
    data.setUrls(urls_of({copy_of(QStringLiteral("laskut.krt"))}));
    WhileOpen<QMessageBox> asked([&](QMessageBox& box) {
        EXPECT_FALSE(drop(data, *window(), {60, 5}));
        box.reject();
    });
    card_window()->close();
    QTest::qWait(50);
    EXPECT_EQ(session.cardFile.find("laskut"), std::string::npos);
}

} // namespace kehystin
