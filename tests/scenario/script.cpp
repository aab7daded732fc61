#include "tests/scenario/script.h"

#include <optional>

namespace scenario {

namespace {

class Lines {
  public:
    explicit Lines(std::string_view text) : text_(text) {}

    std::optional<std::string_view> next() {
        if (text_.empty())
            return std::nullopt;
        auto const end = text_.find('\n');
        auto line = text_.substr(0, end);
        text_.remove_prefix(end == std::string_view::npos ? text_.size() : end + 1);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        ++number_;
        return line;
    }
    int number() const { return number_; }

  private:
    std::string_view text_;
    int number_ = 0;
};

/// The word that closes the block which the line opens, or empty.
std::string_view block_end(std::string_view line) {
    constexpr std::string_view mark = " << ";
    auto const at = line.rfind(mark);
    if (!line.starts_with("create ") || at == std::string_view::npos)
        return {};
    auto const word = line.substr(at + mark.size());
    return word.find_first_of(" \t\"") == std::string_view::npos ? word : std::string_view();
}

} // namespace

std::vector<Step> read_script(std::string_view text) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (text.starts_with(byte_order_mark))
        text.remove_prefix(byte_order_mark.size());
    std::vector<Step> steps;
    Lines lines(text);
    while (auto line = lines.next()) {
        auto const first = line->find_first_not_of(" \t");
        if (first == std::string_view::npos || (*line)[first] == '#')
            continue;
        line->remove_prefix(first);
        line->remove_suffix(line->size() - line->find_last_not_of(" \t") - 1);
        Step step;
        step.line = lines.number();
        step.text = *line;
        if (auto const end = block_end(*line); !end.empty()) {
            step.block_open = true;
            while (auto const inner = lines.next()) {
                if (*inner == end) {
                    step.block_open = false;
                    break;
                }
                step.block.emplace_back(*inner);
            }
        }
        step.end_line = lines.number();
        steps.push_back(std::move(step));
    }
    return steps;
}

} // namespace scenario
