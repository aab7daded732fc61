#include "rescue/rescue.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace rescue {

namespace {

constexpr std::string_view first_line = "Kehystin-pelastus 1\r\n";
constexpr std::string_view kind_names[] = {"work", "before", "after"};

/// Letters, digits and what paths are made of; everything else by its number, so that a path is one
/// word of one line.
std::string escaped(std::string_view text) {
    std::string word;
    for (char const c : text) {
        bool const plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                           (c >= '0' && c <= '9') || c == '/' || c == '.' || c == '-' || c == '_';
        if (plain) {
            word += c;
            continue;
        }
        char code[4];
        std::snprintf(code, sizeof code, "%%%02x", static_cast<unsigned char>(c));
        word += code;
    }
    return word;
}

std::optional<std::string> unescaped(std::string_view word) {
    std::string text;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] != '%') {
            text += word[i];
            continue;
        }
        unsigned code = 0;
        auto const* const from = word.data() + i + 1;
        if (i + 2 >= word.size() || std::from_chars(from, from + 2, code, 16).ptr != from + 2)
            return std::nullopt;
        text += static_cast<char>(code);
        i += 2;
    }
    return text;
}

/// The head's lines, "name value" each, in their order.
class Head {
  public:
    explicit Head(std::string_view bytes) : rest_(bytes) {}

    std::optional<std::string_view> value(std::string_view name) {
        auto const end = rest_.find("\r\n");
        auto const line = rest_.substr(0, end);
        if (end == std::string_view::npos || !line.starts_with(name) ||
            line.size() <= name.size() || line[name.size()] != ' ')
            return std::nullopt;
        rest_.remove_prefix(end + 2);
        return line.substr(name.size() + 1);
    }
    template <class Number>
    std::optional<Number> number(std::string_view name, int base = 10) {
        auto const digits = value(name);
        Number number{};
        if (!digits)
            return std::nullopt;
        auto const* const end = digits->data() + digits->size();
        auto const [at, error] = std::from_chars(digits->data(), end, number, base);
        return error == std::errc() && at == end ? std::optional(number) : std::nullopt;
    }
    std::string_view rest() const { return rest_; }

  private:
    std::string_view rest_;
};

constexpr std::int64_t milliseconds_of_a_day = 24LL * 60 * 60 * 1000;

/// Of a clock, and not of whoever has made the file by hand.
bool is_of_the_calendar(std::int64_t time) {
    constexpr std::int64_t days_to_year_10000 = 2'958'466;
    return time >= 0 && time < days_to_year_10000 * milliseconds_of_a_day;
}

std::string hexadecimal(std::uint64_t number) {
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(number));
    return text;
}

} // namespace

std::uint64_t checksum(std::string_view bytes) {
    // FNV-1a
    std::uint64_t sum = 14695981039346656037ULL;
    for (char const c : bytes)
        sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    return sum;
}

std::string to_file(Rescue const& rescue) {
    std::string const head =
        "kind " + std::string(kind_names[static_cast<int>(rescue.kind)]) + "\r\nfile " +
        escaped(rescue.file) + "\r\ntime " + std::to_string(rescue.time) + "\r\nstep " +
        std::to_string(rescue.step) + "\r\nnew-id " + (rescue.new_id ? "1" : "0") +
        "\r\nfile-sum " + hexadecimal(rescue.file_sum) + "\r\nsize " +
        std::to_string(rescue.bytes.size()) + "\r\n";
    auto const sum = checksum(head + rescue.bytes);
    return std::string(first_line) + "sum " + hexadecimal(sum) + "\r\n" + head + rescue.bytes;
}

std::optional<Rescue> from_file(std::string_view bytes) {
    if (!bytes.starts_with(first_line))
        return std::nullopt;
    Head head(bytes.substr(first_line.size()));
    auto const sum = head.number<std::uint64_t>("sum", 16);
    if (!sum || checksum(head.rest()) != *sum)
        return std::nullopt;
    auto const kind = head.value("kind");
    auto const file = head.value("file");
    auto const path = file ? unescaped(*file) : std::nullopt;
    auto const time = head.number<std::int64_t>("time");
    auto const step = head.number<std::uint64_t>("step");
    auto const new_id = head.number<int>("new-id");
    auto const file_sum = head.number<std::uint64_t>("file-sum", 16);
    auto const size = head.number<std::size_t>("size");
    if (!kind || !path || !time || !step || !new_id || !file_sum || !size ||
        head.rest().size() != *size || !is_of_the_calendar(*time))
        return std::nullopt;
    Rescue rescue{
        What::work, *path, *time, *step, *new_id != 0, *file_sum, std::string(head.rest())};
    for (auto const one : {What::work, What::before, What::after})
        if (kind_names[static_cast<int>(one)] == *kind) {
            rescue.kind = one;
            return rescue;
        }
    return std::nullopt;
}

std::int64_t time_of(base::Date date) {
    return std::llround(date * milliseconds_of_a_day);
}

std::string time_text(std::int64_t time) {
    auto const at = base::from_date(static_cast<double>(time) / double{milliseconds_of_a_day});
    char text[64];
    std::snprintf(text, sizeof text, "%d.%d.%d klo %d.%02d", at.day, at.month, at.year, at.hour,
                  at.minute);
    return text;
}

} // namespace rescue
