#pragma once

#include "base/text_rules.h"
#include "scheduler/job.h"

#include <string_view>

namespace voltaro {

// Each check returns the refusal of the first rule that fails, or null. Show it with RefusalText(*refusal, name).

// "Save" (Add) and "Update" of the job editor. `jobs` is the list as it stands.
[[nodiscard]] const Refusal* CheckJobName(std::wstring_view name, const ScheduledJobs& jobs, EditMode mode);

// A weekly job needs a day, a monthly one a month and days in their order.
[[nodiscard]] const Refusal* CheckSchedule(const ScheduledJob& job);

// "Add Task" (Add) and "Update Task". `job` holds the tasks as they stand.
[[nodiscard]] const Refusal* CheckTaskPath(std::wstring_view path, const ScheduledJob& job, EditMode mode);

} // namespace voltaro
