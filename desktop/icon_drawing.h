// From an icon's SVG source to its pixels.
#pragma once

#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

namespace desktop {

/// The drawing in a file or resource, this many pixels wide and high.
inline QImage drawIcon(QString const& source, int pixels) {
    QSvgRenderer renderer(source);
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

} // namespace desktop
