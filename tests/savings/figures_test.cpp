#include "savings/decimal.h"
#include "savings/report.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

// Powered on 8 h, of it dim 30 min, monitor off 90 min, timed standby 45 min; shutdown 1 h, hibernate upon idle 2 h.
DayReport Day()
{
    DayReport day;
    day.durations = {.poweredOn = 28800,
        .offInAll = 10800,
        .idle = 12600,
        .dim = 1800,
        .monitorOff = 5400,
        .shutdown = 3600,
        .hibernateUponIdle = 7200,
        .timedStandby = 2700};
    return day;
}

PowerProfile Profile(std::wstring_view type, std::wstring_view on, std::wstring_view off)
{
    return ReadProfile({type, on, off, L"90.00", L"45.00", L"3.20", L"1.10"});
}

// Worked by hand. Would have been on: 28800 + 3600 + 7200 = 39600 s. Full on: 0.05 x 90 + 0.15 x 67.5 + 0.8 x 45
// = 50.625 W and the monitor. CRT, in watt seconds: without savings 18900 x 112.8 + 1800 x (45 + 0.97 x 67.8)
// = 2331298.8; drawn 1800 x (45 + 0.95 x 67.8) + 5400 x 48.8 + 2700 x 7 + 10800 x 4.9 = 532278; 1799020.8 / 3.6e6
// = 0.499728 kWh saved of 39600 x 118.425 / 3.6e6 = 1.302675. The others alike; Inbuilt drew 7200 x 0.97 x 45
// + 2700 x 3.2 + 10800 x 1.1 = 334800, Branded 7200 x 45 + 8640 + 11880 = 344520, of 20700 x 45 = 931500.
TEST(SavingsFiguresTest, EachMonitorKind)
{
    const struct {
        const wchar_t* type;
        const wchar_t* on;
        const wchar_t* off;
        double wouldHaveBeen, nowIs, saved, percentage, carbonDioxide;
    } kCases[] = {
        {L"CRT", L"67.80", L"3.80", 1.302675, 0.802947, 0.499728, 38.361679, 349.8096},
        {L"LCD", L"21.23", L"0.49", 0.790405, 0.518470, 0.271935, 34.404514, 190.3545},
        {L"LED", L"21.20", L"0.65", 0.790075, 0.5192435, 0.2708315, 34.279214, 189.58205},
        {L"Inbuilt", L"0.00", L"0.00", 0.556875, 0.391125, 0.165750, 29.764310, 116.025},
        {L"branded", L"30.00", L"5.00", 0.556875, 0.393825, 0.163050, 29.279461, 114.135}, // its monitor counts for 0
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.type);
        const SavingsFigures f = ComputeSavings(Day(), Profile(row.type, row.on, row.off));
        EXPECT_EQ(f.wouldHaveBeenOn, 39600);
        EXPECT_EQ(f.savedFor, 20700);
        EXPECT_NEAR(f.wouldHaveBeen, row.wouldHaveBeen, 1e-6);
        EXPECT_NEAR(f.nowIs, row.nowIs, 1e-6);
        EXPECT_NEAR(f.saved, row.saved, 1e-6);
        EXPECT_NEAR(f.percentage, row.percentage, 1e-4);
        EXPECT_NEAR(f.carbonDioxide, row.carbonDioxide, 1e-3);
    }
}

TEST(SavingsFiguresTest, TheAgentsFiguresComeFirst)
{
    const struct {
        float consumed, saved;
        double wouldHaveBeen, nowIs, savedShown, percentage;
    } kCases[] = {
        {1.5F, 0.5F, 2.0, 1.5, 0.5, 25.0}, {1.5F, 0, 1.771935, 1.5, 0.271935, 15.346782},
        {0, 0.25F, 0.768470, 0.518470, 0.25, 32.532174}, {1.5F, -1.5F, 0, 1.5, -1.5, 0}, // no share of nothing
    };
    for (const auto& row : kCases) {
        DayReport day = Day();
        day.powerConsumed = row.consumed;
        day.powerSaved = row.saved;
        const SavingsFigures f = ComputeSavings(day, Profile(L"LCD", L"21.23", L"0.49"));
        EXPECT_NEAR(f.wouldHaveBeen, row.wouldHaveBeen, 1e-6);
        EXPECT_NEAR(f.nowIs, row.nowIs, 1e-6);
        EXPECT_NEAR(f.saved, row.savedShown, 1e-6);
        EXPECT_NEAR(f.percentage, row.percentage, 1e-4);
        EXPECT_NEAR(f.carbonDioxide, row.savedShown * 700, 1e-3);
    }
}

