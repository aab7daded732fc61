// Picture files: what can be read, and why something cannot.
#include "desktop/pictures.h"
#include "platform/base.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class Pictures : public testing::Test {
  protected:
    ~Pictures() override { qputenv("PATH", path_); }

    std::string write(char const* name, QByteArray const& content) {
        QFile file(folder_.filePath(QLatin1String(name)));
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
        return file.fileName().toStdString();
    }
    /// Stands in for the converter of metafiles.
    void installConverter(QByteArray const& script) {
        write("wmf2gd", "#!/bin/sh\n" + script);
        QFile(folder_.filePath(QStringLiteral("wmf2gd")))
            .setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", folder_.path().toUtf8() + ':' + path_);
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
    QByteArray path_ = qgetenv("PATH");
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
    auto const drawing = write("piirros.wmf", "piirros");
    installConverter("exit 1\n");
    EXPECT_EQ(refusal(drawing), "Tiedosto ei ole kuva");
    installConverter("exec sleep 60\n");
    EXPECT_EQ(refusal(drawing), "Kuvan muuntaminen kestää liian kauan");
    qputenv("PATH", folder_.filePath(QStringLiteral("ei")).toUtf8());
    EXPECT_EQ(refusal(drawing), "Kuvatyypin muunninohjelma wmf2gd puuttuu");
}

} // namespace
