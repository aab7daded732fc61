// Picture files: what can be read, and why something cannot.
#include "desktop/pictures.h"
#include "platform/base.h"
#include "tests/desktop/real_program.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kehystin {

namespace {

/// Stands in for the converter of metafiles while it lives.
class FakeConverter {
  public:
    explicit FakeConverter(QByteArray const& script) {
        QFile file(folder_.filePath(QStringLiteral("wmf2gd")));
        if (file.open(QIODevice::WriteOnly))
            file.write("#!/bin/sh\n" + script);
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", folder_.path().toUtf8() + ':' + path_);
    }
    ~FakeConverter() { qputenv("PATH", path_); }
    FakeConverter(FakeConverter const&) = delete;
    FakeConverter& operator=(FakeConverter const&) = delete;

  private:
    QTemporaryDir folder_;
    QByteArray path_ = qgetenv("PATH");
};

class Pictures : public testing::Test {
  protected:
    std::string write(char const* name, QByteArray const& content) {
        QFile file(folder_.filePath(QLatin1String(name)));
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
        return file.fileName().toStdString();
    }
    static std::string refusal(std::string const& file) {
        try {
            desktop::loadPicture(file);
        } catch (platform::RuntimeError const& error) {
            EXPECT_TRUE(error.is(platform::ErrorNumber::invalid_picture));
            return error.what();
        }
        return "";
    }

    QTemporaryDir folder_;
};

QImage picture(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::blue);
    return image;
}

TEST_F(Pictures, AFileThatIsNoneAndOneThatClaimsTooMuchAreToldApart) {
    EXPECT_EQ(refusal(write("tyhja.bmp", {})), "Tiedosto ei ole kuva");
    EXPECT_EQ(refusal(write("sana.jpg", "ei kuva")), "Tiedosto ei ole kuva");
    auto const name = folder_.filePath(QStringLiteral("kuva.bmp"));
    ASSERT_TRUE(picture(4, 4).save(name));
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.seek(18); // width and height
    file.write(QByteArray::fromHex("1027000010270000"));
    file.close();
    EXPECT_TRUE(refusal(name.toStdString()).starts_with("Kuva on liian suuri"));
}

TEST_F(Pictures, ALargePhotographIsShown) {
    auto const name = folder_.filePath(QStringLiteral("suuri.png"));
    ASSERT_TRUE(picture(7000, 5600).save(name));
    EXPECT_EQ(desktop::loadPicture(name.toStdString()).size().width, 7000);
}

TEST_F(Pictures, AMetafileNeedsAConverterThatComesToAnEnd) {
#ifdef Q_OS_WIN
    GTEST_SKIP() << "the system reads metafiles itself";
#endif
    auto const drawing = write("piirros.WMF", "piirros");
    {
        FakeConverter const failing("exit 1\n");
        EXPECT_EQ(refusal(drawing), "Tiedosto ei ole kuva");
    }
    {
        FakeConverter const falling("kill -SEGV $$\n");
        EXPECT_EQ(refusal(drawing), "Tiedosto ei ole kuva");
    }
    {
        FakeConverter const hanging("trap '' TERM\nwhile :; do sleep 0.1; done\n");
        EXPECT_EQ(refusal(drawing), "Kuvan muuntaminen kestää liian kauan");
    }
    auto const path = qgetenv("PATH");
    qputenv("PATH", folder_.filePath(QStringLiteral("ei")).toUtf8());
    EXPECT_EQ(refusal(drawing), "Kuvatyypin muunninohjelma wmf2gd puuttuu");
    qputenv("PATH", path);
}

/// Counts the paintings of a widget.
class Paintings : public QObject {
  public:
    explicit Paintings(QWidget& watched) { watched.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

class PictureInTheProgram : public RealProgram {};

TEST_F(PictureInTheProgram, WhileAConverterWorksTheWindowsArePaintedAndNothingComesIn) {
#ifdef Q_OS_WIN
    GTEST_SKIP() << "the system reads metafiles itself";
#endif
    start(copy_of(QStringLiteral("asiakkaat.krt")));
    FakeConverter const hanging("exec sleep 60\n");
    QFile drawing(folder.filePath(QStringLiteral("piirros.wmf")));
    ASSERT_TRUE(drawing.open(QIODevice::WriteOnly));
    auto const wide = fEditor->Width.get();
    bool const bar = fEditor->fldBar.Visible;
    Paintings paintings(*canvas());
    bool during = false;
    QTimer::singleShot(100, qApp, [&] {
        paintings.count = 0;
        canvas()->update();
        window()->resize(window()->width() + 60, window()->height());
        QTest::keyClick(window(), Qt::Key_F6);
        action(QStringLiteral("Kentät"))->trigger();
        EXPECT_TRUE(soon([&] { return paintings.count > 0; }));
        EXPECT_EQ(fEditor->fldBar.Visible, bar);
        EXPECT_EQ(fEditor->Width, wide);
        during = true;
    });
    EXPECT_THROW(host->LoadPicture(drawing.fileName().toStdString()), platform::RuntimeError);
    EXPECT_TRUE(during);
    // The window has its new size, and the program learns of it.
    EXPECT_TRUE(soon([&] { return fEditor->Width == wide + 60 * 15; }));
}

} // namespace

} // namespace kehystin
