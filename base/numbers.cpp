#include "base/numbers.h"

#include <charconv>
#include <cmath>

namespace kehystin::base {

double Val(std::string_view text) {
    auto const first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos)
        return 0;
    text.remove_prefix(first);
    bool const negative = text.front() == '-';
    if (negative || text.front() == '+')
        text.remove_prefix(1);
    // Words such as "inf" and "nan", and a second sign, are no numbers here.
    if (text.empty() || !((text.front() >= '0' && text.front() <= '9') || text.front() == '.'))
        return 0;
    double value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        // Too small for a double reads as 0, too large as infinity, which no range test accepts.
        auto const exponent = std::string_view(text.data(), end).find_first_of("eE");
        bool const tiny = exponent != std::string_view::npos && text[exponent + 1] == '-';
        value = tiny ? 0 : std::numeric_limits<double>::infinity();
    } else if (error != std::errc()) {
        return 0;
    }
    return negative ? -value : value;
}

double round_to_even(double value) {
    double const floor = std::floor(value);
    double const fraction = value - floor;
    if (fraction != 0.5)
        return fraction < 0.5 ? floor : floor + 1;
    return std::fmod(floor, 2) == 0 ? floor : floor + 1;
}

std::int32_t to_long(double value) {
    double const rounded = round_to_even(value);
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0))
        throw RuntimeError(ErrorNumber::overflow);
    return static_cast<std::int32_t>(rounded);
}

float to_single(double value) {
    if (!(std::fabs(value) <= static_cast<double>(std::numeric_limits<float>::max())))
        throw RuntimeError(ErrorNumber::overflow);
    return static_cast<float>(value);
}

std::string Format(double value) {
    double const rounded = std::round(value);
    char buffer[400]; // a double has at most 309 digits before the point
    auto const [end, error] = std::to_chars(
        buffer, buffer + sizeof buffer, rounded == 0 ? 0.0 : rounded, std::chars_format::fixed, 0);
    return error == std::errc() ? std::string(buffer, end) : std::string();
}

Integer::Integer(double value) {
    double const rounded = round_to_even(value);
    if (!(rounded >= -32768 && rounded <= 32767))
        throw RuntimeError(ErrorNumber::overflow);
    value_ = static_cast<std::int16_t>(rounded);
}

} // namespace kehystin::base
