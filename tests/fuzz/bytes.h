// Bytes: the input of a fuzz target as a run of small choices. Past its end every choice is the
// first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace fuzz {

class Bytes {
  public:
    explicit Bytes(std::span<std::uint8_t const> rest) : rest_(rest) {}

    bool empty() const { return rest_.empty(); }
    /// 0 to 255.
    int byte() {
        if (rest_.empty())
            return 0;
        int const value = rest_.front();
        rest_ = rest_.subspan(1);
        return value;
    }
    /// 0 to 65535.
    int word() {
        int const high = byte();
        return high * 256 + byte();
    }
    /// 0 to `count` - 1.
    int below(int count) { return (count <= 256 ? byte() : word()) % count; }
    /// `least` to `most`.
    int between(int least, int most) { return least + below(most - least + 1); }
    bool one_in(int count) { return below(count) == count - 1; }
    template <class Choices>
    auto const& one_of(Choices const& choices) {
        return choices[static_cast<std::size_t>(below(static_cast<int>(std::size(choices))))];
    }

  private:
    std::span<std::uint8_t const> rest_;
};

} // namespace fuzz
