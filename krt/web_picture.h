// Picture files as a browser takes them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace krt {

/// A picture file that a page can hold. Without a type there is none to show, and `fault` says why
/// not; a file that is not there has no fault either.
struct WebPicture {
    std::string_view type = {}; ///< "image/png" and so on
    int width = 0;              ///< pixels
    int height = 0;
    std::string bytes = {};
    std::string fault = {};

    bool is_shown() const { return !type.empty(); }
};

/// Reads a picture of at most so many bytes.
WebPicture read_web_picture(std::string const& path, std::uintmax_t most_bytes);

} // namespace krt
