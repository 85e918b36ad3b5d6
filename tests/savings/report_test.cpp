#include "savings/day_texts.h"
#include "savings/report.h"
#include "savings/shown_day.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>

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

// The lines of a day, separated by "|": "Istime 10" is the event on 2024-02-29 at 10:00:00; after "=" any line.
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
    {L"Istime 00|Ietime 00:05|Istime 01|Ietime 01:05:01|Istime 02|Ietime 02:10|Istime 03|Ietime 03:10:01|Istime 04|Ietime 04:30|Istime 05|Ietime 05:30:01", {80997, 5403},
     {{0, 300}, {1, 301}, {1, 600}, {2, 601}, {2, 1800}, {3, 1801}}},
    {L"Istime 01|Ietime 02:00:01|Istime 03|Ietime 05|Istime 06|Ietime 08:00:01|Istime 09|Ietime 13", {53998, 32402}, {{4, 3601}, {4, 7200}, {5, 7201}, {5, 14400}}},
    {L"Istime 10|Dstime 10:10|Detime 10:15|Mstime 10:15|Metime 11|Ietime 11", {82800, 600, 300, 2700}, {{3, 3600}}},
    {L"Istime 08|Qstime 08:20|Qetime 09|Hstime 09|Hetime 11|Ietime 12:00:01", {71999, 4801, 0, 0, 2400, 7200, 0, 0, 7200}, {{6, 14401}}},
    {L"Istime 12|Qptime 12:10|QUptme 13:10|Ietime 13:30|Qptime 20|QAgtme 20:30", {75600, 5400, 0, 0, 0, 0, 5400}, {{4, 5400}}},
    {L"Istime 18|Sdtime 18:30|SUptme 20|Ietime 20", {79200, 1800, 0, 0, 0, 0, 5400, 5400}, {{4, 7200}}},
    // Timed standby.
    {L"Istime 13|Sbtime 13:10|Duratn 30|Setime 15:10|Duratn 120|Ietime 15:20", {78000, 1200, 0, 0, 1800, 5400, 0, 0, 5400, 1800}, {{5, 8400}}},
    {L"Sbtime 01|Duratn 61|Setime 02|Duratn 60|Sbtime 03|Duratn 60|Setime 04", {79200, 0, 0, 0, 7200, 0, 0, 0, 0, 7200}},
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
    {L"=Dstime # 2024/13/29 10:00:00|=Detime # 2024/13/29 11:00:00|=Mstime # 2024/02/00 10:00:00|=Metime # 2024/02/29 99:00:00", {86400}},
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

// Lines come from every `details`, in order, and after a failure from `response`; what stands elsewhere is no event.
TEST(ShownDayTest, LinesOfAllDetails)
{
    DayReport report;
    const auto details = [](const wchar_t* text) { return Element{L"details", {}, {TextElement(L"a", text)}}; };
    const Element root{L"vltp", {},
        {{L"response", {}, {TextElement(L"a", L"Failure of it"), details(L"Istime # 2024/02/29 00:00:00")}},
            TextElement(L"a", L"Failure"), details(L"Ietime # 2024/02/29 00:05:00")}};
    for (const auto& [answer, idle] : {std::pair(L"", 300), {L"Failure", 86399}}) {
        EXPECT_EQ(ReadDayAnswer(&root, answer, kLater, report), DayAnswer::Report);
        EXPECT_EQ(report.durations.idleWithoutSavings, idle);
    }
}

TEST(EventLinesTest, CutsLinesAndReadsPowerFigures)
{
    const Element details{L"details", {}, std::vector<Element>(4000, TextElement(L"e", std::wstring(100, L'x')))};
    const std::vector<EventLine> lines = ReadEventLines(details, L"");
    EXPECT_TRUE(lines.size() == 3010U && lines.back().view() == std::wstring(60, L'x'));
    constexpr float kLargest = 3.40282347e38F;
    for (const auto& [line, figure] : {std::pair(L"Pwrcon # 0.8125", 0.8125F), {L"Pwrcon#.5kWh", 0.5F},
             {L"Pwrcon # +2.", 2}, {L"Pwrcon # -1.5e1", -15}, {L"Pwrcon # 1e999", kLargest}, {L"Pwrcon # -1e-999", 0},
             {L"Pwrcon # nan", 0}, {L"Pwrcon # +-1", 0}, {L"Pwrcon 5", 0}, {L"Pwrconx # 5", 0}})
        EXPECT_EQ(ScanPowerLine(line).kilowattHours, figure) << line;
}

// Powered on 8 h, of it dim 30 min, monitor off 90 min, timed standby 45 min; shutdown 1 h, hibernate upon idle 2 h.
// clang-format off
constexpr DayDurations kDay = {.poweredOn = 28800, .offTotal = 10800, .idle = 12600, .dim = 1800, .monitorOff = 5400,
    .shutdown = 3600, .hibernateUponIdle = 7200, .timedStandby = 2700};
