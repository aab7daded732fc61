// Every example in the real main window: what stands in the widgets is what the records say.
#include "tests/desktop/real_program.h"

#include <QComboBox>
#include <QFileInfo>
#include <QMdiSubWindow>

namespace kehystin {

class Example : public RealProgram, public testing::WithParamInterface<char const*> {
  protected:
    QColor colour_of(Colour colour) {
        return {colour & 255, (colour >> 8) & 255, (colour >> 16) & 255};
    }
    /// A point near the right end of a field, where no text, arrow or scroll bar stands.
    QPoint bare_point(Field const& one) {
        return {one.right() - 40, one.top + std::min(int{one.height}, 16) / 2};
    }
};

TEST_P(Example, StandsInItsWindowAsTheRecordsSay) {
    auto const path = QStringLiteral("examples/") + QLatin1String(GetParam());
    NextBox report(QStringLiteral("Kyllä"));
    start(path);
    EXPECT_EQ(report.was_shown(), QLatin1String(GetParam()) == QLatin1String("rikki.krt"));
    ASSERT_GT(card.fields, 0);
    EXPECT_EQ(window()->windowTitle(),
              QStringLiteral(" Kehystin 5.6 - ") +
                  QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath()));

    // The card's window has the card's size, and its name.
    auto* const card_frame = qobject_cast<QMdiSubWindow*>(card_window());
    ASSERT_TRUE(card_frame);
    EXPECT_EQ(card_frame->size(), QSize(card.width, card.height));
    EXPECT_EQ(card_frame->windowTitle().trimmed(), QString::fromStdString(card.name.trimmed()));

    // The selector names the card and every field.
    auto* const selector = find_child<QComboBox>(*window());
    ASSERT_TRUE(selector);
    ASSERT_EQ(selector->count(), card.fields + 1);
    EXPECT_EQ(selector->currentText(), QStringLiteral("Kortti"));
    for (int i = 1; i <= card.fields; ++i)
        EXPECT_TRUE(selector->itemText(i).startsWith(QStringLiteral("Kenttä (%1)  ").arg(i)));

    // The canvas shows a box in the colour of its record where each text field stands.
    auto const picture = canvas()->grab().toImage();
    int looked_at = 0;
    for (int i = 1; i <= card.fields; ++i) {
        auto const& one = field(i);
        bool const is_box = one.is(Style::TXT) || one.is(Style::STX);
        auto const point = bare_point(one);
        if (!is_box || !one.value.is_blank() || one.width < 80 || !picture.rect().contains(point))
            continue;
        EXPECT_EQ(picture.pixelColor(point), colour_of(one.backColor)) << i;
        ++looked_at;
    }
    EXPECT_GT(looked_at, 0);

    // Menu entries are as their controls.
    EXPECT_FALSE(action(QStringLiteral("Tallenna"))->isEnabled());
    EXPECT_TRUE(action(QStringLiteral("Sulje"))->isEnabled());
    EXPECT_TRUE(action(QStringLiteral("Kentät"))->isChecked());
}

INSTANTIATE_TEST_SUITE_P(All, Example,
                         testing::Values("asiakkaat.krt", "jasenet.krt", "laskut.krt",
                                         "tuotteet.krt", "sukukirja.krt", "kolmesataa.krt",
                                         "vanha.krt", "rikki.krt"));

TEST_F(RealProgram, PicturesOfTheFamilyRegisterAreLoaded) {
    start(QStringLiteral("examples/sukukirja.krt"));
    EXPECT_FALSE(fCard->Picture.get().empty());
    int pictures = 0;
    for (int i = 1; i <= card.fields; ++i)
        if (field(i).is(Style::IMG))
            pictures += fCard->img(i).Picture.get().empty() ? 0 : 1;
    EXPECT_EQ(pictures, 4);
}

} // namespace kehystin
