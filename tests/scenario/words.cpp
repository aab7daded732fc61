#include "tests/scenario/words.h"

#include "platform/base.h"

#include <array>
#include <charconv>
#include <cmath>

namespace scenario {

namespace {

constexpr std::string_view blanks = " \t";

/// Reads a word in quotes from behind its opening one, and moves `line` behind the closing one.
std::string read_quoted(std::string_view& line) {
    std::string text;
    while (!line.empty()) {
        char const c = line.front();
        line.remove_prefix(1);
        if (c == '"')
            return text;
        char const next = c == '\\' && !line.empty() ? line.front() : '\0';
        if (next == '"' || next == '\\')
            text += next;
        else if (next == 'n')
            text += '\n';
        else if (next == '0')
            text += '\0';
        else {
            text += c;
            continue;
        }
        line.remove_prefix(1);
    }
    throw StepError("expected a closing quote, found the end of the line");
}

std::string number_text(double number) {
    if (std::fabs(number) < 1e15 && number == std::round(number))
        return platform::Format(number);
    // As exact as values are compared.
    std::array<char, 400> buffer{};
    auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                      std::chars_format::fixed, 3);
    std::string text(buffer.data(), result.ptr);
    while (text.ends_with('0'))
        text.pop_back();
    return text;
}

} // namespace

std::vector<Word> split_words(std::string_view line) {
    std::vector<Word> words;
    for (;;) {
        line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
        if (line.empty())
            return words;
        if (line.front() == '"') {
            line.remove_prefix(1);
            words.push_back({read_quoted(line), true});
            if (!line.empty() && blanks.find(line.front()) == std::string_view::npos)
                throw StepError("expected a blank behind a closing quote, found " +
                                std::string(line));
        } else {
            auto const end = std::min(line.find_first_of(blanks), line.size());
            words.push_back({std::string(line.substr(0, end)), false});
            line.remove_prefix(end);
        }
    }
}

std::optional<double> read_number(std::string_view text) {
    double number = 0;
    auto const* const end = text.data() + text.size();
    auto const [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::optional<double> read_colour(std::string_view text) {
    constexpr std::string_view opening = "rgb(";
    if (!text.starts_with(opening) || !text.ends_with(')'))
        return std::nullopt;
    text.remove_prefix(opening.size());
    std::array<int, 3> parts{};
    for (auto& part : parts) {
        char const closing = &part == &parts.back() ? ')' : ',';
        auto const end = text.data() + text.size();
        auto const [stop, error] = std::from_chars(text.data(), end, part);
        if (error != std::errc() || part < 0 || part > 255 || stop == end || *stop != closing)
            return std::nullopt;
        text.remove_prefix(static_cast<std::size_t>(stop - text.data()) + 1);
    }
    if (!text.empty())
        return std::nullopt;
    return platform::RGB(parts[0], parts[1], parts[2]);
}

Word const& Arguments::take(std::string_view what) {
    if (empty())
        throw StepError("expected " + std::string(what) + ", found the end of the line");
    return words_[place_++];
}

bool Arguments::take_keyword(std::string_view keyword) {
    if (empty() || words_[place_].quoted || words_[place_].text != keyword)
        return false;
    ++place_;
    return true;
}

int Arguments::take_whole(std::string_view what, int lowest, int highest) {
    auto const& word = take(what);
    auto const number = word.quoted ? std::nullopt : read_number(word.text);
    if (!number || *number != std::round(*number) || *number < lowest || *number > highest)
        throw StepError("expected " + std::string(what) + ", a whole number from " +
                        std::to_string(lowest) + " to " + std::to_string(highest) + ", found " +
                        word.text);
    return static_cast<int>(*number);
}

void Arguments::finish() const {
    if (!empty())
        throw StepError("expected the end of the line, found " + words_[place_].text);
}

std::string text_of(platform::Value const& value) {
    if (auto const* const flag = std::get_if<bool>(&value))
        return *flag ? "yes" : "no";
    if (auto const* const number = std::get_if<double>(&value))
        return number_text(*number);
    return with_plain_breaks(std::get<std::string>(value));
}

std::string shown(platform::Value const& value) {
    auto text = text_of(value);
    if (!std::holds_alternative<std::string>(value))
        return text;
    text = platform::Replace(text, "\\", "\\\\");
    text = platform::Replace(text, "\"", "\\\"");
    text = platform::Replace(text, "\n", "\\n");
    text = platform::Replace(text, std::string_view("\0", 1), "\\0");
    return "\"" + text + "\"";
}

std::string with_plain_breaks(std::string_view text) {
    return platform::Replace(text, platform::line_break, "\n");
}

std::string with_program_breaks(std::string_view text) {
    return platform::Replace(text, "\n", platform::line_break);
}

} // namespace scenario
