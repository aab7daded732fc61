// Where the keys of a card file stand, so that a key far away or missing costs no pass over it.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kehystin {

/// Knows, for every key of the format, all items that hold it as a part. An item is named by the
/// place of its first byte in the file.
class KeyIndex {
  public:
    /// Walks over the file once and leaves its position where it was.
    explicit KeyIndex(platform::InputFile& file);

    /// The first item at or behind `position` that holds the key, or npos.
    std::size_t find(std::string_view key, std::size_t position) const;

    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  private:
    void note_keys(std::string_view item, std::size_t position);

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>{}(text);
        }
    };
    std::unordered_map<std::string, std::vector<std::uint32_t>, Hash, std::equal_to<>> places_;
};

} // namespace kehystin
