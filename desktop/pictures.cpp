#include "desktop/pictures.h"

#include "desktop/device_pixels.h"
#include "desktop/icons.h"
#include "desktop/metafile.h"
#include "desktop/text.h"
#include "platform/base.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
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

QImage metafile(QString const& path) {
    auto const image = readMetafile(path);
    if (image.isNull())
        throw noPicture();
    return image;
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
        QPixmap::fromImage(isMetafile(path) ? metafile(absolute) : readImage(absolute)));
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
