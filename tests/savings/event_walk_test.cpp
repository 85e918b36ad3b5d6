#include "savings/event_walk.h"

#include "savings/shown_day.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <string>

namespace voltaro {

constexpr LocalTime kLater = {2024, 3, 1, 9, 0, 0};

struct Day {
    const wchar_t* lines; // see EventLines
    // Active, idle without savings, dim, monitor off, standby, hibernate, off, shutdown, hibernate upon idle and timed
    // standby; the other durations are sums of these.
    std::array<std::int64_t, 10> seconds;
    std::vector<std::pair<std::size_t, std::int64_t>> idlePeriods = {}; // bucket, seconds
    LocalTime now = kLater;
    float consumed = 0, saved = 0;
};

// The lines of a day, separated by "|": "Istime 10" stands for the event on 2024-02-29 at 10:00:00, "Duratn 30" and
// "Pwrcon 1.5" for those lines, and after "=" a line stands as it is.
static std::vector<EventLine> EventLines(std::wstring_view text)
{
    std::vector<EventLine> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(L'|'), text.size());
        std::wstring line(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with(L'='))
            line.erase(0, 1);
        else if (line.starts_with(L"Duratn") || line.starts_with(L"Pwr"))
            line.insert(6, L" #");
        else
            line = line.substr(0, 6) + L" # 2024/02/29" + line.substr(6)
                + std::wstring(L"00:00:00").substr(line.size() - 7);
        lines.emplace_back(line);
    }
    return lines;
}

// clang-format off
const Day kDays[] = {
    // Idle periods and the states in them.
    {L"", {86400}}, {L"Pwrcon 1.5|Pwrsav 0.25", {86400}, {}, kLater, 1.5, 0.25},
    {L"Istime 00|Ietime 00:05|Istime 01|Ietime 01:05:01|Istime 02|Ietime 02:10|Istime 03|Ietime 03:10:01|"
     L"Istime 04|Ietime 04:30|Istime 05|Ietime 05:30:01", {80997, 5403},
     {{0, 300}, {1, 301}, {1, 600}, {2, 601}, {2, 1800}, {3, 1801}}},
    {L"Istime 01|Ietime 02:00:01|Istime 03|Ietime 05|Istime 06|Ietime 08:00:01|Istime 09|Ietime 13", {53998, 32402},
     {{4, 3601}, {4, 7200}, {5, 7201}, {5, 14400}}},
    {L"Istime 10|Dstime 10:10|Detime 10:15|Mstime 10:15|Metime 11|Ietime 11", {82800, 600, 300, 2700}, {{3, 3600}}},
    {L"Istime 08|Qstime 08:20|Qetime 09|Hstime 09|Hetime 11|"
     L"Ietime 12:00:01", {71999, 4801, 0, 0, 2400, 7200, 0, 0, 7200}, {{6, 14401}}},
    {L"Istime 12|Qptime 12:10|QUptme 13:10|Ietime 13:30|Qptime 20|"
     L"QAgtme 20:30", {75600, 5400, 0, 0, 0, 0, 5400}, {{4, 5400}}},
    {L"Istime 18|Sdtime 18:30|SUptme 20|Ietime 20", {79200, 1800, 0, 0, 0, 0, 5400, 5400}, {{4, 7200}}},
    // Timed standby.
    {L"Istime 13|Sbtime 13:10|Duratn 30|Setime 15:10|Duratn 120|"
     L"Ietime 15:20", {78000, 1200, 0, 0, 1800, 5400, 0, 0, 5400, 1800}, {{5, 8400}}},
    {L"Sbtime 01|Duratn 61|Setime 02|Duratn 60|Sbtime 03|Duratn 60|"
     L"Setime 04", {79200, 0, 0, 0, 7200, 0, 0, 0, 0, 7200}},
    {L"Sbtime 13|Setime 13:30|Duratn 30", {84600, 0, 0, 0, 1800, 0, 0, 0, 0, 1800}},
    {L"Istime 20|Sbtime 21|Duratn 30", {72001, 3600, 0, 0, 10799, 0, 0, 0, 0, 10799}, {{5, 14400}}},
    // The first event reaches back to midnight.
    {L"QUptme 06", {64800, 0, 0, 0, 0, 0, 21600}}, {L"Metime 02", {79200, 0, 0, 7200}, {{4, 7200}}},
    {L"SUptme 07", {61200, 0, 0, 0, 0, 0, 25200, 25200}, {{6, 25200}}}, {L"Detime 00:05", {86100, 0, 300}, {{0, 300}}},
    {L"Hetime 08", {57600, 0, 0, 0, 0, 28800, 0, 0, 28800}, {{6, 28800}}}, {L"QHetme 08", {57600, 0, 0, 0, 0, 28800}},
    {L"Qetime 00:10", {85800, 0, 0, 0, 600}}, {L"Ietime 01", {82800, 3600}, {{3, 3600}}},
    {L"Detime 00", {86400}, {{0, 0}}}, {L"Setime 06|Duratn 60|Duratn 480", {64800, 0, 0, 0, 0, 21600}},
    {L"Setime 06|Duratn 240|Duratn 480", {64800, 0, 0, 0, 7200, 14400}},
    {L"Setime 06|Dstime 07|Detime 07:01", {64740, 0, 60, 0, 21600}}, {L"=Foobar # 1|Metime 02", {86400}},
    // Open to the day's end, or until now.
    {L"Istime 23|=Pwrcon # 2|=Pwrsav # -0.5", {82801, 3599}, {{3, 3600}}, kLater, 2, -0.5},
    {L"Istime 12|Qstime 12:10", {43200, 600, 0, 0, 3000}, {{4, 3601}}, {2024, 2, 29, 13, 0, 0}},
    // Starts and ends that do not match, days that are not one.
    {L"Istime 10|Dstime 10:10|Detime 10:20|Istime 11|Ietime 11:30", {84000, 1800, 600}, {{2, 1800}}},
    {L"Dstime 10|Metime 10:05|Hstime 11|=Pwrcon # 1|Hetime 12", {86400}, {}, kLater, 1, 0},
    {L"Mstime 10|Metime 09", {86400}, {}, {2028, 2, 29, 10, 0, 0}}, {L"Istime 10|Dstime 10|Detime 11|Ietime 10:30", {82800, 0, 3600}, {{2, 1800}}},
    {L"=Hstime # 2024/02/28 23:00:00|=Hetime # 2024/03/01 01:00:00", {-7200, 0, 0, 0, 0, 93600, 0, 0, 93600}},
    {L"=Hstime # 2023/02/28 23:00:00|=Hetime # 2023/03/01 01:00:00", {79200, 0, 0, 0, 0, 7200, 0, 0, 7200}},
    {L"=  istime#2024/02/29 10:00:00|=IETIME \t#  2024/2/29   10:5: 0", {86100, 300}, {{0, 300}}},
    // Damaged lines.
    {L"=Dstime # 2024/13/29 10:00:00|=Detime # 2024/13/29 11:00:00|=Mstime # 2024/02/00 10:00:00|"
     L"=Metime # 2024/02/29 99:00:00", {86400}},
    {L"=Hstime|Hetime 11|Qstime 11|=Qetime # -|=Sdtime # 2024-02-29|SUptme 12", {86400}},
    {L"Sbtime 13|=Duratn # -5|Setime 14|=Duratn # 99999999999", {82800, 0, 0, 0, 3600, 0, 0, 0, 0, 3600}},
};
// clang-format on

