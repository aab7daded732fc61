#include "krt/web_picture.h"

#include "disk/disk.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

namespace krt {

namespace {

namespace fs = std::filesystem;

/// As many as the editor takes.
constexpr std::int64_t most_megapixels = 64;
constexpr std::int64_t megapixel = 1'000'000;

/// Walks over the numbers of a file; beyond its end they are 0.
class Numbers {
  public:
    explicit Numbers(std::string_view bytes) : bytes_(bytes) {}

    int byte(std::size_t at) const {
        return at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : 0;
    }
    int big16(std::size_t at) const { return byte(at) << 8 | byte(at + 1); }
    int little16(std::size_t at) const { return byte(at + 1) << 8 | byte(at); }
    std::int32_t big32(std::size_t at) const {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(big16(at)) << 16 |
                                         static_cast<std::uint32_t>(big16(at + 2)));
    }
    std::int32_t little32(std::size_t at) const {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(little16(at + 2)) << 16 |
                                         static_cast<std::uint32_t>(little16(at)));
    }
    bool begins(std::string_view with) const { return bytes_.starts_with(with); }
    std::size_t size() const { return bytes_.size(); }

  private:
    std::string_view bytes_;
};

struct Head {
    std::string_view type;
    std::int64_t width;
    std::int64_t height;
};

/// The size stands in the first segment that begins a frame.
std::optional<Head> jpeg_head(Numbers const& file) {
    for (std::size_t at = 2; at + 8 < file.size() && file.byte(at) == 0xff;) {
        int const kind = file.byte(at + 1);
        bool const frame =
            kind >= 0xc0 && kind <= 0xcf && kind != 0xc4 && kind != 0xc8 && kind != 0xcc;
        if (frame)
            return Head{"image/jpeg", file.big16(at + 7), file.big16(at + 5)};
        at += kind == 0xff ? 1 : 2U + static_cast<std::size_t>(file.big16(at + 2));
    }
    return std::nullopt;
}

Head bitmap_head(Numbers const& file) {
    constexpr int old_head = 12; // bytes
    if (file.little32(14) == old_head)
        return {"image/bmp", file.little16(18), file.little16(20)};
    return {"image/bmp", file.little32(18), std::abs(std::int64_t{file.little32(22)})};
}

std::optional<Head> head_of(Numbers const& file) {
    if (file.begins("\x89PNG\r\n\x1a\n"))
        return Head{"image/png", file.big32(16), file.big32(20)};
    if (file.begins("\xff\xd8\xff"))
        return jpeg_head(file);
    if (file.begins("GIF87a") || file.begins("GIF89a"))
        return Head{"image/gif", file.little16(6), file.little16(8)};
    if (file.begins("BM"))
        return bitmap_head(file);
    return std::nullopt;
}

} // namespace

WebPicture read_web_picture(std::string const& path, std::uintmax_t most_bytes) {
    std::error_code none;
    if (path.find('\0') != std::string::npos || disk::kind_of(path) != disk::Kind::file)
        return {};
    WebPicture picture;
    auto const size = fs::file_size(disk::path_of(path), none);
    if (none || size > most_bytes) {
        picture.fault = "Kuva on liian suuri sivulle";
        return picture;
    }
    picture.bytes.resize(size);
    std::ifstream from(disk::path_of(path), std::ios::binary);
    if (!from.read(picture.bytes.data(), static_cast<std::streamsize>(size))) {
        picture.fault = "Kuvaa ei voi lukea";
        return picture;
    }
    auto const head = head_of(Numbers(picture.bytes));
    if (!head || head->width < 1 || head->height < 1)
        picture.fault = "Selain ei näytä tiedostoa kuvana";
    else if (head->width > most_megapixels * megapixel / head->height)
        picture.fault =
            "Kuva on liian suuri, yli " + std::to_string(most_megapixels) + " megapikseliä";
    if (!picture.fault.empty())
        return picture;
    picture.type = head->type;
    picture.width = static_cast<int>(head->width);
    picture.height = static_cast<int>(head->height);
    return picture;
}

} // namespace krt
