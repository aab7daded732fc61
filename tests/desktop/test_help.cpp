// The help: opened by keys and buttons, read in its own window, and whole in itself.
#include "tests/desktop/damaged_help.h"
#include "tests/desktop/real_program.h"

#include "desktop/help_browser.h"
#include "desktop/help_file.h"
#include "desktop/help_viewer.h"
#include "desktop/help_window.h"
#include "desktop/text.h"
#include "forms/info_form.h"
#include "forms/panel_rows.h"
#include "platform/system.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>

#include <iostream>

namespace kehystin {

namespace {

QString const helpFile = QStringLiteral(KEHYSTIN_HELP);

/// The pages that the program opens by itself.
QStringList const topics = {
    "sisallys.htm",      "kentat_kortti.htm",          "kentat_otsikko.htm",
    "kentat_teksti.htm", "kentat_valinta.htm",         "kentat_vaihtoehto.htm",
    "kentat_kuva.htm",   "kentat_lista.htm",           "yleista_asetukset.htm",
    "velho.htm",         "kentat_alasvetovalikko.htm", "tyokalutKenttamaaritykset.htm"};

desktop::HelpWindow* help_window() {
    for (auto* const widget : QApplication::topLevelWidgets())
        if (auto* const window = dynamic_cast<desktop::HelpWindow*>(widget);
            window && window->isVisible())
            return window;
    return nullptr;
}

desktop::HelpBrowser& page() {
    return *find_child<desktop::HelpBrowser>(*help_window());
}

template <class Widget>
Widget& part(char const* name) {
    return *help_window()->findChild<Widget*>(QLatin1String(name));
}

/// Every target of that attribute in a page's source.
QStringList targets(QString const& source, char const* attribute) {
    QStringList found;
    QRegularExpression const pattern(QLatin1String(attribute) + QStringLiteral("=\"([^\"]*)\""));
    for (auto match = pattern.globalMatch(source); match.hasNext();)
        found.append(match.next().captured(1));
    return found;
}

/// The page is there, and the place in it too.
bool resolves(desktop::HelpFile const& file, QString const& page, QString const& target) {
    auto const name = target.section(u'#', 0, 0);
    auto const place = target.section(u'#', 1);
    auto const source = file.text(name.isEmpty() ? page : name);
    return !source.isNull() && (place.isEmpty() || targets(source, "<a name").contains(place));
}

} // namespace

class Help : public RealProgram {
  protected:
    void start_with_help() {
        start(QStringLiteral("examples/vanha.krt"));
        session.appPath = desktop::fromQt(QFileInfo(helpFile).absolutePath() + u'/');
    }
    /// In the main window, which the user goes back to first.
    void press_f1() {
        window()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
        QTest::keyClick(window(), Qt::Key_F1);
    }
    /// A help file with that content instead of the true one.
    void give_help_file(QByteArray const& content) {
        QFile file(folder.filePath(QStringLiteral("editor55.chm")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        session.appPath = desktop::fromQt(folder.path() + u'/');
    }
    static QByteArray true_help_file() {
        QFile file(helpFile);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Clicks the middle of the first link to a page.
    static void follow_link_to(QString const& target) {
        ASSERT_TRUE(QTest::qWaitForWindowExposed(help_window()));
        QTextCursor link(page().document());
        while (link.charFormat().anchorHref() != target &&
               link.movePosition(QTextCursor::NextCharacter)) {
        }
        ASSERT_EQ(link.charFormat().anchorHref(), target);
        page().setTextCursor(link);
        page().ensureCursorVisible();
        QTest::mouseClick(page().viewport(), Qt::LeftButton, {},
                          page().cursorRect(link).center() + QPoint(3, 0));
    }
};

TEST(HelpFile, HasEveryPageOfTheProgramAndEveryLinkAndPictureLeadsSomewhere) {
    auto const file = desktop::HelpFile::open(helpFile);
    ASSERT_TRUE(file);
    for (auto const& topic : topics)
        EXPECT_TRUE(file->pages().contains(topic)) << topic.toStdString();
    EXPECT_TRUE(topics.contains(desktop::toQt(panel_kind(card_prefix)->help_page)));
    for (auto const& kind : kinds)
        EXPECT_TRUE(topics.contains(desktop::toQt(panel_kind(kind.prefix)->help_page)))
            << kind.prefix;
    QSet<QString> seen;
    for (auto const& name : file->pages()) {
        auto const source = file->text(name);
        EXPECT_TRUE(source.contains(QStringLiteral("ä"))) << name.toStdString();
        EXPECT_FALSE(source.contains(QChar::ReplacementCharacter)) << name.toStdString();
        for (auto const& target : targets(source, "href"))
            EXPECT_TRUE(resolves(*file, name, target))
                << name.toStdString() << ": " << target.toStdString();
        for (auto const& picture : targets(source, "src")) {
            seen.insert(picture);
            EXPECT_FALSE(QImage::fromData(file->read(picture)).isNull())
                << name.toStdString() << ": " << picture.toStdString();
        }
    }
    for (auto const& name : file->names())
        EXPECT_TRUE(!name.endsWith(QLatin1String(".png")) || seen.contains(name))
            << name.toStdString() << " is on no page";
}

TEST(HelpFile, HoldsItsSourcesByteByByte) {
    auto const file = desktop::HelpFile::open(helpFile);
    ASSERT_TRUE(file);
    QDir const sources(QStringLiteral(KEHYSTIN_SOURCES "/help"));
    QStringList expected;
    for (auto const* const kind : {"*.htm", "*.css", "*.hhc", "*.hhk", "pictures/*.png"}) {
        auto const path = QString::fromLatin1(kind);
        QDir const folder(sources.filePath(QFileInfo(path).path()));
        for (auto const& name : folder.entryList({QFileInfo(path).fileName()}, QDir::Files))
            expected.append(sources.relativeFilePath(folder.filePath(name)));
    }
    for (auto const& name : expected) {
        QFile source(sources.filePath(name));
        ASSERT_TRUE(source.open(QIODevice::ReadOnly));
        auto bytes = source.readAll();
        if (name.startsWith(QLatin1String("editor55"))) // in the code page of the format
            bytes = QString::fromUtf8(bytes).toLatin1();
        EXPECT_TRUE(file->read(name) == bytes)
            << name.toStdString() << " has changed: run tools/compile_help";
    }
    expected.append(QStringLiteral("_#_README_#_")); // the compiler's own words
    auto held = file->names();
    held.sort();
    expected.sort();
    EXPECT_EQ(held.join(u' ').toStdString(), expected.join(u' ').toStdString());
}

TEST(HelpFile, ContentsAndIndexLeadToEveryPageInTheirOwnLetters) {
    auto const file = desktop::HelpFile::open(helpFile);
    ASSERT_TRUE(file);
    for (auto const& entries : {file->contents(), file->index()}) {
        QSet<QString> reached;
        QString titles;
        for (auto const& entry : entries) {
            titles += entry.title + u'\n';
            reached.insert(entry.page.section(u'#', 0, 0));
            EXPECT_TRUE(entry.page.isEmpty() || resolves(*file, {}, entry.page))
                << entry.page.toStdString();
        }
        EXPECT_TRUE(titles.contains(QStringLiteral("Sarakejärjestys")));
        for (auto const& topic : topics)
            EXPECT_TRUE(reached.contains(topic) || topic == topics.front()) << topic.toStdString();
    }
    EXPECT_EQ(file->contents().at(1).level, 1);
}

TEST_F(Help, F1OpensThePageOfThePlaceAndUsesTheOneWindow) {
    start_with_help();
    press_f1();
    ASSERT_TRUE(soon([] { return help_window(); }));
    EXPECT_EQ(page().page(), QStringLiteral("kentat_kortti.htm"));
    EXPECT_FALSE(help_window()->isModal());
    auto* const first = help_window();

    fEditor->cmb_field.ListIndex = 2;
    press_f1();
    ASSERT_TRUE(soon([] { return page().page() != QLatin1String("kentat_kortti.htm"); }));
    EXPECT_EQ(page().page(), desktop::toQt(session.helpTopic));
    EXPECT_EQ(help_window(), first);

    action(QStringLiteral("Hakemisto"))->trigger();
    EXPECT_EQ(page().page(), QStringLiteral("sisallys.htm"));
    EXPECT_EQ(part<QTreeWidget>("contents").currentItem()->text(0),
              QStringLiteral("Kehystimen ohje"));
}

TEST_F(Help, LinksAreFollowedAndTheWayLeadsBackAndForward) {
    start_with_help();
    action(QStringLiteral("Hakemisto"))->trigger();
    ASSERT_TRUE(soon([] { return help_window(); }));
    EXPECT_FALSE(part<QToolButton>("back").isEnabled());
    EXPECT_EQ(help_window()->windowTitle(), QStringLiteral("Kehystimen ohje"));
    follow_link_to(QStringLiteral("velho.htm"));
    ASSERT_TRUE(soon([] { return page().page() == QLatin1String("velho.htm"); }));
    EXPECT_TRUE(help_window()->windowTitle().contains(QStringLiteral("Korttivelho")));
    QTest::mouseClick(&part<QToolButton>("back"), Qt::LeftButton);
    EXPECT_EQ(page().page(), QStringLiteral("sisallys.htm"));
    QTest::mouseClick(&part<QToolButton>("forward"), Qt::LeftButton);
    EXPECT_EQ(page().page(), QStringLiteral("velho.htm"));

    auto& contents = part<QTreeWidget>("contents");
    contents.setFocus();
    QTest::keyClick(&contents, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(page().page(), QStringLiteral("sisallys.htm"));
    QTest::keyClick(&contents, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(page().page(), QStringLiteral("velho.htm"));

    auto* const line =
        contents.findItems(QStringLiteral("Sarakejärjestys"), Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    ASSERT_TRUE(line);
    contents.scrollToItem(line);
    QTest::mouseClick(contents.viewport(), Qt::LeftButton, {},
                      contents.visualItemRect(line).center());
    EXPECT_EQ(page().pageAndPlace(), QStringLiteral("kentat_otsikko.htm#sarakkeet"));
    EXPECT_GT(page().verticalScrollBar()->value(), 0);
}

TEST_F(Help, SearchFindsWordsInAllPagesAndMarksThem) {
    start_with_help();
    press_f1();
    ASSERT_TRUE(soon([] { return help_window() && help_window()->isActiveWindow(); }));
    QTest::keyClick(&page(), Qt::Key_F, Qt::ControlModifier); // wherever the keyboard is
    auto& typed = part<QLineEdit>("searched");
    auto& hits = part<QListWidget>("hits");
    ASSERT_TRUE(typed.isVisible());
    QTest::keyClicks(&typed, QStringLiteral("etunollat"));
    ASSERT_EQ(hits.count(), 1);
    QTest::keyClick(&typed, Qt::Key_Return);
    EXPECT_EQ(page().page(), QStringLiteral("tyokalutKenttamaaritykset.htm"));
    EXPECT_FALSE(page().extraSelections().isEmpty());

    typed.setText(QStringLiteral("sarakejärjestys LINKIT"));
    EXPECT_GE(hits.count(), 1);
    QTest::keyClick(&typed, Qt::Key_Return);
    ASSERT_GT(page().extraSelections().size(), 1);
    int const first = page().textCursor().position();
    QTest::keyClick(&typed, Qt::Key_F3);
    EXPECT_GT(page().textCursor().position(), first);
    page().showPage(QStringLiteral("tyokalutKenttamaaritykset.htm"));
    typed.setText(QStringLiteral("xyzzy"));
    ASSERT_EQ(hits.count(), 1);
    QTest::keyClick(&typed, Qt::Key_Return);
    EXPECT_EQ(page().page(), QStringLiteral("tyokalutKenttamaaritykset.htm"));
}

TEST_F(Help, TheIndexOpensItsLinesByTheKeyboard) {
    start_with_help();
    press_f1();
    ASSERT_TRUE(soon([] { return help_window(); }));
    auto& index = part<QListWidget>("index");
    auto& typed = part<QLineEdit>("indexWord");
    help_window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(help_window()));
    help_window()->findChild<QTabWidget*>()->setCurrentIndex(1);
    typed.setFocus();
    QTest::keyClicks(&typed, QStringLiteral("kuva"));
    QTest::keyClick(&typed, Qt::Key_Return);
    EXPECT_EQ(page().page(), QStringLiteral("kentat_kuva.htm"));
    QTest::keyClicks(&typed, QStringLiteral("xyzzy"));
    QTest::keyClick(&typed, Qt::Key_Return);
    EXPECT_EQ(page().page(), QStringLiteral("kentat_kuva.htm"));

    typed.setText(QStringLiteral("asetu"));
    QTest::keyClick(&typed, Qt::Key_Tab);
    ASSERT_TRUE(index.hasFocus());
    QTest::keyClick(&index, Qt::Key_Return);
    EXPECT_EQ(page().page(), QStringLiteral("yleista_asetukset.htm"));
    typed.clear();
    QTest::keyClick(&index, Qt::Key_Home);
    QTest::keyClick(&index, Qt::Key_Down);
    QTest::keyClick(&index, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(page().page(), index.item(1)->data(Qt::UserRole).toString().section(u'#', 0, 0));
}

TEST_F(Help, TheWindowRemembersNothingOnceItIsClosed) {
    start_with_help();
    press_f1();
    ASSERT_TRUE(soon([] { return help_window(); }));
    auto const ordinary = page().font().pointSizeF();
    QTest::keyClick(help_window(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(page().font().pointSizeF(), ordinary);
    QTest::keyClick(help_window(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(page().font().pointSizeF(), ordinary);
    QTest::mouseClick(&part<QToolButton>("larger"), Qt::LeftButton);
    page().showPage(QStringLiteral("velho.htm"));
    QTest::keyClick(help_window(), Qt::Key_Escape);
    EXPECT_FALSE(help_window());
    press_f1();
    ASSERT_TRUE(soon([] { return help_window(); }));
    EXPECT_EQ(page().font().pointSizeF(), ordinary);
    EXPECT_FALSE(part<QToolButton>("back").isEnabled());
}

TEST_F(Help, F1InsideADialogShowsAPageThatCanBeReadBesideIt) {
    start_with_help();
    QString shown;
    bool dialogShows = false;
    double ordinary = 0;
    double larger = 0;
    QTimer::singleShot(100, qApp, [&] {
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_F1);
        if (help_window() && QTest::qWaitForWindowExposed(help_window())) {
            shown = page().page();
            auto const dialog = QApplication::activeModalWidget()->frameGeometry();
            dialogShows = !help_window()->frameGeometry().contains(dialog);
            ordinary = page().font().pointSizeF();
            // By way of the window, which a dialog could keep from its mouse.
            auto& button = part<QToolButton>("larger");
            QTest::mouseClick(help_window()->windowHandle(), Qt::LeftButton, {},
                              button.mapTo(help_window(), button.rect().center()));
            larger = page().font().pointSizeF();
        }
        EXPECT_TRUE(fInfo);
        fInfo->Close();
    });
    session.helpTopic = "sisallys.htm";
    action(QStringLiteral("Info..."))->trigger();
    EXPECT_EQ(shown, QStringLiteral("sisallys.htm"));
    EXPECT_TRUE(dialogShows);
    EXPECT_GT(larger, ordinary);
    EXPECT_TRUE(soon([] { return !fInfo && help_window(); }));
}

TEST_F(Help, ItsPicturesAreNoWiderThanThePage) {
    start_with_help();
    press_f1();
    ASSERT_TRUE(soon([] { return help_window(); }));
    help_window()->resize(560, 400);
    for (auto const* const topic : {"kentat_kuva.htm", "velho.htm"}) {
        page().showPage(QLatin1String(topic));
        EXPECT_TRUE(soon([] { return page().horizontalScrollBar()->maximum() == 0; })) << topic;
    }
}

TEST_F(Help, AFileThatCannotBeReadIsToldAndTheSessionGoesOn) {
    start_with_help();
    auto const whole = true_help_file();
    ASSERT_GT(whole.size(), 20000);
    auto headless = whole;
    headless.replace(0, 200, QByteArray(200, '\xff'));
    auto const blockless = DamagedHelp(whole).copy_with_empty_blocks();
    for (auto const& content : {QByteArray(), QByteArray("ohje"), whole.left(100), whole.left(5000),
                                headless, blockless}) {
        give_help_file(content);
        NextBox refused(QStringLiteral("OK"));
        press_f1();
        ASSERT_TRUE(soon([&] { return refused.was_shown(); })) << content.size();
        EXPECT_TRUE(refused.text().contains(QStringLiteral("editor55.chm ei voi lukea")));
        EXPECT_FALSE(help_window());
    }
    QFile::remove(folder.filePath(QStringLiteral("editor55.chm")));
    NextBox missing(QStringLiteral("OK"));
    press_f1();
    ASSERT_TRUE(soon([&] { return missing.was_shown(); }));
    EXPECT_TRUE(missing.text().contains(QStringLiteral("ei löydy määritellystä")));
}

/// KEHYSTIN_DAMAGED_HELP_FILES says how many are tried, instead of a sample.
TEST_F(Help, NoDamageToTheFileStopsTheProgramOrHoldsItUp) {
    start_with_help();
    DamagedHelp const damaged(true_help_file());
    auto const tables = damaged.count_of_table_bytes();
    ASSERT_GT(tables, 4000U);
    auto const wanted = qgetenv("KEHYSTIN_DAMAGED_HELP_FILES").toULongLong();
    std::size_t const count = wanted > 0 ? wanted : 300;
    std::size_t const step = wanted > 0 ? 1 : tables * 5 / 4 / count;
    qint64 slowest = 0; // milliseconds
    std::size_t shown = 0;
    for (std::size_t i = 0; i < count; ++i) {
        give_help_file(damaged.copy(i * step));
        QElapsedTimer timer;
        timer.start();
        auto const file = folder.filePath(QStringLiteral("editor55.chm"));
        if (wanted == 0 && i % 8 != 0) {
            desktop::HelpFile::open(file);
            continue;
        }
        desktop::HelpViewer viewer;
        if (viewer.show(file, QStringLiteral("sisallys.htm"), nullptr)) {
            ++shown;
            QCoreApplication::processEvents();
            QTest::keyClicks(&part<QLineEdit>("searched"), QStringLiteral("kentt"));
            for (auto const* const topic : {"velho.htm", "kentat_kuva.htm"})
                help_window()->showPage(QLatin1String(topic));
            QCoreApplication::processEvents();
        }
        slowest = std::max(slowest, timer.elapsed());
    }
    if (wanted > 0)
        std::cout << count << " damaged files, " << shown << " of them shown; the slowest took "
                  << slowest << " ms\n";
}

TEST_F(Help, APageThatIsNotThereIsSaidToBeMissing) {
    start_with_help();
    session.helpTopic = "olematon<b>.htm";
    press_f1();
    ASSERT_TRUE(soon([] { return help_window(); }));
    EXPECT_TRUE(page().toPlainText().contains(QStringLiteral("”olematon<b>.htm”")));
    follow_link_to(QStringLiteral("sisallys.htm"));
    EXPECT_EQ(page().page(), QStringLiteral("sisallys.htm"));
}

} // namespace kehystin
