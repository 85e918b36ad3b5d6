#pragma once

#include <cstdint>
#include <string>

namespace voltaro {

// A local date and time of day, as the agent stamps its events and as the local clock tells it. Any numbers may stand
// in a stamp that came from outside. Where only a day is meant, the time of day is not looked at.
struct LocalTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

inline constexpr std::int64_t kDaySeconds = 86'400;

// The place of a damaged stamp on the time line.
inline constexpr std::int64_t kNoTime = -1;

// Seconds since 1601-01-01 00:00:00, the origin of file times, without regard to daylight saving; kNoTime for what is
// no date or time of day (month 13, 29 February of a common year, hour 24, second 60, years before 1601).
[[nodiscard]] constexpr std::int64_t SecondsOf(const LocalTime& time)
{
    constexpr int kDaysBefore[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};
    const auto isLeap = [](int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; };

    if (time.year < 1601 || time.year > 9999 || time.month < 1 || time.month > 12 || time.day < 1)
        return kNoTime;
    const int leapDay = isLeap(time.year) ? 1 : 0;
    const int daysInMonth = kDaysBefore[time.month] - kDaysBefore[time.month - 1] + (time.month == 2 ? leapDay : 0);
    if (time.day > daysInMonth || time.hour < 0 || time.hour > 23 || time.minute < 0 || time.minute > 59
        || time.second < 0 || time.second > 59)
        return kNoTime;

    const std::int64_t years = time.year - 1601;
    const std::int64_t days = years * 365 + years / 4 - years / 100 + years / 400 + kDaysBefore[time.month - 1]
        + (time.month > 2 ? leapDay : 0) + time.day - 1;
    return ((days * 24 + time.hour) * 60 + time.minute) * 60 + time.second;
}

// Whether both stand for the same day, a date or not.
[[nodiscard]] constexpr bool IsSameDay(const LocalTime& a, const LocalTime& b)
{
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

// The day as a request for its events carries it: month, day, four-digit year, without separators ("02292024").
[[nodiscard]] std::wstring RequestDate(const LocalTime& day);

// The day as the headings of the report show it: "February 29, 2024".
[[nodiscard]] std::wstring HeadingDate(const LocalTime& day);

// The day as the date picker shows it, for messages: "29/02/2024", a one-digit day without a zero.
[[nodiscard]] std::wstring PickerDate(const LocalTime& day);

} // namespace voltaro
