#include "base/timing.h"
#include "console/agent_lost.h"
#include "shell/connection.h"
#include "shell/main_commands.h"
#include "shell/main_menus.h"
#include "shell/main_window.h"
#include "shell/workers.h"
#include "support/box_script.h"
#include "support/program.h"
#include "support/test_window.h"
#include "ui/controls.h"
#include "ui/list_view.h"
#include "ui/menus.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

namespace voltaro {
namespace {

using simulator::FaultKind;

const std::vector<std::wstring> kLoadOrder
    = {L"GetSystemstatus", L"GetSystemDetails", L"GetBatteryInfo", L"GetPowerSchemes", L"GetPolicies",
        L"GetCurrentpowersettings", L"GetCurrenthostsettings", L"GetCurrentProxySettings", L"GetActivationstatus",
        L"GetVoltaroSavingsTillDate", L"PauseStatus", L"GetCurrentPowerConsumptionData", L"GetPatchDetails"};

std::set<int> GreyedItems()
{
    constexpr int kItems[] = {kReinitialize, kResume, kMenuExitToTray, kClose, kSystemInfo, kBatteryInfo,
        kSavingsReport, kPowerScheme, kPorts, kProxy, kSecurity, kJobScheduler, kSnooze, kHelp, kAbout, kUpdate,
        kWebSite, kRefresh, kActivate, kPauseOneHour, kPauseFiveHours};
    std::set<int> greyed;
    for (const int item : kItems) {
        if (!IsItemEnabled(MainMenuBar(), static_cast<unsigned>(item)))
            greyed.insert(item);
    }
    return greyed;
}

TEST(ConnectionTest, LoadsEverythingInOrder)
{
    ConsoleProgram program;
    program.Load();
    EXPECT_EQ(program.TakeOperations(), kLoadOrder);
    const HWND main = WindowOf(WindowId::Main);
    EXPECT_TRUE(state.connected);
    EXPECT_EQ(SelectedText(main, kSchemeList), L"Balanced");
    EXPECT_FALSE(IsWindowEnabled(ControlOf(main, kSchemeList)));
    EXPECT_EQ(RowCount(ControlOf(main, kSavingsList)), 5);
    EXPECT_EQ(CellOf(ControlOf(main, kSavingsList), 1, 0), L"Power saved");
    EXPECT_EQ(GreyedItems(), (std::set<int>{kResume, kActivate})); // the licence is active
    EXPECT_EQ(HostLineText().substr(0, 10), L"Hostname :");
}

TEST(ConnectionTest, TriesThreeTimesAndGreysWhatNeedsAnAgent)
{
    BoxScript boxes{{L"Connection Issue", L"           To check for services (in Windows) go to Start->Run.. , type"}};
    ConsoleProgram program;
    program.Agent().SetFault(L"GetSystemstatus", {FaultKind::CloseAtOnce, {}});
    program.Load();
    EXPECT_EQ(program.TakeOperations(), std::vector<std::wstring>(3, L"GetSystemstatus"));
    EXPECT_FALSE(state.connected);
    EXPECT_EQ(HostLineText(), L"Not initialized.");
    EXPECT_FALSE(IsWindowEnabled(ControlOf(WindowOf(WindowId::Main), kStandby)));
    const std::set<int> greyed = GreyedItems();
    for (const int usable : {kReinitialize, kMenuExitToTray, kClose, kHelp, kAbout, kWebSite})
        EXPECT_EQ(greyed.count(usable), 0U) << usable;
    EXPECT_EQ(greyed.size(), 15U);
}

TEST(ConnectionTest, FailsSilentlyWithoutSystemDetails)
{
    BoxScript boxes{};
    ConsoleProgram program;
    program.Agent().SetFault(L"GetSystemDetails", {FaultKind::CloseMidFrame, {}});
    program.Load();
    EXPECT_EQ(program.TakeOperations(), (std::vector<std::wstring>{L"GetSystemstatus", L"GetSystemDetails"}));
    EXPECT_FALSE(state.connected);
    EXPECT_TRUE(
        IsWindowVisible(ControlOf(WindowOf(WindowId::Main), kStandby)) || !IsWindowVisible(WindowOf(WindowId::Main)));
}

TEST(ConnectionTest, GoesOnWithoutSchemes)
{
    BoxScript boxes{{L"Failed to communicate with Voltaro Agent", L"Voltaro Agent not responding"}};
    ConsoleProgram program;
    program.Agent().SetFault(L"GetPowerSchemes", {FaultKind::CloseAtOnce, {}});
    program.Load();
    EXPECT_EQ(program.TakeOperations(), kLoadOrder);
    EXPECT_TRUE(state.connected);
}

TEST(ConnectionTest, OneLossOneBox)
{
    ConsoleProgram program;
    program.Load();
    BoxScript boxes{{L"Connection Issue", L"\n         To reconnect (in Voltaro Console Menu)"}};
    OnAgentLost();
    OnAgentLost();
    boxes.ExpectAllSeen();
    EXPECT_EQ(GreyedItems(),
        (std::set<int>{
            kResume, kSystemInfo, kPowerScheme, kJobScheduler, kSnooze, kSecurity, kSavingsReport, kActivate, kPorts}));
    EXPECT_EQ(RowCount(ControlOf(WindowOf(WindowId::Main), kSavingsList)), 0);
    program.Command(WindowId::Main, kReinitialize);
    EXPECT_TRUE(state.connected);
    EXPECT_EQ(GreyedItems(), (std::set<int>{kResume, kActivate})); // the licence is active
}

TEST(ConnectionTest, RefreshReadsInItsOrderAndTellsOfADeadAgentOnce)
{
    ConsoleProgram program;
    program.Load();
    static_cast<void>(program.TakeOperations());
    program.Command(WindowId::Main, kRefresh);
    EXPECT_EQ(program.TakeOperations(),
        (std::vector<std::wstring>{L"GetPowerSchemes", L"GetPolicies", L"GetCurrentpowersettings", L"GetBatteryInfo",
            L"GetActivationstatus", L"PauseStatus"}));
    program.Agent().Stop();
    BoxScript boxes{{L"Failed to communicate with Voltaro Agent", {}}};
    program.Command(WindowId::Main, kRefresh);
}

// The poller asks for the pause state, for the battery where there is one, and gives up after three failed tries.
TEST(ConnectionTest, PollsUntilTheAgentIsLost)
{
    for (const wchar_t* scenario : {L"battery", L"desktop"}) {
        ConsoleProgram program(*simulator::FindScenario(scenario));
        program.Load();
        static_cast<void>(program.TakeOperations());
        timing.pollerPeriod = timing.pollerFirstRetry = timing.pollerSecondRetry = 50;
        ASSERT_TRUE(StartWorkers());
        const auto pumpUntil = [](const std::function<bool()>& done) {
            for (const ULONGLONG end = GetTickCount64() + 20'000; !done() && GetTickCount64() < end; Sleep(5))
                Pump();
        };
        pumpUntil([&] { return program.Agent().Requests().size() >= 2; });
        const std::vector<std::wstring> polled = program.TakeOperations();
        EXPECT_EQ(polled.at(0), L"PauseStatus");
        EXPECT_EQ(polled.at(1), std::wstring(scenario) == L"battery" ? L"GetBatteryInfo" : L"PauseStatus");

        BoxScript boxes{{L"Connection Issue", {}}};
        program.Agent().SetFault(L"*", {FaultKind::CloseAtOnce, {}});
        pumpUntil([] { return !state.connected; });
        Pump();
        StopWorkers(StopOrder::MainWindowDestroyed);
    }
}

TEST(ConnectionTest, WithoutABatteryItsWindowIsGrey)
{
    ConsoleProgram program(*simulator::FindScenario(L"desktop"));
    program.Load();
    EXPECT_EQ(GreyedItems(), (std::set<int>{kResume, kBatteryInfo, kActivate}));
}

} // namespace
} // namespace voltaro
