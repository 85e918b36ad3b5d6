#pragma once

#include "link/element.h"

namespace voltaro::simulator {

inline constexpr std::size_t kMaxJobs = 10;
inline constexpr std::size_t kMaxTasks = 7;

// `details` with the first so many of the simulated machine's jobs; from the eleventh on they repeat under new names.
[[nodiscard]] Element InitialJobs(int count);

// Throws a Refusal unless `details` hold a job list in the form in which it is sent and read back: `Job_1`... with
// their schedules, actions and tasks, each element in its place.
void RequireJobs(const Element& details);

} // namespace voltaro::simulator
