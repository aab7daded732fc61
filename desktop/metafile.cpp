#include "desktop/metafile.h"

#include <QDataStream>
#include <QFile>

#include <cstdlib>

namespace desktop {

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

} // namespace desktop
