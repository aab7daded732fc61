// Damaged copies of a help file.
#pragma once

#include <QByteArray>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <random>
#include <utility>
#include <vector>

namespace kehystin {

/// First one byte in each place of what says how the file is built and compressed, then some bytes
/// anywhere.
class DamagedHelp {
  public:
    explicit DamagedHelp(QByteArray whole) : whole_(std::move(whole)) {
        auto const [from, length] = extent_of("::DataSpace/Storage/MSCompressed/Content");
        for (qsizetype place = 0; place < whole_.size(); ++place)
            if (place < from || place >= from + length)
                tables_.push_back(place);
    }
    std::size_t count_of_table_bytes() const { return tables_.size(); }

    /// Each number gives a copy of its own, every time the same.
    QByteArray copy(std::size_t number) const {
        std::minstd_rand random(static_cast<unsigned>(number + 1));
        for (int i = 0; i < 4; ++i)
            random(); // neighbours begin alike
        auto copy = whole_;
        if (number < tables_.size()) {
            damage(copy, tables_[number], random);
        } else {
            auto const size = static_cast<std::size_t>(copy.size());
            for (auto more = random() % 8 + 1; more > 0; --more)
                damage(copy, static_cast<qsizetype>(random() % size), random);
        }
        return copy;
    }
    /// With a table of compressed blocks that are of no size.
    QByteArray copy_with_empty_blocks() const {
        constexpr int place_of_block_size = 32;
        auto const [from, length] = extent_of(
            "::DataSpace/Storage/MSCompressed/Transform/{7FC28940-9D31-11D0-9B27-00A0C91E9C7C}/"
            "InstanceData/ResetTable");
        auto copy = whole_;
        return copy.replace(from + place_of_block_size, 8, QByteArray(8, '\0'));
    }

  private:
    /// Where something uncompressed lies in the file, by its line in the directory.
    std::pair<qsizetype, qsizetype> extent_of(QByteArray const& name) const {
        constexpr qsizetype place_of_start = 88;
        auto place = whole_.indexOf(name) + name.size() + 1; // behind the number of its section
        auto const start = qFromLittleEndian<qint64>(whole_.constData() + place_of_start);
        auto const from = packed_number(place);
        return {start + from, packed_number(place)};
    }
    /// Seven bits a byte, the highest first, and another byte follows while the eighth bit is set.
    qsizetype packed_number(qsizetype& place) const {
        qsizetype number = 0;
        for (;;) {
            auto const byte = static_cast<quint8>(whole_.at(place++));
            number = number << 7 | (byte & 0x7f);
            if (byte < 0x80)
                return number;
        }
    }
    static void damage(QByteArray& bytes, qsizetype place, std::minstd_rand& random) {
        auto const was = static_cast<quint8>(bytes.at(place));
        std::array const values = {0x00,       0xff,       ~was & 0xff,
                                   was ^ 0x80, was ^ 0x01, static_cast<int>(random() % 256)};
        bytes[place] = static_cast<char>(values[random() % values.size()]);
    }

    QByteArray whole_;
    std::vector<qsizetype> tables_;
};

} // namespace kehystin
