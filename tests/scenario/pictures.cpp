#include "tests/scenario/pictures.h"

#include "platform/base.h"

#include <cmath>
#include <cstdint>

namespace scenario {

namespace {

constexpr std::uint32_t placeable_metafile = 0x9AC6CDD7;
constexpr int pixels_an_inch = 96;

enum class Order { little, big };

std::uint32_t number_at(std::string_view bytes, std::size_t at, std::size_t size,
                        Order order = Order::little) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i) {
        auto const place = order == Order::big ? at + i : at + size - 1 - i;
        value = (value << 8) | static_cast<unsigned char>(bytes[place]);
    }
    return value;
}

int signed_16_at(std::string_view bytes, std::size_t at) {
    return static_cast<std::int16_t>(number_at(bytes, at, 2));
}

void append(std::string& bytes, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i, value >>= 8)
        bytes += static_cast<char>(value & 0xFF);
}

std::optional<platform::Size> bitmap_size(std::string_view bytes) {
    if (bytes.size() < 26)
        return std::nullopt;
    bool const old_header = number_at(bytes, 14, 4) == 12;
    double const width =
        old_header ? number_at(bytes, 18, 2) : static_cast<std::int32_t>(number_at(bytes, 18, 4));
    // A negative height means rows from the top down.
    double const height =
        old_header ? number_at(bytes, 20, 2) : static_cast<std::int32_t>(number_at(bytes, 22, 4));
    return platform::Size{width, std::fabs(height)};
}

std::optional<platform::Size> icon_size(std::string_view bytes) {
    if (bytes.size() < 8)
        return std::nullopt;
    auto const side = [&](std::size_t at) -> double {
        auto const value = number_at(bytes, at, 1);
        return value == 0 ? 256 : value;
    };
    return platform::Size{side(6), side(7)};
}

std::optional<platform::Size> metafile_size(std::string_view bytes) {
    if (bytes.size() < 16 || number_at(bytes, 14, 2) == 0)
        return std::nullopt;
    double const scale = static_cast<double>(pixels_an_inch) / number_at(bytes, 14, 2);
    return platform::Size{scale * (signed_16_at(bytes, 10) - signed_16_at(bytes, 6)),
                          scale * (signed_16_at(bytes, 12) - signed_16_at(bytes, 8))};
}

/// Walks over the segments to the one that begins a frame.
std::optional<platform::Size> photograph_size(std::string_view bytes) {
    for (std::size_t at = 2; at + 9 <= bytes.size() && bytes[at] == '\xFF';) {
        auto const marker = number_at(bytes, at + 1, 1);
        bool const frame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (frame)
            return platform::Size{double(number_at(bytes, at + 7, 2, Order::big)),
                                  double(number_at(bytes, at + 5, 2, Order::big))};
        at += 2 + number_at(bytes, at + 2, 2, Order::big);
    }
    return std::nullopt;
}

/// One bit a pixel, all white.
std::string bitmap(int width, int height) {
    auto const row = static_cast<std::uint32_t>((width + 31) / 32 * 4);
    auto const pixels = row * static_cast<std::uint32_t>(height);
    constexpr std::uint32_t start = 62; // behind the two headers and the two colours
    std::string bytes = "BM";
    append(bytes, start + pixels, 4);
    append(bytes, 0, 4);
    append(bytes, start, 4);
    append(bytes, 40, 4);
    append(bytes, static_cast<std::uint32_t>(width), 4);
    append(bytes, static_cast<std::uint32_t>(height), 4);
    append(bytes, 1, 2); // planes
    append(bytes, 1, 2); // bits a pixel
    append(bytes, 0, 4); // not packed
    append(bytes, pixels, 4);
    append(bytes, 0, 4);
    append(bytes, 0, 4);
    append(bytes, 2, 4);
    append(bytes, 0, 4);
    append(bytes, 0x000000, 4);
    append(bytes, 0xFFFFFF, 4);
    bytes.append(pixels, '\xFF');
    return bytes;
}

std::string metafile(int width, int height) {
    std::string bytes;
    append(bytes, placeable_metafile, 4);
    append(bytes, 0, 2);
    append(bytes, 0, 4); // left and top
    append(bytes, static_cast<std::uint32_t>(width), 2);
    append(bytes, static_cast<std::uint32_t>(height), 2);
    append(bytes, pixels_an_inch, 2);
    append(bytes, 0, 4);
    append(bytes, 0, 2);
    return bytes;
}

std::string photograph(int width, int height) {
    std::string bytes("\xFF\xD8\xFF\xC0\x00\x0B\x08", 7);
    for (int const side : {height, width}) {
        bytes += static_cast<char>(side >> 8);
        bytes += static_cast<char>(side & 0xFF);
    }
    return bytes.append("\x01\x01\x11\x00\xFF\xD9", 6);
}

} // namespace

std::optional<platform::Size> picture_size(std::string_view bytes) {
    std::optional<platform::Size> size;
    if (bytes.starts_with("BM"))
        size = bitmap_size(bytes);
    else if (bytes.starts_with("GIF8") && bytes.size() >= 10)
        size = platform::Size{double(number_at(bytes, 6, 2)), double(number_at(bytes, 8, 2))};
    else if (bytes.starts_with("\xFF\xD8\xFF"))
        size = photograph_size(bytes);
    else if (bytes.starts_with(std::string_view("\0\0\1\0", 4)))
        size = icon_size(bytes);
    else if (bytes.size() >= 4 && number_at(bytes, 0, 4) == placeable_metafile)
        size = metafile_size(bytes);
    if (!size || size->width <= 0 || size->height <= 0)
        return std::nullopt;
    return size;
}

std::optional<std::string> picture_bytes(std::string_view file_name, int width, int height) {
    constexpr int largest = 32767;
    if (width < 1 || height < 1 || width > largest || height > largest)
        return std::nullopt;
    auto const dot = file_name.rfind('.');
    auto const kind =
        platform::UCase(dot == std::string_view::npos ? "" : file_name.substr(dot + 1));
    std::string bytes;
    if (kind == "BMP")
        return bitmap(width, height);
    if (kind == "JPG" || kind == "JPEG")
        return photograph(width, height);
    if (kind == "WMF")
        return metafile(width, height);
    if (kind == "GIF") {
        bytes = "GIF89a";
        append(bytes, static_cast<std::uint32_t>(width), 2);
        append(bytes, static_cast<std::uint32_t>(height), 2);
        append(bytes, 0, 3);
        return bytes + ';';
    }
    if (kind == "ICO" && width <= 256 && height <= 256) {
        append(bytes, 0x00010000, 4);
        append(bytes, 1, 2);
        append(bytes, static_cast<std::uint32_t>(width), 1);
        append(bytes, static_cast<std::uint32_t>(height), 1);
        bytes.append(14, '\0');
        return bytes;
    }
    return std::nullopt;
}

} // namespace scenario
