#include "base/date.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>

namespace kehystin::base {

namespace {

using namespace std::chrono;

constexpr sys_days epoch = year{1899} / December / 30;

/// Splits at a separator into exactly three numbers without signs.
std::optional<std::array<int, 3>> three_numbers(std::string_view text, char separator) {
    std::array<int, 3> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        auto const end = i < 2 ? text.find(separator) : text.size();
        if (end == std::string_view::npos || end == 0 || end > 4 || text[0] < '0' || text[0] > '9')
            return std::nullopt;
        auto const [stop, error] = std::from_chars(text.data(), text.data() + end, numbers[i]);
        if (error != std::errc() || stop != text.data() + end)
            return std::nullopt;
        text.remove_prefix(i < 2 ? end + 1 : end);
    }
    return numbers;
}

} // namespace

Date to_date(CalendarTime const& time) {
    sys_days const day = year{time.year} / month{static_cast<unsigned>(time.month)} /
                         std::chrono::day{static_cast<unsigned>(time.day)};
    double const seconds = time.hour * 3600 + time.minute * 60 + time.second;
    return static_cast<double>((day - epoch).count()) + seconds / 86400;
}

CalendarTime from_date(Date date) {
    double const whole = std::floor(date);
    year_month_day const day{epoch + days{static_cast<int>(whole)}};
    // Whole milliseconds, so that 9.30 does not come back as 9.29.
    auto const milliseconds =
        std::min(static_cast<long>(std::round((date - whole) * 86'400'000)), 86'399'999L);
    auto const minutes = static_cast<int>(milliseconds / 60'000);
    return {static_cast<int>(day.year()),
            static_cast<int>(static_cast<unsigned>(day.month())),
            static_cast<int>(static_cast<unsigned>(day.day())),
            minutes / 60,
            minutes % 60,
            static_cast<double>(milliseconds % 60'000) / 1000};
}

std::string short_date(Date date) {
    auto const time = from_date(date);
    return std::to_string(time.day) + "." + std::to_string(time.month) + "." +
           std::to_string(time.year);
}

std::optional<Date> read_date(std::string_view text) {
    text = trimmed_view(text);
    CalendarTime time;
    if (auto const dotted = three_numbers(text, '.'))
        time = {(*dotted)[2], (*dotted)[1], (*dotted)[0]};
    else if (auto const dashed = three_numbers(text, '-'))
        time = {(*dashed)[0], (*dashed)[1], (*dashed)[2]};
    else
        return std::nullopt;
    // The calendar's own types keep only the lowest bits of a number.
    if (time.month < 1 || time.month > 12 || time.day < 1 || time.day > 31)
        return std::nullopt;
    year_month_day const day{year{time.year}, month{static_cast<unsigned>(time.month)},
                             std::chrono::day{static_cast<unsigned>(time.day)}};
    if (time.year < 100 || !day.ok())
        return std::nullopt;
    return to_date(time);
}

} // namespace kehystin::base
