#include "draw/picture.h"

#include "desktop/colours.h"
#include "desktop/form_painter.h"
#include "draw/svg_device.h"

#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cmath>

namespace draw {

namespace {

/// Drawings of lines and letters are looked at closely: what the style makes of pixels has so many
/// to one of the form.
constexpr int vectorDetail = 4;

} // namespace

std::optional<Format> formatNamed(QStringView word) {
    if (word == u"png")
        return Format::png;
    if (word == u"svg")
        return Format::svg;
    if (word == u"pdf")
        return Format::pdf;
    return std::nullopt;
}

double Picture::detail() const {
    return format == Format::png ? scale : vectorDetail;
}

QSize Picture::pixels(QSize form) const {
    return (QSizeF(form) * scale).toSize().expandedTo({1, 1});
}

std::int64_t Picture::pixelsOf(QSize form) const {
    auto const size = pixels(form);
    return format == Format::png ? std::int64_t{size.width()} * size.height() : 0;
}

bool Picture::write(platform::Form const& form, QSize size, QIODevice& to) const {
    switch (format) {
    case Format::png:
        return writePng(form, size, to);
    case Format::svg:
        return writeSvg(form, size, to);
    case Format::pdf:
        return writePdf(form, size, to);
    }
    return false;
}

bool Picture::writePng(platform::Form const& form, QSize size, QIODevice& to) const {
    QImage image(pixels(size), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    // Also the part of a pixel at the far edges.
    image.fill(desktop::toColour(form.BackColor, desktop::Ground::card));
    QPainter painter(&image);
    desktop::paintForm(painter, form, QRect(QPoint(), size));
    painter.end();
    image.setDevicePixelRatio(1);
    if (longest > 0 && std::max(image.width(), image.height()) > longest)
        image = image.scaled(QSize(longest, longest).boundedTo(image.size()), Qt::KeepAspectRatio,
                             Qt::SmoothTransformation);
    return QImageWriter(&to, "png").write(image);
}

bool Picture::writeSvg(platform::Form const& form, QSize size, QIODevice& to) const {
    SvgDevice device(to, size, {QSizeF(size) * scale, vectorDetail, title});
    QPainter painter(&device);
    desktop::paintForm(painter, form, QRect(QPoint(), size));
    return painter.end() && device.isWhole();
}

bool Picture::writePdf(platform::Form const& form, QSize size, QIODevice& to) const {
    constexpr int dotsPerInch = 96;
    constexpr double pointsPerPixel = 72.0 / dotsPerInch;
    QPdfWriter device(&to);
    device.setTitle(title);
    device.setCreator(QStringLiteral("Kehystin"));
    device.setResolution(dotsPerInch * vectorDetail);
    auto const page = QSizeF(size) * (scale * pointsPerPixel);
    // A page has whole points.
    device.setPageSize(QPageSize(QSizeF(std::ceil(page.width()), std::ceil(page.height())),
                                 QPageSize::Point, QString(), QPageSize::ExactMatch));
    device.setPageMargins(QMarginsF());
    QPainter painter(&device);
    painter.fillRect(painter.window(), desktop::toColour(form.BackColor, desktop::Ground::card));
    painter.scale(vectorDetail * scale, vectorDetail * scale);
    painter.setClipRect(QRect(QPoint(), size));
    desktop::paintForm(painter, form, QRect(QPoint(), size));
    return painter.end();
}

} // namespace draw
