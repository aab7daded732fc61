#include "disk/disk.h"

#include <array>
#include <cerrno>

namespace disk {

namespace {

/// Closed without a word.
struct Opened {
    Opened(std::string const& path, Open how) : number(open(path, how)) {}
    ~Opened() {
        if (number < 0)
            return;
        int const error = errno;
        close(number);
        errno = error;
    }
    Opened(Opened const&) = delete;
    Opened& operator=(Opened const&) = delete;
    int const number;
};

bool write_all(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        auto const put = write(descriptor, bytes.data(), bytes.size());
        if (put < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
    return true;
}

} // namespace

bool is_there(std::string const& path) {
    return kind_of(path) != Kind::missing;
}

bool is_closed_to_reading(std::string const& path) {
    return Opened(path, Open::to_read_at_once).number < 0 && errno == EACCES;
}

bool is_special(std::string const& path) {
    auto const kind = kind_of(path);
    return kind == Kind::folder || kind == Kind::special;
}

std::optional<std::string> bytes_on_disk(std::string const& path) {
    Opened const file(path, Open::to_read_at_once);
    if (file.number < 0 || !is_regular(file.number))
        return std::nullopt;
    constexpr std::size_t step = 256U * 1024;
    std::string bytes;
    for (;;) {
        auto const used = bytes.size();
        bytes.resize(used + step);
        auto const got = read(file.number, bytes.data() + used, step);
        bytes.resize(used + (got > 0 ? static_cast<std::size_t>(got) : 0));
        if (got == 0)
            return bytes;
        if (got < 0)
            return std::nullopt;
    }
}

bool copy_bytes(std::string const& path, std::string const& other) {
    Opened const from(path, Open::to_read);
    Opened const to(other, Open::emptied);
    if (from.number < 0 || to.number < 0)
        return false;
    std::array<char, 64 * 1024> piece;
    for (;;) {
        auto const got = read(from.number, piece.data(), piece.size());
        if (got == 0)
            return flush(to.number) == 0;
        if (got < 0 || !write_all(to.number, {piece.data(), static_cast<std::size_t>(got)}))
            return false;
    }
}

} // namespace disk
