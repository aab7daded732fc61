#include "desktop/help_soundness.h"

#include <QFile>
#include <QtEndian>

#include <optional>

namespace desktop {

namespace {

quint32 number32(QByteArray const& bytes, qsizetype place) {
    return qFromLittleEndian<quint32>(bytes.constData() + place);
}

quint64 number64(QByteArray const& bytes, qsizetype place) {
    return qFromLittleEndian<quint64>(bytes.constData() + place);
}

/// A number of the directory: seven bits a byte, the highest first, and another byte follows while
/// the eighth bit is set.
std::optional<quint64> packedNumber(QByteArray const& bytes, qsizetype& place) {
    quint64 number = 0;
    for (int count = 0; count < 9 && place < bytes.size(); ++count) {
        auto const byte = static_cast<quint8>(bytes.at(place++));
        number = number << 7 | (byte & 0x7fU);
        if (byte < 0x80)
            return number;
    }
    return std::nullopt;
}

} // namespace

bool hasSoundCompression(QString const& path) {
    constexpr qsizetype header = 96;
    constexpr qsizetype placeOfContent = 88;
    constexpr qsizetype descriptionSize = 24;
    constexpr quint32 widestWindow = 64; // in blocks
    QByteArray const name = "::DataSpace/Storage/MSCompressed/ControlData";
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    auto const bytes = file.readAll();
    auto place = bytes.indexOf(name);
    if (bytes.size() < header || place < 0)
        return false;
    place += name.size();
    auto const section = packedNumber(bytes, place);
    auto const offset = packedNumber(bytes, place);
    auto const size = packedNumber(bytes, place);
    auto const whole = static_cast<quint64>(bytes.size());
    auto const content = number64(bytes, placeOfContent);
    if (section != 0U || !offset || !size || *size < descriptionSize || content > whole ||
        *offset > whole || content + *offset + *size > whole)
        return false;
    auto const at = static_cast<qsizetype>(content + *offset);
    auto const windows = number32(bytes, at + 12);
    auto const window = number32(bytes, at + 16);
    return bytes.mid(at + 4, 4) == "LZXC" && number32(bytes, at + 8) == 2 && windows > 0 &&
           windows <= widestWindow && window > 0 && window <= widestWindow &&
           (window & (window - 1)) == 0;
}

bool hasSoundBlocks(QByteArray const& table) {
    constexpr quint64 block = 0x8000;  // uncompressed, in every file of this kind
    constexpr quint64 swelling = 6144; // by which a compressed block may be longer
    constexpr qsizetype header = 40;
    if (table.size() < header)
        return false;
    qsizetype const count = number32(table, 4);
    if (number32(table, 12) != header || count == 0 || count > (table.size() - header) / 8)
        return false;
    auto const uncompressed = number64(table, 16);
    if (number64(table, 32) != block || uncompressed > static_cast<quint64>(count) * block)
        return false;
    quint64 from = 0;
    for (qsizetype i = 1; i <= count; ++i) {
        auto const to = number64(table, i < count ? header + i * 8 : 24); // 24: where all ends
        if (from > to || to - from > block + swelling)
            return false;
        from = to;
    }
    return true;
}

} // namespace desktop