// clang-format on

// Worked by hand. Would have been on: 28800 + 3600 + 7200 = 39600 s. Full on: 0.05 x 90 + 0.15 x 67.5 + 0.8 x 45
// = 50.625 W and the monitor. CRT, in watt seconds: without savings 18900 x 112.8 + 1800 x (45 + 0.97 x 67.8)
// = 2331298.8; drawn 1800 x (45 + 0.95 x 67.8) + 5400 x 48.8 + 2700 x 7 + 10800 x 4.9 = 532278; 1799020.8 / 3.6e6
// = 0.499728 kWh saved of 39600 x 118.425 / 3.6e6 = 1.302675. What the agent tells replaces what is computed.
TEST(SavingsFiguresTest, EachMonitorKindAndTheAgentsFigures)
{
    const struct {
        const wchar_t *type, *on, *off;
        double wouldHaveBeen, nowIs, saved, percentage, carbonDioxide;
        float consumedTold = 0, savedTold = 0;
    } kCases[] = {
        {L"CRT", L"67.80", L"3.80", 1.302675, 0.802947, 0.499728, 38.361679, 349.8096},
        {L"LCD", L"21.23", L"0.49", 0.790405, 0.518470, 0.271935, 34.404514, 190.3545},
        {L"LED", L"21.20", L"0.65", 0.790075, 0.5192435, 0.2708315, 34.279214, 189.58205},
        {L"Inbuilt", L"0.00", L"0.00", 0.556875, 0.391125, 0.165750, 29.764310, 116.025},
        {L"branded", L"30.00", L"5.00", 0.556875, 0.393825, 0.163050, 29.279461, 114.135}, // its monitor counts for 0
        {L"LCD", L"21.23", L"0.49", 2.0, 1.5, 0.5, 25.0, 350, 1.5F, 0.5F},
        {L"LCD", L"21.23", L"0.49", 1.771935, 1.5, 0.271935, 15.346782, 190.3545, 1.5F, 0},
        {L"LCD", L"21.23", L"0.49", 0.768470, 0.518470, 0.25, 32.532174, 175, 0, 0.25F},
        {L"LCD", L"21.23", L"0.49", 0, 1.5, -1.5, 0, -1050, 1.5F, -1.5F}, // no share of nothing
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(testing::Message() << row.type << L" " << row.consumedTold << L" " << row.savedTold);
        const PowerProfile profile = ReadProfile({row.type, row.on, row.off, L"90.00", L"45.00", L"3.20", L"1.10"});
        const SavingsFigures f = ComputeSavings({kDay, {}, row.consumedTold, row.savedTold}, profile);
        EXPECT_TRUE(f.wouldHaveBeenOn == 39600 && f.savedFor == 20700);
        for (const auto& [is, expected] : {std::pair(f.wouldHaveBeen, row.wouldHaveBeen), {f.nowIs, row.nowIs},
                 {f.saved, row.saved}, {f.percentage, row.percentage}})
            EXPECT_NEAR(is, expected, 1e-6);
        EXPECT_NEAR(f.carbonDioxide, row.carbonDioxide, 1e-3);
    }
}

TEST(ReportTest, Texts)
{
    EXPECT_EQ(HoursMinutesText(-7200) + L", " + HoursMinutesText(119), L"0 Hrs : 0 Mins, 0 Hrs : 1 Min");
    EXPECT_EQ(HoursMinutesText(86399), L"23 Hrs : 59 Mins");
    const PowerProfile thirtyWatts = ReadProfile({L"Inbuilt", L"", L"", L"30", L"30", L"", L""});
    EXPECT_EQ(EnergyText(IdleEnergy(660, thirtyWatts)), L"0.006 kWh"); // 0.0055: divided by 3600 first it prints 0.005
    EXPECT_EQ(EnergyText(-0.0004) + EnergyText(-0.0006), L"0.000 kWh-0.001 kWh");
    EXPECT_EQ(HeadingDate({2024, 2, 9}) + HeadingDate({2024, 13, 9}), L"February 09, 2024 09, 2024");
}

