#pragma once

#include <functional>
#include <vector>

namespace voltaro::bench {

using Work = std::function<void()>;

// Median times, in milliseconds, of several pieces of work, run in turn for so many rounds after one round to warm up.
[[nodiscard]] std::vector<double> Medians(const std::vector<Work>& works, int rounds);

// One line: what was measured, its time, what it is held against, the ratio and its limit.
void PrintRatio(const char* what, double time, double base, double limit);

} // namespace voltaro::bench
