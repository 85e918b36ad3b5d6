#pragma once

#include <chrono>
#include <cstdint>

namespace voltaro {

// A local date and time of day, as the agent stamps its events and as the local clock tells it. Any numbers may stand
// in a stamp that came from outside. Where a function takes a day, it ignores the time of day.
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

// The date of a stamp; not ok() for numbers that are no date.
[[nodiscard]] constexpr std::chrono::year_month_day DateOf(const LocalTime& time)
{
    // The calendar types keep a few bits of each number: what lies outside must not become a date by that.
    const auto bounded = [](int number, int limit) { return number < 0 || number > limit ? 0U : unsigned(number); };
    return std::chrono::year(time.year < 0 || time.year > 9999 ? 0 : time.year)
        / std::chrono::month(bounded(time.month, 12)) / std::chrono::day(bounded(time.day, 31));
}

// Seconds since 1601-01-01 00:00:00, the origin of file times, without regard to daylight saving; kNoTime for what is
// no date or time of day (month 13, 29 February of a common year, hour 24, second 60, years before 1601).
[[nodiscard]] constexpr std::int64_t SecondsOf(const LocalTime& time)
{
    constexpr std::chrono::sys_days kOrigin = std::chrono::year(1601) / 1 / 1;
    const std::chrono::year_month_day date = DateOf(time);
    if (!date.ok() || std::chrono::sys_days(date) < kOrigin || time.hour < 0 || time.hour > 23 || time.minute < 0
        || time.minute > 59 || time.second < 0 || time.second > 59)
        return kNoTime;
    const std::int64_t days = (std::chrono::sys_days(date) - kOrigin).count();
    return ((days * 24 + time.hour) * 60 + time.minute) * 60 + time.second;
}
static_assert(SecondsOf({1970, 1, 1}) == 11'644'473'600 && SecondsOf({1600, 12, 31}) == kNoTime);
static_assert(SecondsOf({1900, 2, 29}) == kNoTime && SecondsOf({10000, 1, 1}) == kNoTime);
static_assert(SecondsOf({2024, 257, 1}) == kNoTime && SecondsOf({2024, 1, -255}) == kNoTime);

// Whether both stand for the same day, a date or not.
[[nodiscard]] constexpr bool IsSameDay(const LocalTime& a, const LocalTime& b)
{
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

} // namespace voltaro
