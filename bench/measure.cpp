#include "measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace voltaro::bench {

std::vector<double> Medians(const std::vector<Work>& works, int rounds)
{
    using Clock = std::chrono::steady_clock;
    std::vector<std::vector<double>> times(works.size());
    for (int round = -1; round < rounds; ++round) {
        for (std::size_t i = 0; i < works.size(); ++i) {
            const auto start = Clock::now();
            works[i]();
            const std::chrono::duration<double, std::milli> time = Clock::now() - start;
            if (round >= 0)
                times[i].push_back(time.count());
        }
    }
    std::vector<double> medians;
    for (std::vector<double>& row : times) {
        std::nth_element(row.begin(), row.begin() + static_cast<std::ptrdiff_t>(row.size() / 2), row.end());
        medians.push_back(row[row.size() / 2]);
    }
    return medians;
}

void PrintRatio(const char* what, double time, double base, double limit)
{
    const double ratio = time / base;
    std::printf("%-58s %9.3f ms  / %9.3f ms = %5.2f  (limit %.2f)%s\n", what, time, base, ratio, limit,
        ratio <= limit ? "" : "  ABOVE");
    std::fflush(stdout);
}

} // namespace voltaro::bench
