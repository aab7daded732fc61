#include "desktop/pictures.h"

#include "desktop/device_pixels.h"
#include "desktop/icons.h"
#include "desktop/text.h"
#include "platform/base.h"

#include <QDataStream>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

namespace desktop {

namespace {

using platform::ErrorNumber;
using platform::RuntimeError;

RuntimeError noPicture() {
    return {ErrorNumber::invalid_picture, "Tiedosto ei ole kuva"};
}

qint64 pixelsIn(QSize size) {
    return size.isValid() ? qint64{size.width()} * size.height() : 0;
}

void requireModest(QSize size) {
    if (pixelsIn(size) > mostPixels)
        throw RuntimeError(ErrorNumber::invalid_picture,
                           "Kuva on liian suuri, yli " + std::to_string(mostPixels / megapixel) +
                               " megapikseliä");
}

/// A reader of Qt, with as much memory as the largest picture needs.
void prepare(QImageReader& reader) {
    constexpr qint64 mostBytes = 8; // of a pixel
    constexpr qint64 megabyte = 1024 * 1024;
    QImageReader::setAllocationLimit(
        static_cast<int>((mostPixels * mostBytes + megabyte - 1) / megabyte));
    reader.setDecideFormatFromContent(true);
}

QImage readImage(QString const& path) {
    QImageReader reader(path);
    prepare(reader);
    reader.setAutoTransform(true);
    requireModest(reader.size());
    auto const image = reader.read();
    requireModest(image.size());
    if (image.isNull())
        throw noPicture();
    return image;
}

/// The size that a metafile says it has, in pixels at 96 dots an inch; empty when it does not say.
QSize sizeOfMetafile(QString const& path) {
    struct Header {
        quint32 key;
        quint16 handle;
        qint16 left, top, right, bottom;
        quint16 unitsPerInch;
    };
    constexpr quint32 known = 0x9ac6cdd7;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QDataStream stream(&file);
    stream.setByteOrder(QDataStream::LittleEndian);
    Header header{};
    stream >> header.key >> header.handle >> header.left >> header.top >> header.right >>
        header.bottom >> header.unitsPerInch;
    if (stream.status() != QDataStream::Ok || header.key != known || header.unitsPerInch == 0)
        return {};
    auto const pixels = [&](int from, int to) {
        return std::abs(to - from) * 96 / header.unitsPerInch;
    };
    return {pixels(header.left, header.right), pixels(header.top, header.bottom)};
}

/// Runs the converter of metafiles. What has nothing to do with a user's input goes on meanwhile,
/// the painting of the windows above all.
void convert(QStringList const& words) {
    constexpr int patience = 1500;   // milliseconds
    constexpr int untilKilled = 300; // milliseconds
    QProcess converter;
    converter.setStandardInputFile(QProcess::nullDevice());
    converter.setStandardOutputFile(QProcess::nullDevice());
    converter.setStandardErrorFile(QProcess::nullDevice());
    QEventLoop waiting;
    QObject::connect(&converter, &QProcess::finished, &waiting, &QEventLoop::quit);
    QObject::connect(&converter, &QProcess::errorOccurred, &waiting, &QEventLoop::quit);
    QTimer::singleShot(patience, &waiting, &QEventLoop::quit);
    converter.start(QStringLiteral("wmf2gd"), words);
    if (converter.state() != QProcess::NotRunning)
        waiting.exec(QEventLoop::ExcludeUserInputEvents);
    if (converter.error() == QProcess::FailedToStart)
        throw RuntimeError(ErrorNumber::invalid_picture,
                           "Kuvatyypin muunninohjelma wmf2gd puuttuu");
    if (converter.state() != QProcess::NotRunning) {
        converter.kill();
        converter.waitForFinished(untilKilled);
        throw RuntimeError(ErrorNumber::invalid_picture, "Kuvan muuntaminen kestää liian kauan");
    }
}

/// Metafiles are drawings of another system; a converter beside the program makes pixels of them.
QImage readMetafile(QString const& path) {
    constexpr int largest = 3000; // pixels, as large as a card can be
    QTemporaryDir const folder;
    auto const drawn = folder.filePath(QStringLiteral("picture.png"));
    auto size = sizeOfMetafile(path);
    QStringList words{QStringLiteral("-t"), QStringLiteral("png"), QStringLiteral("-o"), drawn};
    if (size.isEmpty())
        size = {largest, largest};
    else
        words.append(QStringLiteral("--maxpect"));
    size = size.boundedTo({largest, largest});
    words.append({QStringLiteral("--maxwidth=%1").arg(size.width()),
                  QStringLiteral("--maxheight=%1").arg(size.height()), path});
    convert(words);
    return readImage(drawn);
}

QPixmap const* pixmapOf(platform::Picture const& picture) {
    return static_cast<QPixmap const*>(picture.image());
}

} // namespace

platform::Picture loadPicture(std::string const& path) {
    if (path.empty())
        return {};
    QFileInfo const file(toQt(path));
    if (!file.isFile())
        throw RuntimeError(ErrorNumber::file_not_found);
    auto const absolute = file.absoluteFilePath();
    auto pixmap = std::make_shared<QPixmap>(
        QPixmap::fromImage(isMetafile(path) ? readMetafile(absolute) : readImage(absolute)));
    platform::Size const size{double(pixmap->width()), double(pixmap->height())};
    return platform::Picture::loaded(path, size, std::move(pixmap));
}

bool isMetafile(std::string const& path) {
    return toQt(path).endsWith(QLatin1String(".wmf"), Qt::CaseInsensitive);
}

qint64 pixelsOf(std::string const& path) {
    QImageReader reader(toQt(path));
    prepare(reader);
    return pixelsIn(reader.size());
}

void drawPicture(QPainter& painter, platform::Picture const& picture, QRectF const& place,
                 Ground ground) {
    if (picture.empty())
        return;
    if (auto const* const pixmap = pixmapOf(picture)) {
        painter.save();
        clipToPixels(painter, place);
        painter.setRenderHint(QPainter::SmoothPixmapTransform); // of use at other scales than 1
        painter.drawPixmap(QRectF(place.topLeft(), QSizeF(pixmap->size())), *pixmap,
                           QRectF(pixmap->rect()));
        painter.restore();
        return;
    }
    auto const name = toQt(picture.name());
    int const room = static_cast<int>(std::min(place.width(), place.height()));
    int const size = room <= iconSize ? room : std::min(room, drawnSize(name));
    if (size <= 0)
        return;
    auto const drawing = iconPixmap(name, size, painter.device()->devicePixelRatioF(), ground);
    painter.drawPixmap(QPoint(static_cast<int>(place.left() + (place.width() - size) / 2),
                              static_cast<int>(place.top() + (place.height() - size) / 2)),
                       drawing);
}

void drawStretched(QPainter& painter, platform::Picture const& picture, QRectF const& place) {
    auto const* const pixmap = pixmapOf(picture);
    if (!pixmap)
        return;
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(place, *pixmap, QRectF(pixmap->rect()));
    painter.restore();
}

} // namespace desktop
