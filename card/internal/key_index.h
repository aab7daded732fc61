// Where the keys of a card file stand, so that a key far away or missing costs no pass over it.
#pragma once

#include "base/items.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace kehystin {

/// Knows, for every key of the format, all items that hold it as a part. An item is named by the
/// place of its first byte in the file.
class KeyIndex {
  public:
    /// Walks over the file once. The bytes must outlive the index.
    explicit KeyIndex(std::string_view bytes);

    /// The first item at or behind `position` that holds the key, or npos.
    std::size_t find(std::string_view key, std::size_t position) const;

    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  private:
    void note_keys(std::string_view item, std::size_t position);

    /// Ascending. Nearly every key stands in one place; where a file repeats one a million times,
    /// a byte for most of them has to do.
    struct Places {
        std::size_t first;
        std::size_t last;
        std::string gaps; ///< between neighbours, seven bits a byte, the lowest first

        void add(std::size_t place);
        std::size_t at_or_behind(std::size_t position) const;
    };
    std::unordered_map<std::string_view, Places> places_;
};

} // namespace kehystin
