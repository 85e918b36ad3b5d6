#pragma once

#include "base/choices.h"
#include "base/text.h"

#include <array>
#include <chrono>
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

// The longest texts that the user may type, in UTF-16 units. What the agent has sent may be longer.
inline constexpr std::size_t kMaxJobName = 99;
inline constexpr std::size_t kMaxDescription = 255;
inline constexpr std::size_t kMaxTaskText = 259; // path and parameters

// A flag or a number as the text that the agent keeps. The text stays as it was read until another value is assigned:
// jobs that nobody changed go back exactly as they came.
class StoredFlag {
public:
    std::wstring text = L"No"; // "Yes" sets the flag, any other text does not

    operator bool() const { return text == L"Yes"; }
    StoredFlag& operator=(bool set)
    {
        if (set != bool(*this))
            text = YesNo(set);
        return *this;
    }
    friend bool operator==(const StoredFlag&, const StoredFlag&) = default;
};

class StoredNumber {
public:
    std::wstring text = L"0";

    operator std::int32_t() const { return LeadingNumber(text); }
    StoredNumber& operator=(std::int32_t number)
    {
        if (number != std::int32_t(*this))
            text = NumberText(number);
        return *this;
    }
    friend bool operator==(const StoredNumber&, const StoredNumber&) = default;
};

// A program or batch file that a job starts.
struct ScheduledTask {
    std::wstring path{}; // unique within the job, without regard to case
    std::wstring parameters{};
    bool delayEnabled = false;   // a repeat interval is set
    StoredNumber delayMinutes{}; // the repeat interval
    std::wstring endTime{};      // hours:minutes:seconds; after it the task is no longer repeated

    friend bool operator==(const ScheduledTask&, const ScheduledTask&) = default;
};

// The dates of a schedule that has none: every day, or chosen week days.
inline constexpr const wchar_t* kNoDate = L"NULL";

// One scheduled job. What belongs to another kind of schedule, to an unset scheme or power-off, is neither sent nor
// read back.
struct ScheduledJob {
    std::wstring name; // unique in the list, without regard to case
    std::wstring description;
    StoredFlag enabled;
    std::wstring startTime; // hours:minutes:seconds
    ScheduleKind kind = ScheduleKind::Daily;
    std::optional<std::wstring> otherKind; // Daily: the word for a kind that this program does not know
    std::wstring startDate = kNoDate;      // OnDate: year-month-day, both; Monthly: "01" to "31", the first and
    std::wstring endDate = kNoDate;        // the last day of the month on which the job runs
    std::array<StoredFlag, 7> weekDays{};  // Weekly: Sunday first
    std::array<StoredFlag, 12> months{};   // Monthly: January first
    bool powerOn = false;
    bool applyScheme = false;
    std::wstring schemeName;
    bool powerOff = false;
    std::wstring powerOffType; // one of kPowerOffTypes
    StoredNumber idleMinutes;  // idleness after which the power-off is tried
    StoredFlag useAppSensor;
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

// The texts of a record ("08:05:00", "2024-05-01") and back, a time as the seconds since midnight; nothing for a text
// that is no such time or date.
[[nodiscard]] std::wstring TimeText(std::chrono::seconds time);
[[nodiscard]] std::optional<std::chrono::seconds> ParseTime(std::wstring_view text);
[[nodiscard]] std::wstring DateText(std::chrono::year_month_day date);
[[nodiscard]] std::optional<std::chrono::year_month_day> ParseDate(std::wstring_view text);

} // namespace voltaro
