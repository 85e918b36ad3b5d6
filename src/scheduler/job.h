#pragma once

#include "base/choices.h"
#include "base/fixed_text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace voltaro {

inline constexpr std::size_t kMaxJobs = 10;
inline constexpr std::size_t kMaxTasks = 7; // of one job

// When a job runs: every day at its start time, once on a date, on chosen week days, or in chosen months.
enum class ScheduleKind { Daily, OnDate, Weekly, Monthly };

// A program or batch file that a job starts.
struct ScheduledTask {
    FixedText<260> path{}; // unique within the job, without regard to case
    FixedText<260> parameters{};
    bool delayEnabled = false;     // a repeat interval is set
    std::int32_t delayMinutes = 0; // the repeat interval
    FixedText<16> endTime{};       // hours:minutes:seconds; after it the task is no longer repeated

    friend bool operator==(const ScheduledTask&, const ScheduledTask&) = default;
};

// One scheduled job. What belongs to another kind of schedule, to an unset scheme or power-off, is neither sent nor
// read back.
struct ScheduledJob {
    FixedText<100> name{}; // unique in the list, without regard to case
    FixedText<256> description{};
    bool enabled = false;
    FixedText<16> startTime{}; // hours:minutes:seconds
    ScheduleKind kind = ScheduleKind::Daily;
    FixedText<16> date{};           // OnDate: year-month-day
    std::array<bool, 7> weekDays{}; // Weekly: Sunday first
    std::array<bool, 12> months{};  // Monthly: January first
    FixedText<16> monthStartDay{};  // Monthly: "01" to "31", first and
    FixedText<16> monthEndDay{};    // last day of the month on which the job runs
    bool powerOn = false;
    bool applyScheme = false;
    FixedText<100> schemeName{};
    bool powerOff = false;
    FixedText<20> powerOffType{}; // one of kPowerOffTypes
    std::int32_t idleMinutes = 0; // idleness after which the power-off is tried
    bool useAppSensor = false;
    std::vector<ScheduledTask> tasks; // at most kMaxTasks

    friend bool operator==(const ScheduledJob&, const ScheduledJob&) = default;
};

// The whole list, at most kMaxJobs; a job's place, counted from 1, is its number in the document.
using ScheduledJobs = std::vector<ScheduledJob>;

// What a power-off may be, in the order of its list.
inline constexpr const wchar_t* kPowerOffTypes[] = {L"Standby", L"Hibernate", L"Shutdown", L"Restart"};

// Both in minutes.
// clang-format off
inline constexpr Choice kIdlenessChoices[] = {
    {L"2 Mins",    2}, {L"3 Mins",    3}, {L"4 Mins",    4}, {L"5 Mins",    5}, {L"10 Mins",  10},
    {L"15 Mins",  15}, {L"20 Mins",  20}, {L"30 Mins",  30}, {L"45 Mins",  45}, {L"1 Hr",     60},
    {L"2 Hrs",   120}, {L"3 Hrs",   180}, {L"4 Hrs",   240}, {L"5 Hrs",   300}, {L"6 Hrs",   360},
};
inline constexpr Choice kRepeatChoices[] = {
    {L"5 Mins",    5}, {L"10 Mins",  10}, {L"15 Mins",  15}, {L"30 Mins",  30},
    {L"1 Hour",   60}, {L"2 Hours", 120}, {L"3 Hours", 180}, {L"4 Hours", 240},
    {L"5 Hours", 300}, {L"6 Hours", 360}, {L"7 Hours", 420}, {L"8 Hours", 480},
    {L"9 Hours", 540}, {L"10 Hours", 600}, {L"11 Hours", 660}, {L"12 Hours", 720},
};
// clang-format on

// A time as the day's clock shows it.
struct TimeOfDay {
    int hour;
    int minute;
    int second;

    friend bool operator==(const TimeOfDay&, const TimeOfDay&) = default;
};

// A day of the calendar.
struct CalendarDate {
    int year;
    int month; // from 1
    int day;   // from 1

    friend bool operator==(const CalendarDate&, const CalendarDate&) = default;
};

// The texts of a record ("08:05:00", "2024-05-01") and back; nothing for a text that is no such time or date.
[[nodiscard]] std::wstring TimeText(TimeOfDay time);
[[nodiscard]] std::optional<TimeOfDay> ParseTime(std::wstring_view text);
[[nodiscard]] std::wstring DateText(CalendarDate date);
[[nodiscard]] std::optional<CalendarDate> ParseDate(std::wstring_view text);

} // namespace voltaro
