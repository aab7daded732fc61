#include "desktop/icons.h"

#include "desktop/icon_drawing.h"

#include <QHash>
#include <QResource>

#include <algorithm>
#include <cmath>
#include <utility>

/// The icons are linked in with the library; a static one must be asked for them.
static void linkIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace desktop {

namespace {

/// The program's own mark is the same everywhere.
QLatin1String const programName("kehystin");

QString resourceOf(QString const& name, char const* kind) {
    return QStringLiteral(":/icons/%1.%2").arg(name, QLatin1String(kind));
}

bool hasSource(QString const& name) {
    return QResource(resourceOf(name, "svg")).isValid();
}

void ensureLinked() {
    static bool const linked = (linkIcons(), true);
    Q_ASSERT(linked);
}

/// The drawing that a name stands for; the grey state has none of its own.
QString sourceName(QString const& name) {
    return !hasSource(name) && name.endsWith(u'0') ? name.chopped(1) : name;
}

/// The usual size has been drawn when the program was built, any other is drawn now.
QImage imageOf(QString const& name, int pixels) {
    QResource const drawn(resourceOf(name, "argb"));
    if (pixels == iconSize && drawn.size() == iconSize * iconSize * 4)
        return QImage(drawn.data(), iconSize, iconSize, QImage::Format_ARGB32_Premultiplied).copy();
    return drawIcon(resourceOf(name, "svg"), pixels);
}

/// Grey and pale, its shape as it was.
void makeGrey(QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            auto const colour = qUnpremultiply(line[x]);
            int const light = 120 + qGray(colour) * 135 / 255;
            line[x] = qPremultiply(qRgba(light, light, light, qAlpha(colour) * 7 / 10));
        }
    }
}

} // namespace

int drawnSize(QString const& name) {
    ensureLinked();
    static QHash<QString, int> known;
    auto& size = known[name];
    if (size == 0) {
        auto const source = QResource(resourceOf(sourceName(name), "svg")).uncompressedData();
        constexpr QByteArrayView before = " width=\"";
        auto const start = source.indexOf(before) + before.size();
        size = source.mid(start, source.indexOf('"', start) - start).toInt();
        size = std::max(size, iconSize);
    }
    return size;
}

QPixmap iconPixmap(QString const& name, int size, qreal pixelRatio, Ground ground) {
    ensureLinked();
    static QHash<QString, QPixmap> made;
    static int madeFor = windowPaletteNumber();
    if (std::exchange(madeFor, windowPaletteNumber()) != madeFor)
        made.clear();
    int const pixels = static_cast<int>(std::ceil(size * pixelRatio));
    auto& pixmap =
        made[QStringLiteral("%1/%2/%3").arg(name).arg(pixels).arg(static_cast<int>(ground))];
    if (!pixmap.isNull())
        return pixmap;
    auto const source = sourceName(name);
    bool const grey = source != name;
    if (!hasSource(source))
        return {};
    auto image = imageOf(source, pixels);
    if (grey)
        makeGrey(image);
    if (source != programName)
        fitToGround(image, ground);
    pixmap = QPixmap::fromImage(std::move(image));
    pixmap.setDevicePixelRatio(pixelRatio);
    return pixmap;
}

QIcon applicationIcon() {
    QIcon icon;
    for (int const size : {16, 32, 64})
        icon.addPixmap(iconPixmap(programName, size, 1, Ground::card));
    return icon;
}

} // namespace desktop