TEST(EventWalkTest, DaysWorkedByHand)
{
    for (const Day& day : kDays) {
        SCOPED_TRACE(day.lines);
        DayReport report;
        ASSERT_TRUE(WalkDay(EventLines(day.lines), day.now, report));
        const auto& [active, idle, dim, monitorOff, standby, hibernate, off, shutdown, uponIdle, timed] = day.seconds;
        const std::int64_t idleInAll = idle + dim + monitorOff + standby;
        EXPECT_EQ((std::bit_cast<std::array<std::int64_t, 14>>(report.durations)),
            (std::array<std::int64_t, 14>{active + idleInAll, hibernate + off, active, idleInAll, idle, active, dim,
                monitorOff, standby, hibernate, off, shutdown, uponIdle, timed}));
        IdleHistogram histogram;
        for (const auto& [bucket, seconds] : day.idlePeriods) {
            histogram.seconds[bucket] += seconds;
            histogram.totalSeconds += seconds;
            ++histogram.counts[bucket];
        }
        EXPECT_EQ(report.histogram, histogram);
        EXPECT_TRUE(report.powerConsumed == day.consumed && report.powerSaved == day.saved);
    }
}

// Lines come from every `details`, in order; what stands elsewhere is no event.
TEST(ShownDayTest, Answers)
{
    DayReport report;
    const auto read = [&report](std::vector<Element> children, const wchar_t* answer = L"") {
        const Element root{L"vltp", {}, std::move(children)};
        return ReadDayAnswer(&root, answer, kLater, report);
    };
    const auto details = [](const wchar_t* text) { return Element{L"details", {}, {TextElement(L"a", text)}}; };
    EXPECT_EQ(read({{L"response", {}, {TextElement(L"a", L"Failure of it")}}}, L"Failure"), DayAnswer::Report);
    EXPECT_EQ(report.durations.active, kDaySeconds);
    EXPECT_EQ(read({{L"response", {}, {details(L"Istime # 2024/02/29 00:00:00")}}, TextElement(L"a", L"Failure"),
                  details(L"Ietime # 2024/02/29 00:05:00")}),
        DayAnswer::Report);
    EXPECT_EQ(report.durations.idleWithoutSavings, 300);
}

TEST(EventLinesTest, CutsLinesAndReadsPowerFigures)
{
    const Element details{L"details", {}, std::vector<Element>(4000, TextElement(L"e", std::wstring(100, L'x')))};
    const std::vector<EventLine> lines = ReadEventLines(details, L"");
    EXPECT_EQ(lines.size(), 3010U);
    EXPECT_EQ(lines.back().view(), std::wstring(60, L'x'));
    constexpr float kLargest = 3.40282347e38F;
    for (const auto& [line, figure] : {std::pair(L"Pwrcon # 0.8125", 0.8125F), {L"Pwrcon#.5kWh", 0.5F},
             {L"Pwrcon # +2.", 2}, {L"Pwrcon # -1.5e1", -15}, {L"Pwrcon # 1e999", kLargest}, {L"Pwrcon # -1e-999", 0},
             {L"Pwrcon # nan", 0}, {L"Pwrcon # +-1", 0}, {L"Pwrcon 5", 0}, {L"Pwrconx # 5", 0}})
        EXPECT_EQ(ScanPowerLine(line).kilowattHours, figure) << line;
}

} // namespace voltaro
