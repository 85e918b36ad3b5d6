#include "savings/day_texts.h"
#include "savings/decimal.h"
#include "savings/profile_record.h"
#include "savings/report.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

// Powered on 8 h, of it dim 30 min, monitor off 90 min, timed standby 45 min; shutdown 1 h, hibernate upon idle 2 h.
// clang-format off
constexpr DayDurations kDay = {.poweredOn = 28800, .offTotal = 10800, .idle = 12600, .dim = 1800, .monitorOff = 5400,
    .shutdown = 3600, .hibernateUponIdle = 7200, .timedStandby = 2700};
// clang-format on

// Worked by hand. Would have been on: 28800 + 3600 + 7200 = 39600 s. Full on: 0.05 x 90 + 0.15 x 67.5 + 0.8 x 45
// = 50.625 W and the monitor. CRT, in watt seconds: without savings 18900 x 112.8 + 1800 x (45 + 0.97 x 67.8)
// = 2331298.8; drawn 1800 x (45 + 0.95 x 67.8) + 5400 x 48.8 + 2700 x 7 + 10800 x 4.9 = 532278; 1799020.8 / 3.6e6
// = 0.499728 kWh saved of 39600 x 118.425 / 3.6e6 = 1.302675. The others alike; Inbuilt drew 7200 x 0.97 x 45
// + 2700 x 3.2 + 10800 x 1.1 = 334800, Branded 7200 x 45 + 8640 + 11880 = 344520, of 20700 x 45 = 931500. What the
// agent tells replaces what is computed.
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
        EXPECT_NEAR(f.wouldHaveBeen, row.wouldHaveBeen, 1e-6);
        EXPECT_NEAR(f.nowIs, row.nowIs, 1e-6);
        EXPECT_NEAR(f.saved, row.saved, 1e-6);
        EXPECT_NEAR(f.percentage, row.percentage, 1e-4);
        EXPECT_NEAR(f.carbonDioxide, row.carbonDioxide, 1e-3);
    }
}

TEST(ReportTest, Texts)
{
    EXPECT_EQ(HoursMinutesText(-7200) + L", " + HoursMinutesText(119), L"0 Hrs : 0 Mins, 0 Hrs : 1 Min");
    EXPECT_EQ(HoursMinutesText(86399), L"23 Hrs : 59 Mins");
    const PowerProfile thirtyWatts = ReadProfile({L"Inbuilt", L"", L"", L"30", L"30", L"", L""});
    EXPECT_EQ(EnergyText(IdleEnergy(660, thirtyWatts)), L"0.006 kWh"); // 0.0055: divided by 3600 first it prints 0.005
    EXPECT_EQ(EnergyText(-0.0004), L"0.000 kWh");
    EXPECT_EQ(EnergyText(-0.0006), L"-0.001 kWh");
    EXPECT_EQ(PercentageText(-0.0), L"0.000 %");
    EXPECT_EQ(RequestDate({2024, 2, 9}), L"02092024");
    EXPECT_EQ(HeadingDate({2024, 2, 9}), L"February 09, 2024");
    EXPECT_EQ(HeadingDate({2024, 13, 9}), L" 09, 2024");
}

TEST(MonitorTableTest, RowsAndWattTexts)
{
    EXPECT_TRUE(MonitorsOfType(L"lcd").size() == 16 && MonitorsOfType(L"Branded").empty());
    EXPECT_TRUE(!FindMonitor(L"LED", L"17.00") && MonitorKindOf(L"") == MonitorKind::Lcd);
    for (const wchar_t* text : {L"0", L"0.00", L"21.23", L"999.99", L"999.990", L"0000999.9", L"7"})
        EXPECT_EQ(CheckWatts(text), WattCheck::Accepted) << text;
    for (const wchar_t* text : {L"", L".", L"12.", L".5", L"-1", L"+1", L"1e2", L"1,5", L" 1", L"1.2.3", L"abc"})
        EXPECT_EQ(CheckWatts(text), WattCheck::NotANumber) << text;
    for (const wchar_t* text : {L"1000", L"999.991", L"999.999", L"99999999999999999999999"})
        EXPECT_EQ(CheckWatts(text), WattCheck::TooHigh) << text;
}

TEST(ProfileRecordTest, TypedPowersGetTwoDecimals)
{
    // clang-format off
    const wchar_t* const kRows[][3] = { // read, entered, sent
        {L"0.85", L"1", L"1.00"}, {L"0.85", L"007.5", L"7.50"}, {L"0.8", L"0.8", L"0.8"}, // as read
        {L"0.85", L"18.9", L"18.9"}, // as in the table
        {L"0.85", L"0000000000000000000000000000000000000000000000000000000000000000000005", L"5.00"}};
    // clang-format on
    for (const auto& [asRead, typed, expected] : kRows) {
        const PowerConsumptionData read{L"", L"LED", L"24.00", asRead, {}, {}, {}, {}, {}, {}, {}, {}, {}};
        PowerConsumptionData sent = read;
        sent.monitorOnPower = typed;
        sent = RecordToSend(read, sent, false);
        EXPECT_EQ(sent.monitorOnPower.view(), expected);
        EXPECT_EQ(sent.manualSetFlag == L"Yes", std::wstring_view(asRead) != typed);
    }
    EXPECT_EQ(RecordToSend({}, WithMonitor({}), false), PowerConsumptionData{}) << "the default monitor is not stored";
    EXPECT_TRUE(RecordToSend({}, {}, true).manualSetFlag == L"Yes") << "an entry is manual even unchanged";
    EXPECT_EQ(ProfileOf({}).monitorOn, 21.23F) << "the default monitor";
}

} // namespace
} // namespace voltaro
