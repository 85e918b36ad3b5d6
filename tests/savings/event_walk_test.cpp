#include "savings/event_walk.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cwchar>
#include <numeric>
#include <random>
#include <string>

namespace voltaro {
namespace {

constexpr LocalTime kLater = {2024, 3, 1, 9, 0, 0};

struct Period {
    std::size_t bucket;
    std::int64_t seconds;
};

struct Day {
    const wchar_t* name;
    const wchar_t* lines; // see EventLines
    DayDurations durations;
    std::vector<Period> idlePeriods;
    LocalTime now = kLater;
    float consumed = 0;
    float saved = 0;
};

// The lines of a day, separated by "|": "Istime 10:00:00" stands for the event on 2024-02-29, "Duratn 30" and
// "Pwrcon 1.5" for those lines, and after "=" a line stands as it is.
std::vector<EventLine> EventLines(std::wstring_view text)
{
    std::vector<std::wstring> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(L'|'), text.size());
        std::wstring line(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with(L'='))
            line.erase(0, 1);
        else
            line.insert(6, line.find(L':') != std::wstring::npos ? L" # 2024/02/29" : L" #");
        lines.push_back(line);
    }
    return MakeEventLines(lines);
}

// clang-format off
// Seconds in the order of DayDurations: powered on, off in all, active, idle, idle without savings, active, dim,
// monitor off, standby, hibernate, off, shutdown, hibernate upon idle, timed standby.
const Day kDays[] = {
    {L"no lines", L"", {86400, 0, 86400, 0, 0, 86400, 0, 0, 0, 0, 0, 0, 0, 0}, {}},
    {L"power lines only", L"Pwrcon 1.5|Pwrsav 0.25",
     {86400, 0, 86400, 0, 0, 86400, 0, 0, 0, 0, 0, 0, 0, 0}, {}, kLater, 1.5, 0.25},
    {L"an idle period", L"Istime 10:00:00|Ietime 10:30:00",
     {86400, 0, 84600, 1800, 1800, 84600, 0, 0, 0, 0, 0, 0, 0, 0}, {{2, 1800}}},
    {L"300 and 301 seconds", L"Istime 10:00:00|Ietime 10:05:00|Istime 11:00:00|Ietime 11:05:01",
     {86400, 0, 85799, 601, 601, 85799, 0, 0, 0, 0, 0, 0, 0, 0}, {{0, 300}, {1, 301}}},
    {L"dim outside idle", L"Dstime 09:00:00|Detime 09:02:00",
     {86400, 0, 86280, 120, 0, 86280, 120, 0, 0, 0, 0, 0, 0, 0}, {}},
    {L"dim and monitor off within idle",
     L"Istime 10:00:00|Dstime 10:10:00|Detime 10:15:00|Mstime 10:15:00|Metime 11:00:00|Ietime 11:00:00",
     {86400, 0, 82800, 3600, 600, 82800, 300, 2700, 0, 0, 0, 0, 0, 0}, {{3, 3600}}},
    {L"standby and hibernate within idle",
     L"Istime 08:00:00|Qstime 08:20:00|Qetime 09:00:00|Hstime 09:00:00|Hetime 11:00:00|Ietime 12:00:01",
     {79200, 7200, 71999, 7201, 4801, 71999, 0, 0, 2400, 7200, 0, 0, 7200, 0}, {{6, 14401}}},
    {L"second hibernate is not upon idle", L"Istime 00:30:00|Qhtime 01:00:00|QHetme 03:00:00|Ietime 03:00:00",
     {79200, 7200, 77400, 1800, 1800, 77400, 0, 0, 0, 7200, 0, 0, 0, 0}, {{5, 9000}}},
    {L"power-off stays in the idle remainder",
     L"Istime 12:00:00|Qptime 12:10:00|QUptme 13:10:00|Ietime 13:30:00|Qptime 20:00:00|QAgtme 20:30:00",
     {81000, 5400, 75600, 5400, 5400, 75600, 0, 0, 0, 0, 5400, 0, 0, 0}, {{4, 5400}}},
    {L"shutdown within idle", L"Istime 18:00:00|Sdtime 18:30:00|SUptme 20:00:00|Ietime 20:00:00",
     {81000, 5400, 79200, 1800, 1800, 79200, 0, 0, 0, 0, 5400, 5400, 0, 0}, {{4, 7200}}},
    {L"timed standby goes on into hibernate",
     L"Istime 13:00:00|Sbtime 13:10:00|Duratn 30|Setime 15:10:00|Duratn 120|Ietime 15:20:00",
     {81000, 5400, 78000, 3000, 1200, 78000, 0, 0, 1800, 5400, 0, 0, 5400, 1800}, {{5, 8400}}},
    {L"timed standby of zero minutes", L"Sbtime 13:00:00|Duratn 0|Setime 14:00:00|Duratn 60",
     {86400, 0, 82800, 3600, 0, 82800, 0, 0, 3600, 0, 0, 0, 0, 3600}, {}},
    {L"timed standby ended before its time, and at it",
     L"Sbtime 01:00:00|Duratn 61|Setime 02:00:00|Duratn 60|Sbtime 03:00:00|Duratn 60|Setime 04:00:00",
     {86400, 0, 79200, 7200, 0, 79200, 0, 0, 7200, 0, 0, 0, 0, 7200}, {}},
    {L"timed standby without length", L"Sbtime 13:00:00|Setime 13:30:00|Duratn 30",
     {86400, 0, 84600, 1800, 0, 84600, 0, 0, 1800, 0, 0, 0, 0, 1800}, {}},
    {L"timed standby without end", L"Istime 20:00:00|Sbtime 21:00:00|Duratn 30",
     {86400, 0, 72001, 14399, 3600, 72001, 0, 0, 10799, 0, 0, 0, 0, 10799}, {{5, 14400}}},
    {L"timed standby, then something else", L"Sbtime 21:00:00|Duratn 30|Dstime 22:00:00|Detime 22:01:00",
     {86400, 0, 86340, 60, 0, 86340, 60, 0, 0, 0, 0, 0, 0, 0}, {}},
    {L"up by the user first", L"QUptme 06:00:00", {64800, 21600, 64800, 0, 0, 64800, 0, 0, 0, 0, 21600, 0, 0, 0}, {}},
    {L"up by the agent first", L"QAgtme 00:00:30", {86370, 30, 86370, 0, 0, 86370, 0, 0, 0, 0, 30, 0, 0, 0}, {}},
    {L"up from shutdown first", L"SUptme 07:00:00",
     {61200, 25200, 61200, 0, 0, 61200, 0, 0, 0, 0, 25200, 25200, 0, 0}, {{6, 25200}}},
    {L"dim ends first", L"Detime 00:05:00", {86400, 0, 86100, 300, 0, 86100, 300, 0, 0, 0, 0, 0, 0, 0}, {{0, 300}}},
    {L"monitor off ends first", L"Metime 02:00:00",
     {86400, 0, 79200, 7200, 0, 79200, 0, 7200, 0, 0, 0, 0, 0, 0}, {{4, 7200}}},
    {L"hibernate ends first", L"Hetime 08:00:00",
     {57600, 28800, 57600, 0, 0, 57600, 0, 0, 0, 28800, 0, 0, 28800, 0}, {{6, 28800}}},
    {L"second hibernate ends first", L"QHetme 08:00:00",
     {57600, 28800, 57600, 0, 0, 57600, 0, 0, 0, 28800, 0, 0, 0, 0}, {}},
    {L"standby ends first", L"Qetime 00:10:00", {86400, 0, 85800, 600, 0, 85800, 0, 0, 600, 0, 0, 0, 0, 0}, {}},
    {L"idle ends first", L"Ietime 01:00:00", {86400, 0, 82800, 3600, 3600, 82800, 0, 0, 0, 0, 0, 0, 0, 0}, {{3, 3600}}},
    {L"dim ends at midnight", L"Detime 00:00:00", {86400, 0, 86400, 0, 0, 86400, 0, 0, 0, 0, 0, 0, 0, 0}, {{0, 0}}},
    {L"timed standby over before midnight", L"Setime 06:00:00|Duratn 60|Duratn 480",
     {64800, 21600, 64800, 0, 0, 64800, 0, 0, 0, 21600, 0, 0, 0, 0}, {}},
    {L"timed standby over after midnight", L"Setime 06:00:00|Duratn 240|Duratn 480",
     {72000, 14400, 64800, 7200, 0, 64800, 0, 0, 7200, 14400, 0, 0, 0, 0}, {}},
    {L"timed standby to the end", L"Setime 06:00:00|Duratn 600|Duratn 480",
     {86400, 0, 64800, 21600, 0, 64800, 0, 0, 21600, 0, 0, 0, 0, 0}, {}},
    {L"no planned length", L"Setime 06:00:00|Duratn 0|Duratn 480",
     {86400, 0, 64800, 21600, 0, 64800, 0, 0, 21600, 0, 0, 0, 0, 0}, {}},
    {L"no whole length", L"Setime 06:00:00|Duratn 90|Duratn 0",
     {70200, 16200, 64800, 5400, 0, 64800, 0, 0, 5400, 16200, 0, 0, 0, 0}, {}},
    {L"neither length", L"Setime 06:00:00|Dstime 07:00:00|Detime 07:01:00",
     {86400, 0, 64740, 21660, 0, 64740, 60, 0, 21600, 0, 0, 0, 0, 0}, {}},
    {L"only the first event reaches back to midnight", L"=Foobar # 1|Metime 02:00:00",
     {86400, 0, 86400, 0, 0, 86400, 0, 0, 0, 0, 0, 0, 0, 0}, {}},
    {L"idle to the day's end", L"Istime 23:00:00|=Pwrcon # 2|=Pwrsav # -0.5",
     {86400, 0, 82801, 3599, 3599, 82801, 0, 0, 0, 0, 0, 0, 0, 0}, {{3, 3600}}, kLater, 2, -0.5},
    {L"monitor off to the day's end", L"Istime 22:00:00|Mstime 22:30:00",
     {86400, 0, 79201, 7199, 1800, 79201, 0, 5399, 0, 0, 0, 0, 0, 0}, {{4, 7200}}},
    {L"dim to the day's end, no idle", L"Dstime 23:00:00",
     {86400, 0, 82801, 3599, 0, 82801, 3599, 0, 0, 0, 0, 0, 0, 0}, {}},
    {L"shutdown to the day's end", L"Sdtime 20:00:00|=Pwrsav # 0.5",
     {72001, 14399, 72001, 0, 0, 72001, 0, 0, 0, 0, 14399, 14399, 0, 0}, {}, kLater, 0, 0.5},
    {L"power-off to the day's end", L"Qptime 23:00:00",
     {82801, 3599, 82801, 0, 0, 82801, 0, 0, 0, 0, 3599, 0, 0, 0}, {}},
    {L"idle left open after a pair", L"Istime 22:00:00|Dstime 22:10:00|Detime 22:20:00",
     {86400, 0, 79201, 7199, 6599, 79201, 600, 0, 0, 0, 0, 0, 0, 0}, {{4, 7200}}},
    {L"today, idle until now", L"Istime 14:00:00",
     {54000, 0, 50400, 3600, 3600, 50400, 0, 0, 0, 0, 0, 0, 0, 0}, {{4, 3601}}, {2024, 2, 29, 15, 0, 0}},
    {L"today, standby until now", L"Istime 12:00:00|Qstime 12:10:00",
     {46800, 0, 43200, 3600, 600, 43200, 0, 0, 3000, 0, 0, 0, 0, 0}, {{4, 3601}}, {2024, 2, 29, 13, 0, 0}},
    {L"today, timed standby until now", L"Sbtime 12:00:00|Duratn 10",
     {46800, 0, 43200, 3600, 0, 43200, 0, 0, 3600, 0, 0, 0, 0, 3600}, {}, {2024, 2, 29, 13, 0, 0}},
    {L"today, the clock set back", L"Istime 11:00:00",
     {36000, 0, 36000, 0, 0, 36000, 0, 0, 0, 0, 0, 0, 0, 0}, {{0, 1}}, {2024, 2, 29, 10, 0, 0}},
    {L"today, at midnight", L"Istime 00:00:00",
     {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, {{0, 1}}, {2024, 2, 29, 0, 0, 0}},
    {L"the same day of another year", L"=Dstime # 2023/02/28 23:00:00",
     {86400, 0, 82801, 3599, 0, 82801, 3599, 0, 0, 0, 0, 0, 0, 0}, {}},
    {L"a second idle start", L"Istime 10:00:00|Dstime 10:10:00|Detime 10:20:00|Istime 11:00:00|Ietime 11:30:00",
     {86400, 0, 84000, 2400, 1800, 84000, 600, 0, 0, 0, 0, 0, 0, 0}, {{2, 1800}}},
    {L"ends that do not match", L"Dstime 10:00:00|Metime 10:05:00|Hstime 11:00:00|=Pwrcon # 1|Hetime 12:00:00",
     {86400, 0, 86400, 0, 0, 86400, 0, 0, 0, 0, 0, 0, 0, 0}, {}, kLater, 1, 0},
    {L"end before start", L"Mstime 10:00:00|Metime 09:00:00",
     {86400, 0, 86400, 0, 0, 86400, 0, 0, 0, 0, 0, 0, 0, 0}, {}},
    {L"less than nothing left of idle", L"Istime 10:00:00|Dstime 10:00:00|Detime 11:00:00|Ietime 10:30:00",
     {86400, 0, 82800, 3600, 0, 82800, 3600, 0, 0, 0, 0, 0, 0, 0}, {{2, 1800}}},
    {L"over a leap day", L"=Hstime # 2024/02/28 23:00:00|=Hetime # 2024/03/01 01:00:00",
     {-7200, 93600, -7200, 0, 0, -7200, 0, 0, 0, 93600, 0, 0, 93600, 0}, {}},
    {L"over no leap day", L"=Hstime # 2023/02/28 23:00:00|=Hetime # 2023/03/01 01:00:00",
     {79200, 7200, 79200, 0, 0, 79200, 0, 0, 0, 7200, 0, 0, 7200, 0}, {}},
    {L"case and blanks", L"=  istime#2024/02/29 10:00:00|=IETIME \t#  2024/2/29   10:5: 0",
     {86400, 0, 86100, 300, 300, 86100, 0, 0, 0, 0, 0, 0, 0, 0}, {{0, 300}}},
    {L"no dates", L"=Dstime # 2024/13/29 10:00:00|=Detime # 2024/13/29 11:00:00|"
     L"=Mstime # 2024/02/00 10:00:00|=Metime # 2024/02/29 99:00:00",
     {86400, 0, 86400, 0, 0, 86400, 0, 0, 0, 0, 0, 0, 0, 0}, {}},
    {L"no numbers", L"=Hstime|Hetime 11:00:00|Qstime 11:00:00|=Qetime # -|=Sdtime # 2024-02-29|SUptme 12:00:00",
     {86400, 0, 86400, 0, 0, 86400, 0, 0, 0, 0, 0, 0, 0, 0}, {}},
    {L"fields not reached are zero", L"=Dstime # 2024/02/29 10|=Detime # 2024/02/29 10:30x",
     {86400, 0, 84600, 1800, 0, 84600, 1800, 0, 0, 0, 0, 0, 0, 0}, {}},
    {L"a damaged idle start", L"=Istime # x|Ietime 10:00:00",
     {86400, 0, 86400, 0, 0, 86400, 0, 0, 0, 0, 0, 0, 0, 0}, {{0, 0}}},
    {L"a damaged length", L"Sbtime 13:00:00|=Duratn # -5|Setime 14:00:00|=Duratn # 99999999999",
     {86400, 0, 82800, 3600, 0, 82800, 0, 0, 3600, 0, 0, 0, 0, 3600}, {}},
};
// clang-format on

TEST(EventWalkTest, DaysWorkedByHand)
{
    for (const Day& day : kDays) {
        SCOPED_TRACE(std::string(day.name, day.name + std::wcslen(day.name)));
        DayReport report;
        ASSERT_TRUE(WalkDay(EventLines(day.lines), day.now, report));
        const auto actual = std::bit_cast<std::array<std::int64_t, 14>>(report.durations);
        EXPECT_EQ(actual, (std::bit_cast<std::array<std::int64_t, 14>>(day.durations)));
        IdleHistogram histogram;
        for (const Period& period : day.idlePeriods) {
            histogram.seconds[period.bucket] += period.seconds;
            histogram.totalSeconds += period.seconds;
            ++histogram.counts[period.bucket];
        }
        EXPECT_EQ(report.histogram.seconds, histogram.seconds);
        EXPECT_EQ(report.histogram.totalSeconds, histogram.totalSeconds);
        EXPECT_EQ(report.histogram.counts, histogram.counts);
        EXPECT_EQ(report.powerConsumed, day.consumed);
        EXPECT_EQ(report.powerSaved, day.saved);
    }
}

TEST(EventWalkTest, FailureLeavesNothing)
{
    DayReport report;
    ASSERT_TRUE(WalkDay(EventLines(L"Istime 10:00:00|Ietime 11:00:00"), kLater, report));
    EXPECT_FALSE(WalkDay(EventLines(L"=failure|Istime 10:00:00"), kLater, report));
    EXPECT_EQ(report.durations, DayDurations());
    EXPECT_EQ(report.histogram, IdleHistogram());
    EXPECT_TRUE(WalkDay(EventLines(L"=Failure of the disk"), kLater, report));
    EXPECT_EQ(EventPath(L"<vltp><response><status>Failure</status></response></vltp>"), L"//response/*");
    EXPECT_EQ(EventPath(L"<vltp><details/></vltp>"), L"//details/*");
}

TEST(EventWalkTest, EachIdlePeriodIsInItsBucket)
{
    IdleHistogram histogram;
    for (const std::int64_t limit : {300, 600, 1800, 3600, 7200, 14400}) {
        histogram.Enter(limit);
        histogram.Enter(limit + 1);
    }
    EXPECT_EQ(histogram.counts, (std::array<std::int32_t, 7>{1, 2, 2, 2, 2, 2, 1}));
    EXPECT_EQ(histogram.seconds, (std::array<std::int64_t, 7>{300, 901, 2401, 5401, 10801, 21601, 14401}));
}

TEST(EventLinesTest, CutsLinesAndCharacters)
{
    const auto lines = MakeEventLines(std::vector<std::wstring>(4000, std::wstring(100, L'x')));
    EXPECT_EQ(lines.size(), 3010U);
    EXPECT_EQ(lines.back().view(), std::wstring(60, L'x'));
}

TEST(EventLinesTest, PowerFigures)
{
    const struct {
        const wchar_t* line;
        float figure;
    } kCases[] = {
        {L"Pwrcon # 0.8125", 0.8125F},
        {L"Pwrcon#.5kWh", 0.5F},
        {L"Pwrcon # +2.", 2},
        {L"Pwrcon # -1.5e1", -15},
        {L"Pwrcon # 1e999", 3.40282347e38F}, // the largest there is
        {L"Pwrcon # -1e-999", 0},
        {L"Pwrcon # nan", 0},
        {L"Pwrcon # +-1", 0},
        {L"Pwrcon 5", 0},
        {L"Pwrconx # 5", 0},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(ScanPowerLine(row.line).kilowattHours, row.figure) << row.line;
}

// Lines of any code at any time, some of them damaged, drawn from a pool.
std::vector<EventLine> RandomLines(std::mt19937& random)
{
    constexpr const wchar_t* kCodes[] = {L"Istime", L"Ietime", L"Dstime", L"Detime", L"Mstime", L"Metime", L"Qstime",
        L"Qetime", L"Sbtime", L"Setime", L"Duratn", L"Hstime", L"Hetime", L"Qhtime", L"QHetme", L"Qptime", L"QUptme",
        L"QAgtme", L"Sdtime", L"SUptme", L"Duratn", L"Xxtime"};
    std::vector<std::wstring> texts;
    for (int i = 0; i < 2000; ++i) {
        const auto number = [&random](unsigned below) { return std::to_wstring(random() % below); };
        std::wstring text = kCodes[random() % std::size(kCodes)];
        if (text == L"Duratn")
            text += L" # " + number(200);
        else
            text += L" # 2024/05/" + number(40) + L" " + number(25) + L":" + number(61) + L":" + number(60);
        texts.push_back(text);
    }
    return MakeEventLines(texts);
}

TEST(EventWalkTest, WhatHoldsForEveryDay)
{
    std::mt19937 random(20240506);
    const std::vector<EventLine> pool = RandomLines(random);
    std::vector<EventLine> lines;
    for (int i = 0; i < 100'000; ++i) {
        lines.clear();
        for (auto count = random() % 10; count > 0; --count)
            lines.push_back(pool[random() % pool.size()]);
        const LocalTime now = {2024, 5, static_cast<int>(random() % 31 + 1), static_cast<int>(random() % 24), 30, 15};
        const bool isToday
            = !lines.empty() && ScanTimeLine(lines[0]).stamp.day == now.day && ScanTimeLine(lines[0]).stamp.month == 5;
        DayReport report;
        ASSERT_TRUE(WalkDay(lines, now, report));
        const DayDurations& d = report.durations;
        const IdleHistogram& h = report.histogram;
        ASSERT_EQ(d.poweredOn + d.offInAll, isToday ? now.hour * 3600 + 1815 : 86400);
        ASSERT_EQ(d.active, d.activeAgain);
        ASSERT_EQ(d.poweredOn, d.active + d.idleWithoutSavings + d.standby + d.monitorOff + d.dim);
        ASSERT_EQ(d.offInAll, d.hibernate + d.off);
        ASSERT_TRUE(d.idleWithoutSavings >= 0 && d.dim >= 0 && d.monitorOff >= 0);
        ASSERT_TRUE(d.timedStandby >= 0 && d.timedStandby <= d.standby);
        ASSERT_TRUE(d.hibernateUponIdle >= 0 && d.hibernateUponIdle <= d.hibernate);
        ASSERT_TRUE(d.shutdown >= 0 && d.shutdown <= d.off);
        ASSERT_EQ(std::accumulate(h.seconds.begin(), h.seconds.end(), std::int64_t{0}), h.totalSeconds);
    }
}

} // namespace
} // namespace voltaro
