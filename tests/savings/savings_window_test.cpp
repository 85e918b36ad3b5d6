#include "savings/savings_window.h"

#include "savings/scripted_day.h"
#include "shell/main_commands.h"
#include "support/box_script.h"
#include "support/program.h"
#include "support/test_window.h"
#include "ui/controls.h"
#include "ui/list_view.h"
#include "ui/liveness.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

using simulator::Fault;
using simulator::FaultKind;

constexpr int kPicker = 101;
const std::vector<std::wstring> kOneDay = {L"GetActivationstatus", L"GetVLTEvents"};

const wchar_t* const kTotals = L"Description\tValue\r\n"
                               L"System's Total Power consumption\t0.745 kWh\r\n"
                               L"System was IDLE for :\t2 Hrs : 0 Mins\r\n"
                               L"System (without Voltaro) would have been powered ON for :\t16 Hrs : 0 Mins\r\n"
                               L"System was powered OFF by Voltaro for :\t10 Hrs : 0 Mins\r\n"
                               L"System was powered ON for :\t14 Hrs : 0 Mins\r\n"
                               L"Voltaro saved power consumption for :\t3 Hrs : 30 Mins\r\n"
                               L"System's (with Voltaro) actual power consumption is :\t0.745 kWh\r\n";

// The five lists, and what they say of the scripted day.
const struct {
    WindowId page;
    int list;
    const wchar_t* text;
} kLists[] = {
    {WindowId::SavingsTotals, 101, kTotals},
    {WindowId::SavingsTotals, 102,
        L"Description\tValue\r\nSaved by Voltaro\t0.115 kWh\r\nSaved by Voltaro (in percentage)\t13.372 %\r\n"
        L"CO2 emissions saved\t80.50 Grams\r\n"},
    {WindowId::SavingsEstimates, 101,
        L"Description\tValue\tPower Consumption\r\n"
        L"Without Voltaro (would have been)\t16 Hrs : 0 Mins\t0.860 kWh\r\n"
        L"Due to Voltaro (now is)\t14 Hrs : 0 Mins\t0.745 kWh\r\nSaved by Voltaro\t3 Hrs : 30 Mins\t0.115 kWh\r\n"
        L"Saved by Voltaro (in percentage)\t13.372 %\t\r\nCO2 emissions saved\t80.50 Grams\t\r\n"},
    {WindowId::SavingsEstimates, 102,
        L"Idle Duration Category\tOccurrences\tTotal Duration\tPower Consumption\r\n"
        L"0 - 5 mins\t0\t0 Hrs : 0 Mins\t0.000 kWh\r\n5 mins - 10 mins\t0\t0 Hrs : 0 Mins\t0.000 kWh\r\n"
        L"10 mins - 30 mins\t0\t0 Hrs : 0 Mins\t0.000 kWh\r\n30 mins - 1 hr\t0\t0 Hrs : 0 Mins\t0.000 kWh\r\n"
        L"1 hr - 2 hrs\t1\t2 Hrs : 0 Mins\t0.100 kWh\r\n2 hrs - 4 hrs\t0\t0 Hrs : 0 Mins\t0.000 kWh\r\n"
        L"> 4 hrs\t0\t0 Hrs : 0 Mins\t0.000 kWh\r\nTotal Idle hrs\t1\t2 Hrs : 0 Mins\t0.100 kWh\r\n"},
    {WindowId::SavingsGraph, 101,
        L"System Duration\tCumulative Value\r\nIDLE\t2 Hrs : 0 Mins\r\nACTIVE\t12 Hrs : 0 Mins\r\n"
        L"IDLE without Power Savings\t0 Hrs : 30 Mins\r\nDIM (Upon IDLE)\t0 Hrs : 30 Mins\r\n"
        L"MONITOR OFF (Upon IDLE)\t1 Hr  : 0 Mins\r\nSTANDBY (Upon IDLE)\t0 Hrs : 0 Mins\r\n"
        L"STANDBY (Done Manually)\t0 Hrs : 0 Mins\r\nHIBERNATE (Upon IDLE)\t0 Hrs : 0 Mins\r\n"
        L"SHUTDOWN (Upon IDLE)\t2 Hrs : 0 Mins\r\nON\t14 Hrs : 0 Mins\r\nOFF  (Done by Voltaro)\t10 Hrs : 0 Mins\r\n"},
};

bool IsListShown(HWND list)
{
    return (GetWindowLongW(list, GWL_STYLE) & WS_VISIBLE) != 0; // its page may be turned away
}

class SavingsWindowTest : public testing::Test {
protected:
    SavingsWindowTest()
    {
        m_program.Load();
        state.consumption = RoundProfile();
        m_program.Agent().ScriptReply(L"GetVLTEvents", ScriptedDay());
        static_cast<void>(m_program.TakeOperations());
        m_program.Command(WindowId::Main, kSavingsReport);
    }

    [[nodiscard]] HWND Picker() const { return ControlOf(WindowOf(WindowId::Savings), kPicker); }

    void SetDay(WORD year, WORD month, WORD day)
    {
        SYSTEMTIME time{};
        time.wYear = year;
        time.wMonth = month;
        time.wDay = day;
        DateTime_SetSystemtime(Picker(), GDT_VALID, &time);
    }

