// A whole day in the real windows: the same steps as the scenario of the same name, and the same
// file.
#include "forms/cols_form.h"
#include "forms/prop_form.h"
#include "forms/speci_form.h"
#include "forms/velho_form.h"
#include "model/settings.h"
#include "tests/desktop/working_day.h"

#include <QComboBox>
#include <QListView>
#include <QTreeWidget>

#include <fstream>
#include <map>

namespace kehystin {

namespace {

/// What the scenario says of its last file: line number and text.
std::map<int, std::string> expected_lines() {
    std::ifstream scenario(KEHYSTIN_SOURCES "/tests/scenarios/start/working_day.scn");
    std::string const before = "expect file \"kopio.krt\" line ";
    std::map<int, std::string> lines;
    for (std::string line; std::getline(scenario, line);)
        if (line.starts_with(before)) {
            auto const quote = line.find('"', before.size());
            lines[std::stoi(line.substr(before.size()))] =
                line.substr(quote + 1, line.size() - quote - 2);
        }
    return lines;
}

} // namespace

class WorkingDay : public DayProgram {
  protected:
    std::function<void(QWidget&)> give_file(char const* name) {
        return [this, name](QWidget& dialog) {
            auto* const files = qobject_cast<QFileDialog*>(&dialog);
            ASSERT_TRUE(files);
            files->findChild<QLineEdit*>()->setText(folder.filePath(QLatin1String(name)));
            QTest::keyClick(files->findChild<QLineEdit*>(), Qt::Key_Return);
        };
    }
    void type_in_row(char const* name, char const* text) {
        // A row that has the keyboard already shows its text selected.
        if (!widget(name).hasFocus())
            QTest::mouseClick(&widget(name), Qt::LeftButton);
        ASSERT_TRUE(soon([&] { return widget(name).hasFocus(); })) << name;
        QTest::keyClicks(&widget(name), QLatin1String(text));
        settle();
    }
};

TEST_F(WorkingDay, EndsWithTheFileOfTheScenario) {
    start();
    choose(QStringLiteral("Uusi..."),
           {[](QWidget& dialog) {
                QTest::keyClicks(dialog.findChild<QWidget*>(QStringLiteral("txtMaara")),
                                 QStringLiteral("2"));
            },
            press_button("cmdSeuraava"), press_button("cmdSeuraava"), press_button("cmdSeuraava"),
            press_button("cmdSeuraava")});
    ASSERT_TRUE(fCard);
    click({2, 2});
    settle();
    type_in_row("txt_name", "Asiakkaat 2");
    type_in_row("txt_height", "200");
    drop_from_bar("drag_ots", {25, 105});
    type_in_row("txt_caption", "Puhelin");
    drop_from_bar("drag_txt", {25, 135});

    drag({60, 135}, {120, 112});
    click({30, 107});
    click({120, 112}, Qt::ShiftModifier);
    action(QStringLiteral("Ylös"))->trigger();
    settle();
    click({120, 107});
    settle();
    // A double click on the word steps to the next one.
    QTest::mouseClick(&widget("txt_linkitys"), Qt::LeftButton);
    QTest::mouseDClick(&widget("txt_linkitys"), Qt::LeftButton);
    EXPECT_EQ(fEditor->txt_linkitys.Text.get(), "Manuaalinen");
    settle();
    QTest::mouseClick(&widget("cmd_linkki"), Qt::LeftButton);
    auto& titles = dynamic_cast<QListView&>(widget("lst_linkki"));
    QTest::mouseClick(titles.viewport(), Qt::LeftButton, {},
                      titles.visualRect(titles.model()->index(1, 0)).center());
    EXPECT_EQ(field(6).linkki, 2);

    choose(QStringLiteral("Kenttämääritykset..."),
           {[](QWidget& dialog) {
                auto& tree = *dialog.findChild<QTreeWidget*>();
                auto const place = tree.visualRect(tree.model()->index(2, 0));
                QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place.center());
            },
            [](QWidget& dialog) {
                auto* const box = dialog.findChild<QWidget*>(QStringLiteral("cmbEmail"));
                box->setFocus();
                QTest::keyClick(box, Qt::Key_Down);
            },
            press_button("cmdOK")});
    choose(QStringLiteral("Sarakejärjestys..."),
           {[](QWidget& dialog) {
                auto& list = *dialog.findChild<QListView*>(QStringLiteral("lst"));
                QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                                  list.visualRect(list.model()->index(1, 0)).center());
            },
            press_button("cmd_up"), press_button("cmd_ok")});

    auto const accept = [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); };
    choose(QStringLiteral("Tallenna"), {accept, give_file("tyopaiva.krt")});
    EXPECT_FALSE(session.cardModified);
    action(QStringLiteral("Sulje"))->trigger();
    settle();
    EXPECT_FALSE(card_window());
    choose(QStringLiteral("Avaa..."), {give_file("tyopaiva.krt")});
    choose(QStringLiteral("Tallenna nimellä..."), {give_file("kopio.krt")});
    choose(QStringLiteral("Asetukset..."),
           {[](QWidget& dialog) {
                auto* const density = dialog.findChild<QLineEdit*>(QStringLiteral("txt_grid_X"));
                density->selectAll();
                QTest::keyClicks(density, QStringLiteral("10"));
            },
            press_button("cmd_ok")});
    EXPECT_EQ(settings.gridX, 10);
    action(QStringLiteral("Lopeta"))->trigger();

    std::vector<std::string> lines;
    std::ifstream file(folder.filePath(QStringLiteral("kopio.krt")).toStdString());
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        lines.push_back(from_code_page(line));
    }
    auto const expected = expected_lines();
    EXPECT_GT(expected.size(), 40U);
    for (auto const& [number, line] : expected) {
        ASSERT_LE(static_cast<std::size_t>(number), lines.size());
        EXPECT_EQ(lines[static_cast<std::size_t>(number) - 1], line) << number;
    }
}

} // namespace kehystin
