// FixedText<N>: a record member of exactly N code page characters.
#pragma once

#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <string_view>

namespace kehystin::base {

/// A fixed text of any length, for code that walks over members of different lengths.
class FixedTextRef {
  public:
    FixedTextRef(char* characters, std::size_t length) : characters_(characters), length_(length) {}

    std::size_t length() const { return length_; }
    std::string_view bytes() const { return {characters_, length_}; }
    std::string str() const { return from_code_page(bytes()); }
    std::string trimmed() const { return from_code_page(trimmed_view(bytes())); }

    /// Takes code page bytes, cut to the length or padded with blanks. They may be its own.
    void assign_bytes(std::string_view bytes) const {
        auto const used = std::min(bytes.size(), length_);
        if (used > 0)
            std::memmove(characters_, bytes.data(), used);
        std::fill(characters_ + used, characters_ + length_, ' ');
    }
    void trim() const { assign_bytes(trimmed_view(bytes())); }

  private:
    char* characters_;
    std::size_t length_;
};

/// Always holds N characters: assigning cuts a longer text and pads a shorter one with blanks; a
/// text that was never assigned holds N NULs.
template <std::size_t N>
class FixedText {
  public:
    static constexpr std::size_t length = N;

    FixedText() = default;
    FixedText(std::string_view utf8) { *this = utf8; }

    FixedText& operator=(std::string_view utf8) {
        ref().assign_bytes(to_code_page(utf8));
        return *this;
    }
    operator FixedTextRef() { return ref(); }

    void assign_bytes(std::string_view bytes) { ref().assign_bytes(bytes); }
    FixedTextRef ref() { return {characters_.data(), N}; }

    /// All N characters, padding and NULs included, as UTF-8.
    std::string str() const { return from_code_page(bytes()); }
    /// Without leading and trailing blanks, as UTF-8.
    std::string trimmed() const { return from_code_page(trimmed_view(bytes())); }
    /// All N characters as code page bytes.
    std::string_view bytes() const { return {characters_.data(), N}; }
    /// True when nothing but blanks stands here.
    bool is_blank() const { return trimmed_view(bytes()).empty(); }

    /// Stores the trimmed text back, which only moves the padding, and returns it.
    std::string trim() {
        ref().trim();
        return trimmed();
    }

    bool operator==(FixedText const&) const = default;

  private:
    std::array<char, N> characters_{};
};

} // namespace kehystin::base
