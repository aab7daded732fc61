// The items of a text file, as `Input #` reads them.
#pragma once

#include "base/errors.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace kehystin::base {

/// Walks over the items of a file's bytes: leading blanks are skipped, an item ends at the next
/// comma or line end.
class Items {
  public:
    /// The bytes must outlive their items.
    explicit Items(std::string_view bytes) : bytes_(bytes) {}

    /// The next item, in code page bytes. Raises input_past_end at the end.
    std::string_view next();
    bool at_end() const { return position_ >= bytes_.size(); }
    /// Where the next item begins, in bytes from the start.
    std::size_t position() const { return position_; }
    void seek(std::size_t position) { position_ = position; }
    std::string_view bytes() const { return bytes_; }

  private:
    std::string_view bytes_;
    std::size_t position_ = 0;
};

inline std::string_view Items::next() {
    if (at_end())
        throw RuntimeError(ErrorNumber::input_past_end);
    // Character by character: items are short, and this is most of the time that reading takes.
    auto const size = bytes_.size();
    auto start = position_;
    while (start < size && (bytes_[start] == ' ' || bytes_[start] == '\t'))
        ++start;
    auto end = start;
    while (end < size && bytes_[end] != ',' && bytes_[end] != '\r' && bytes_[end] != '\n')
        ++end;
    position_ = std::min(end + 1, size);
    if (end < size && bytes_[end] == '\r' && position_ < size && bytes_[position_] == '\n')
        ++position_;
    return bytes_.substr(start, end - start);
}

} // namespace kehystin::base
