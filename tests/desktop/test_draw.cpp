// krt draw as a whole process, against what the canvas of the open card shows.
#include "tests/desktop/real_program.h"

#include <QProcess>

namespace kehystin {

class Drawn : public RealProgram, public testing::WithParamInterface<char const*> {
  protected:
    /// The picture that the tool draws at the scale of these windows; no display is asked for.
    QImage drawn(QString const& file, QStringList const& options = {}) {
        auto const picture = folder.filePath(QStringLiteral("kortti.png"));
        auto const scale = QString::number(canvas()->devicePixelRatioF());
        QProcess tool;
        auto around = QProcessEnvironment::systemEnvironment();
        around.remove(QStringLiteral("QT_QPA_PLATFORM"));
        around.insert(QStringLiteral("DISPLAY"), QStringLiteral("nowhere:7"));
        tool.setProcessEnvironment(around);
        tool.start(QStringLiteral(KRT_PROGRAM),
                   QStringList{QStringLiteral("draw"), file, QStringLiteral("-o"), picture,
                               QStringLiteral("--scale"), scale} +
                       options);
        EXPECT_TRUE(tool.waitForFinished());
        return QImage(picture).convertToFormat(QImage::Format_RGB32);
    }
    /// The canvas without what the editor adds for editing.
    QImage shown() {
        fCard->focus(0).Visible = false;
        fCard->Cls();
        QCoreApplication::processEvents();
        auto picture = canvas()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        picture.setDevicePixelRatio(1);
        return picture;
    }
};

TEST_P(Drawn, IsWhatTheEditorPaints) {
    auto const path = QStringLiteral("examples/") + QLatin1String(GetParam());
    NextBox report(QStringLiteral("Kyllä"));
    start(path);
    auto const plain = shown();
    ASSERT_FALSE(plain.isNull());
    EXPECT_TRUE(drawn(path) == plain);
    action(QStringLiteral("Linkit"))->trigger();
    auto const linked = shown();
    EXPECT_FALSE(linked == plain);
    EXPECT_TRUE(drawn(path, {QStringLiteral("--links")}) == linked);
}

INSTANTIATE_TEST_SUITE_P(All, Drawn,
                         testing::Values("asiakkaat.krt", "jasenet.krt", "laskut.krt",
                                         "tuotteet.krt", "sukukirja.krt", "kolmesataa.krt",
                                         "vanha.krt", "rikki.krt"));

} // namespace kehystin
