#include "panel/selection_commands.h"

#include "mainwindow/command_state.h"
#include "model/card.h"

#include <algorithm>
#include <cstddef>

namespace kehystin {

namespace {

/// One line of the card, column by column or row by row, that fields occupy.
class Occupancy {
  public:
    /// False when the stretch meets one that is taken already; takes it otherwise.
    bool take(int from, int length) {
        int const begin = std::max(from, 1);
        int const end = std::max(begin, from + length);
        if (static_cast<std::size_t>(end) > taken_.size())
            taken_.resize(static_cast<std::size_t>(end));
        auto const first = taken_.begin() + begin;
        auto const last = taken_.begin() + end;
        if (std::find(first, last, 'X') != last)
            return false;
        std::fill(first, last, 'X');
        return true;
    }

  private:
    std::vector<char> taken_;
};

struct Freedom {
    bool rows = true;
    bool columns = true;
};

/// Whether the fields could be aligned without piling them up: in rows when no two of them share a
/// stretch of height, in columns when no two share a stretch of width.
Freedom freedom_of(std::vector<int> const& numbers) {
    Freedom free;
    Occupancy across;
    Occupancy down;
    for (int const number : numbers) {
        auto const& one = field(number);
        free.columns = free.columns && across.take(one.left, one.width);
        free.rows = free.rows && down.take(one.top, one.height);
        if (!free.rows && !free.columns)
            break;
    }
    return free;
}

bool titles_only(std::vector<int> const& numbers) {
    return std::all_of(numbers.begin(), numbers.end(), [](int number) {
        auto const* const kind = field(number).kind();
        return !kind || kind->style == Style::OTS;
    });
}

Code code(bool on) {
    return on ? Code::on : Code::off;
}

} // namespace

void command_state_of_selection(std::vector<int> const& numbers) {
    auto const free = freedom_of(numbers);
    UpdateCommandState(Code::keep, Code::on, code(free.rows), code(free.columns),
                       code(titles_only(numbers)), Code::keep);
}

} // namespace kehystin