TEST(MonitorTableTest, RowsAndWattTexts)
{
    double watts = 0;
    for (const std::wstring_view type : kMonitorTypes) {
        for (const MonitorRow& row : MonitorsOfType(type))
            watts += std::stod(std::wstring(row.onWatts)) + std::stod(std::wstring(row.offWatts));
    }
    EXPECT_NEAR(watts, 1072.22, 1e-6);
    EXPECT_TRUE(MonitorsOfType(L"Branded").empty() && !FindMonitor(L"LED", L"17.00"));
    for (const wchar_t* text : {L"0", L"21.23", L"999.990", L"0000999.9"})
        EXPECT_EQ(CheckWatts(text), WattCheck::Accepted) << text;
    for (const wchar_t* text : {L"", L".", L"12.", L".5", L"-1", L"+1", L"1e2", L" 1", L"1.2.3"})
        EXPECT_EQ(CheckWatts(text), WattCheck::NotANumber) << text;
    for (const wchar_t* text : {L"1000", L"999.991", L"99999999999999999999999"})
        EXPECT_EQ(CheckWatts(text), WattCheck::TooHigh) << text;
}

// 16 h on: idle 6 h (without savings 1 h, dim 2 h, timed standby 1 h, standby by hand 2 h), active 10 h; off 8 h.
// clang-format off
constexpr DayDurations kGraphDay = {.poweredOn = 57600, .offTotal = 28800, .active = 36000, .idle = 21600,
    .idleWithoutSavings = 3600, .dim = 7200, .standby = 10800, .hibernate = 28800, .shutdown = 179,
    .hibernateUponIdle = 3600, .timedStandby = 3600};
// clang-format on
const GraphLayout kLayout = LayOutGraph(kGraphDay, L"February 29, 2024");

TEST(GraphLayoutTest, SegmentsMarkersAndTexts)
{
    const std::tuple<std::wstring_view, GraphBox, GraphColour> kSegments[] = {
        {L"IDLE", {85, 360, 125, 480}, 0x006000},
        {L"ACTIVE", {85, 160, 125, 360}, 0x8A2A00},
        {L"IDLE without Power Savings", {170, 460, 210, 480}, 0x37E38C},
        {L"DIM (Upon IDLE)", {170, 420, 210, 460}, 0xFFA42D},
        {L"MONITOR OFF (Upon IDLE)", {170, 420, 210, 420}, 0x808080},
        {L"STANDBY (Upon IDLE)", {170, 400, 210, 420}, 0xFF00FF},
        {L"STANDBY (Done Manually)", {170, 360, 210, 400}, 0xA03070},
        {L"HIBERNATE (Upon IDLE)", {170, 340, 210, 360}, 0x0080FF},
        {L"SHUTDOWN (Upon IDLE)", {170, 340, 210, 340}, 0x0000FF},
        {L"ON", {254, 160, 294, 480}, 0x008080},
        {L"OFF  (Done by Voltaro)", {254, 0, 294, 160}, 0x000080},
    };
    ASSERT_TRUE(kLayout.segments.size() == std::size(kSegments) && kLayout.legend.size() == std::size(kSegments));
    for (std::size_t i = 0; i < std::size(kSegments); ++i) {
        const auto& [bar, colour, state, seconds] = kLayout.segments[i];
        EXPECT_TRUE(std::tuple(state, bar, colour) == kSegments[i]) << i;
        EXPECT_TRUE(kLayout.legend[i].label.text == state && kLayout.legend[i].colour == colour) << i;
    }
    // No monitor off, and 179 s of shutdown are no pixel.
    constexpr auto kDashes = GraphPen::DashDot, kSolid = GraphPen::Solid;
    EXPECT_EQ(kLayout.markers,
        (std::vector<GraphLine>{{85, 360, 50, 360, 0x006000, kDashes}, {85, 160, 50, 160, 0x8A2A00, kDashes},
            {170, 460, 125, 460, 0x37E38C, kDashes}, {170, 420, 125, 420, 0xFFA42D, kDashes},
            {170, 400, 125, 400, 0xFF00FF, kDashes}, {170, 360, 125, 360, 0xA03070, kDashes},
            {170, 340, 125, 340, 0x0080FF, kDashes}, {210, 160, 254, 160, 0x008080, kSolid},
            {210, 0, 254, 0, 0x000080, kSolid}}));
    const auto has = [](const wchar_t* text, int x, int y) {
        return std::any_of(kLayout.texts.begin(), kLayout.texts.end(),
            [=](const GraphText& t) { return t.text == text && t.x == x && t.y == y; });
    };
    EXPECT_TRUE(has(L"24", 30, -3) && has(L"23", 30, 15) && has(L"0", 30, 475) && has(L"IDLE breakup", 160, 481));
    EXPECT_TRUE(has(L"Graph for VLT Events of Date  :", 380, 15) && has(L"February 29, 2024", 400, 32));
    EXPECT_TRUE(SegmentTooltip(kLayout.segments[3], kLayout.daySeconds, true).ends_with(L"8.3 % of the day so far"));
    const GraphLayout wild = LayOutGraph({.active = -90000, .idle = 1'000'000'000'000'000}, L"");
    EXPECT_TRUE(wild.segments[0].bar.top == 0 && wild.segments[1].bar.top == 0);
}

} // namespace voltaro