    void Choose(WORD year, WORD month, WORD day)
    {
        SetDay(year, month, day);
        m_program.Command(WindowId::Savings, IDOK);
    }

    void NotifyPicker(UINT code)
    {
        const NMHDR header{Picker(), kPicker, code};
        SendMessageW(WindowOf(WindowId::Savings), WM_NOTIFY, kPicker, reinterpret_cast<LPARAM>(&header));
    }

    void ExpectLists(bool shown)
    {
        for (const auto& row : kLists) {
            const HWND list = ControlOf(WindowOf(row.page), row.list);
            EXPECT_EQ(IsListShown(list), shown);
            if (shown) {
                EXPECT_EQ(ListText(list, false), row.text);
            }
        }
    }

    ConsoleProgram m_program;
};

TEST_F(SavingsWindowTest, OpeningAsksNothingAndAChosenDayFillsThePages)
{
    EXPECT_TRUE(IsWindowVisible(WindowOf(WindowId::Savings)));
    EXPECT_TRUE(m_program.TakeOperations().empty());
    ExpectLists(false);
    Choose(2024, 2, 29);
    EXPECT_NE(m_program.LastRequest(L"GetVLTEvents").find(L"<fordate>02292024</fordate>"), std::wstring::npos);
    EXPECT_EQ(m_program.TakeOperations(), kOneDay);
    ExpectLists(true);

    // Closed and opened again: the day and its report are there, and the agent is not asked.
    m_program.Command(WindowId::Savings, IDCANCEL);
    EXPECT_FALSE(IsWindowVisible(WindowOf(WindowId::Savings)));
    SetDay(2024, 1, 1);
    m_program.Command(WindowId::Main, kSavingsReport);
    SYSTEMTIME time{};
    DateTime_GetSystemtime(Picker(), &time);
    EXPECT_EQ(time.wMonth * 100 + time.wDay, 229);
    EXPECT_TRUE(m_program.TakeOperations().empty());
    ExpectLists(true);
}

TEST_F(SavingsWindowTest, ADayCountsOnceItRests)
{
    constexpr unsigned kLongEnough = 800;
    SetDay(2024, 2, 28);
    NotifyPicker(DTN_DATETIMECHANGE);
    SetDay(2024, 2, 29);
    NotifyPicker(DTN_DATETIMECHANGE);
    Pump();
    EXPECT_TRUE(m_program.TakeOperations().empty());
    WaitAlive(kLongEnough);
    Pump();
    EXPECT_EQ(m_program.TakeOperations(), kOneDay);
    NotifyPicker(DTN_CLOSEUP); // the same day again: nothing new
    WaitAlive(kLongEnough);
    Pump();
    EXPECT_TRUE(m_program.TakeOperations().empty());
}

TEST_F(SavingsWindowTest, TheFutureIsRefused)
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    SYSTEMTIME range[2]{};
    EXPECT_EQ(DateTime_GetRange(Picker(), range), static_cast<DWORD>(GDTR_MAX));
    EXPECT_EQ(range[1].wDay, now.wDay);
    SetDay(static_cast<WORD>(now.wYear + 1), 1, 1);
    m_program.Command(WindowId::Savings, IDOK);
    EXPECT_EQ(m_program.LastRequest(L"GetVLTEvents").find(L"0101"), std::wstring::npos);
}

TEST_F(SavingsWindowTest, FailuresAreToldAndEmptyThePages)
{
    const struct {
        Fault fault;
        const wchar_t* caption;
        const wchar_t* text;
        bool listsStay;
    } kRows[] = {
        {{FaultKind::Status, L"Failure"}, L"No data", L"Power savings data not available for date: 5/03/2024", false},
        {{FaultKind::NotWellFormed, {}}, L"Data Error",
            L"May be error in Power savings data logged for date: 5/03/2024 .", false},
        {{FaultKind::Doctype, {}}, L"Data Error", L"5/03/2024 .", false},
        {{FaultKind::Status, L"Not Activated"}, L"Power Savings Report", L"is not activated", true},
        {{FaultKind::CloseAtOnce, {}}, L"Connection Issue", L"", true},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(std::wstring(row.caption));
        Choose(2024, 2, 29);
        ExpectLists(true);
        m_program.Agent().ClearScripts();
        m_program.Agent().SetFault(L"GetVLTEvents", row.fault);
        {
            const BoxScript boxes{{row.caption, row.text}};
            Choose(2024, 3, 5);
        }
        ExpectLists(row.listsStay);
        EXPECT_TRUE(IsWindowEnabled(Picker()));
        m_program.Agent().ClearFaults();
        m_program.Agent().ScriptReply(L"GetVLTEvents", ScriptedDay());
    }
}

TEST_F(SavingsWindowTest, TheGateStandsBeforeTheRequest)
{
    m_program.Agent().SetFault(L"GetActivationstatus", {FaultKind::Status, L"License Expired"});
    const BoxScript boxes{{L"Power Savings Report", L"has expired"}};
    Choose(2024, 2, 29);
    EXPECT_EQ(m_program.TakeOperations(), std::vector<std::wstring>{L"GetActivationstatus"});
    ExpectLists(false);
}

} // namespace
} // namespace voltaro
