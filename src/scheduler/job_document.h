#pragma once

#include "link/element.h"
#include "scheduler/job.h"

#include <cstddef>

namespace voltaro {

// The `details` element that carries the whole list: one `Job_<n>` a job, n from 1 in list order. At most kMaxJobs jobs
// of kMaxTasks tasks are written.
[[nodiscard]] Element BuildJobList(const ScheduledJobs& jobs);

// What a reply's `details` holds. Dropped are the children beyond the limits and those that are no job or task: under
// another name than their place asks for, or without a job name or task path. The caller logs them.
struct ReadJobs {
    ScheduledJobs jobs;
    std::size_t droppedJobs = 0;
    std::size_t droppedTasks = 0;
};

[[nodiscard]] ReadJobs ReadJobList(const Element& details);

} // namespace voltaro
