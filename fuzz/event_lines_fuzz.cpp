// Feeds arbitrary lines to the walk over a day and everything computed from it. In one command:
//   clang++ -std=c++20 -O2 -g -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=all -Isrc
//       fuzz/event_lines_fuzz.cpp src/savings/*.cpp src/base/text.cpp -o event_lines_fuzz
// and run with -dict=fuzz/event_lines.dict -max_len=4096.
#include "savings/event_walk.h"
#include "savings/graph_layout.h"
#include "savings/report.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <string>
#include <vector>

using namespace voltaro;

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

// One text a line; the bytes are the characters.
std::vector<EventLine> LinesOf(const std::uint8_t* data, std::size_t size)
{
    const std::wstring text(data, data + size);
    std::vector<EventLine> lines;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(L'\n', begin), text.size());
        lines.emplace_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

void CheckDay(const DayReport& day)
{
    const DayDurations& d = day.durations;
    Require(d.poweredOn + d.offTotal >= 0 && d.poweredOn + d.offTotal <= kDaySeconds);
    Require(d.poweredOn == d.idle + d.active && d.offTotal == d.hibernate + d.off && d.active == d.activeAgain);
    Require(d.idle == d.idleWithoutSavings + d.standby + d.monitorOff + d.dim);
    for (const std::int64_t part : {d.idleWithoutSavings, d.dim, d.monitorOff, d.hibernateUponIdle, d.shutdown})
        Require(part >= 0);
    Require(d.timedStandby <= d.standby && d.hibernateUponIdle <= d.hibernate && d.shutdown <= d.off);
    const auto& h = day.histogram;
    Require(std::accumulate(h.seconds.begin(), h.seconds.end(), std::int64_t{0}) == h.totalSeconds);
    Require(std::isfinite(day.powerConsumed) && std::isfinite(day.powerSaved));
}

// Everything that is made of the day; slow, so not for every input.
void ShowDay(const DayReport& day, const std::vector<EventLine>& lines)
{
    const PowerProfile profile
        = ReadProfile({lines[0].view(), lines[0].view(), L"0.49", L"90", lines.back().view(), L"3", L"1"});
    const SavingsFigures figures = ComputeSavings(day, profile);
    Require(std::isfinite(figures.wouldHaveBeen) && std::isfinite(figures.saved) && std::isfinite(figures.nowIs));
    (void)TotalRows(day.durations, figures);
    (void)EmissionRows(figures);
    (void)EstimateRows(day.durations, figures);
    (void)IdlePatternRows(day.histogram, profile);
    const GraphLayout graph = LayOutGraph(day.durations, lines[0]);
    for (const GraphSegment& segment : graph.segments) {
        Require(segment.bar.top >= 0 && segment.bar.top <= segment.bar.bottom && segment.bar.bottom <= kGraphBottom);
        (void)SegmentTooltip(segment, graph.daySeconds);
    }
    (void)CheckWatts(lines[0]);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<EventLine> lines = LinesOf(data, size);
    DayReport day;
    if (!WalkDay(lines, {2024, 2, 29, 13, 14, 15}, day))
        return 0;
    CheckDay(day);
    if (size % 16 == 0)
        ShowDay(day, lines);
    return 0;
}
