// Dates: days since 30.12.1899, with the time of day as the fraction.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kehystin::base {

using Date = double;

struct CalendarTime {
    int year = 0;  ///< -32767 to 32767
    int month = 0; ///< 1 to 12
    int day = 0;   ///< 1 to 31
    int hour = 0;
    int minute = 0;
    double second = 0;
};

/// A day that its month does not have is one of the next.
Date to_date(CalendarTime const& time);
/// To the millisecond. The date must lie in the years of CalendarTime.
CalendarTime from_date(Date date);

/// The short date, d.m.yyyy. The date must lie in the years of CalendarTime.
std::string short_date(Date date);
/// Reads d.m.yyyy, dd.mm.yyyy and yyyy-mm-dd, years 100 to 9999; nothing for any other text or for
/// a day that the calendar does not have.
std::optional<Date> read_date(std::string_view text);

} // namespace kehystin::base
