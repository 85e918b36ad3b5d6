#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace voltaro::simulator {

// A day of the Gregorian calendar and the time on it.
struct DateTime {
    int year = 0, month = 0, day = 0;
    int second = 0; // since midnight
};

using Clock = std::function<DateTime()>;
// The computer's own clock, local time.
[[nodiscard]] DateTime LocalClock();

// The day, without the time on it.
[[nodiscard]] std::chrono::sys_days DayOf(const DateTime& date);
// Seconds since 1970-01-01 00:00 of the same clock.
[[nodiscard]] std::int64_t SecondNumber(const DateTime& time);
// "MMDDYYYY" as a date; nothing unless it is eight digits that name a day.
[[nodiscard]] std::optional<DateTime> ParseMonthDayYear(std::wstring_view text);

} // namespace voltaro::simulator