TEST(ReportTest, Texts)
{
    const struct {
        std::int64_t seconds;
        const wchar_t* text;
    } kLengths[] = {
        {0, L"0 Hrs : 0 Mins"},
        {119, L"0 Hrs : 1 Min"},
        {3600, L"1 Hr  : 0 Mins"},
        {3660, L"1 Hr  : 1 Min"},
        {86399, L"23 Hrs : 59 Mins"},
        {-7200, L"0 Hrs : 0 Mins"},
    };
    for (const auto& row : kLengths)
        EXPECT_EQ(HoursMinutesText(row.seconds), row.text);
    EXPECT_EQ(EnergyText(-0.0004), L"0.000 kWh");
    EXPECT_EQ(EnergyText(-0.0006), L"-0.001 kWh");
    EXPECT_EQ(PercentageText(-0.0), L"0.000 %");
    EXPECT_EQ(GramsText(700), L"700.00 Grams");
    EXPECT_EQ(RequestDate({2024, 2, 9}), L"02092024");
    EXPECT_EQ(HeadingDate({2024, 2, 9}), L"February 09, 2024");
    EXPECT_EQ(HeadingDate({2024, 13, 9}), L" 09, 2024");
    EXPECT_EQ(PickerDate({2024, 2, 9}), L"9/02/2024");
}

TEST(ReportTest, RowsOfADay)
{
    DayReport day = Day();
    day.histogram.Enter(240);
    day.histogram.Enter(7200);
    const PowerProfile profile = Profile(L"LCD", L"21.23", L"0.49");
    const SavingsFigures figures = ComputeSavings(day, profile);
    EXPECT_EQ(EstimateRows(day.durations, figures),
        (ReportRows{
            {L"Without Voltaro (would have been)", L"11 Hrs : 0 Mins", L"0.790 kWh"},
            {L"Due to Voltaro (now is)", L"8 Hrs : 0 Mins", L"0.518 kWh"},
            {L"Saved by Voltaro", L"5 Hrs : 45 Mins", L"0.272 kWh"},
            {L"Saved by Voltaro (in percentage)", L"34.405 %", L""},
            {L"CO2 emissions saved", L"190.35 Grams", L""},
        }));
    const ReportRows totals = TotalRows(day.durations, figures);
    EXPECT_EQ(totals[0], (ReportRow{L"System's Total Power consumption", L"0.518 kWh"}));
    EXPECT_EQ(totals[1], (ReportRow{L"System was IDLE for :", L"3 Hrs : 30 Mins"}));
    EXPECT_EQ(totals[3], (ReportRow{L"System was powered OFF by Voltaro for :", L"3 Hrs : 0 Mins"}));
    EXPECT_EQ(EmissionRows(figures)[2], (ReportRow{L"CO2 emissions saved", L"190.35 Grams"}));

    // 66.23 W while idle: 240 s are 0.0044, 7200 s are 0.13246 kWh.
    const ReportRows idle = IdlePatternRows(day.histogram, profile);
    ASSERT_EQ(idle.size(), 8U);
    EXPECT_EQ(idle[0], (ReportRow{L"0 - 5 mins", L"1", L"0 Hrs : 4 Mins", L"0.004 kWh"}));
    EXPECT_EQ(idle[4], (ReportRow{L"1 hr - 2 hrs", L"1", L"2 Hrs : 0 Mins", L"0.132 kWh"}));
    EXPECT_EQ(idle[6], (ReportRow{L"> 4 hrs", L"0", L"0 Hrs : 0 Mins", L"0.000 kWh"}));
    EXPECT_EQ(idle[7], (ReportRow{L"Total Idle hrs", L"2", L"2 Hrs : 4 Mins", L"0.137 kWh"}));
}

TEST(MonitorTableTest, RowsByTypeAndSize)
{
    EXPECT_EQ(MonitorsOfType(L"CRT").size(), 5U);
    EXPECT_EQ(MonitorsOfType(L"lcd").size(), 16U);
    EXPECT_EQ(MonitorsOfType(L"LED").size(), 8U);
    EXPECT_TRUE(MonitorsOfType(L"Branded").empty());
    const MonitorRow* fresh = FindMonitor(kDefaultMonitor.type, kDefaultMonitor.size);
    ASSERT_NE(fresh, nullptr);
    EXPECT_EQ(fresh->onWatts, kDefaultMonitor.onWatts);
    EXPECT_EQ(fresh->offWatts, kDefaultMonitor.offWatts);
    EXPECT_EQ(FindMonitor(L"LED", L"24.00")->onWatts, L"18.9");
    EXPECT_EQ(FindMonitor(L"LED", L"17.00"), nullptr);
    EXPECT_EQ(MonitorKindOf(L"LED"), MonitorKind::Led);
    EXPECT_EQ(MonitorKindOf(L""), MonitorKind::Lcd);
}

TEST(MonitorTableTest, WattTexts)
{
    for (const wchar_t* text : {L"0", L"0.00", L"21.23", L"999.99", L"999.990", L"0000999.9", L"7"})
        EXPECT_EQ(CheckWatts(text), WattCheck::Accepted) << text;
    for (const wchar_t* text : {L"", L".", L"12.", L".5", L"-1", L"+1", L"1e2", L"1,5", L" 1", L"1.2.3", L"abc"})
        EXPECT_EQ(CheckWatts(text), WattCheck::NotANumber) << text;
    for (const wchar_t* text : {L"1000", L"999.991", L"999.999", L"99999999999999999999999"})
        EXPECT_EQ(CheckWatts(text), WattCheck::TooHigh) << text;
}

} // namespace
} // namespace voltaro
