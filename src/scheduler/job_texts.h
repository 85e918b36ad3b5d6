#pragma once

#include "base/calendar.h"
#include "scheduler/job.h"

#include <array>
#include <string>

namespace voltaro {

// The cells of a job's row: name, description, start time, schedule, number of tasks, power-off type, idleness. The
// last two are empty for a job without power-off.
[[nodiscard]] std::array<std::wstring, 7> JobRow(const ScheduledJob& job);

// The cells of a task's row: path, end time, repeat interval (empty without one).
[[nodiscard]] std::array<std::wstring, 3> TaskRow(const ScheduledTask& task);

// The "Scheduled Type" cell: "On Date(2024-05-01)", "Weekly", "Monthly", or "*******" for every day.
[[nodiscard]] std::wstring ScheduleText(const ScheduledJob& job);

// Whether a monthly job's first day comes after its last one.
[[nodiscard]] bool AreDaysReversed(const ScheduledJob& job);

// When the job runs next after the given local time, in words, for a tooltip: "Next run: tomorrow at 08:00:00". A
// monthly job runs on each day from its first to its last day in each chosen month.
[[nodiscard]] std::wstring NextRunText(const ScheduledJob& job, const LocalTime& now);

} // namespace voltaro
