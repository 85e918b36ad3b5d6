#include "shell/connection.h"

#include "base/platform_calls.h"
#include "console/agent_lost.h"
#include "console/connection_state.h"
#include "shell/main_menus.h"
#include "shell/main_window.h"
#include "shell/workers.h"
#include "support/program.h"
#include "support/test_window.h"
#include "ui/combo_box.h"
#include "ui/controls.h"
#include "ui/list_view.h"
#include "ui/menus.h"

#include <set>

namespace voltaro {
namespace {

const Operations kLoadOrder
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

TEST(ConnectionTest, LoadsAndRefreshesInOrderAndTellsOfADeadAgentOnce)
{
    ConsoleProgram program;
    program.Load();
    EXPECT_EQ(program.TakeOperations(), kLoadOrder);
    const HWND main = WindowOf(WindowId::Main);
    EXPECT_TRUE(connection.connected);
    EXPECT_EQ(SelectedText(main, kSchemeList), L"Balanced");
    EXPECT_FALSE(IsWindowEnabled(ControlOf(main, kSchemeList)));
    EXPECT_EQ(RowCount(ControlOf(main, kSavingsList)), 5);
    EXPECT_EQ(CellOf(ControlOf(main, kSavingsList), 1, 0), L"Power saved");
    EXPECT_EQ(GreyedItems(), (std::set<int>{kResume}));
    EXPECT_EQ(HostLineText().substr(0, 10), L"Hostname :");
    program.Command(WindowId::Main, kRefresh);
    EXPECT_EQ(program.TakeOperations(),
        (Operations{L"GetPowerSchemes", L"GetPolicies", L"GetCurrentpowersettings", L"GetBatteryInfo",
            L"GetActivationstatus", L"PauseStatus"}));
    program.Agent().Stop();
    const BoxScript boxes{{L"Failed to communicate with Voltaro Agent", {}}};
    program.Command(WindowId::Main, kRefresh);
}

TEST(ConnectionTest, TriesThreeTimesGreysWhatNeedsAnAgentAndGoesOnWithoutSchemes)
{
    ConsoleProgram program;
    // What fails, the box (for the details there is none), and what was asked until then.
    const std::tuple<const wchar_t*, ExpectedBox, Operations> kRows[]
        = {{L"GetSystemstatus",
               {L"Connection Issue", L"           To check for services (in Windows) go to Start->Run.. , type"},
               Operations(3, L"GetSystemstatus")},
            {L"GetSystemDetails", {}, {L"GetSystemstatus", L"GetSystemDetails"}},
            {L"GetPowerSchemes", {L"Failed to communicate with Voltaro Agent", L"Voltaro Agent not responding"},
                kLoadOrder}};
    for (const auto& [operation, box, asked] : kRows) {
        program.Agent().ClearFaults();
        program.Agent().SetFault(operation, {FaultKind::CloseMidFrame, {}});
        const BoxScript boxes{box};
        program.Load();
        EXPECT_EQ(program.TakeOperations(), asked);
        EXPECT_EQ(connection.connected, asked == kLoadOrder);
        if (connection.connected)
            break;
        EXPECT_EQ(HostLineText(), L"Not initialized.");
        EXPECT_FALSE(IsWindowEnabled(ControlOf(WindowOf(WindowId::Main), kStandby)));
        const std::set<int> greyed = GreyedItems();
        for (const int usable : {kReinitialize, kMenuExitToTray, kClose, kHelp, kAbout, kWebSite})
            EXPECT_EQ(greyed.count(usable), 0U) << usable;
        EXPECT_EQ(greyed.size(), 15U);
    }
}

TEST(ConnectionTest, OneLossOneBox)
{
    LoadedProgram program;
    BoxScript boxes{{L"Connection Issue", L"\n         To reconnect (in Voltaro Console Menu)"}};
    OnAgentLost();
    OnAgentLost();
    boxes.ExpectAllSeen();
    EXPECT_EQ(GreyedItems(),
        (std::set<int>{
            kResume, kSystemInfo, kPowerScheme, kJobScheduler, kSnooze, kSecurity, kSavingsReport, kActivate, kPorts}));
    EXPECT_EQ(RowCount(ControlOf(WindowOf(WindowId::Main), kSavingsList)), 0);
    program.Command(WindowId::Main, kReinitialize);
    EXPECT_TRUE(connection.connected);
    program.Agent().SetFault(L"GetSystemDetails", {FaultKind::CloseMidFrame, {}});
    program.Command(WindowId::Main, kReinitialize);
    EXPECT_EQ(HostLineText(), L"Not initialized.");
    program.Agent().ClearFaults();
    program.Command(WindowId::Main, kReinitialize);
    EXPECT_EQ(GreyedItems(), (std::set<int>{kResume}));
}

// The poller asks for the pause state, for the battery where there is one, and gives up after three failed tries.
TEST(ConnectionTest, PollsUntilTheAgentIsLost)
{
    for (const auto& [scenario, second, greyed] : {std::tuple(L"battery", L"GetBatteryInfo", std::set<int>{kResume}),
             {L"desktop", L"PauseStatus", {kResume, kBatteryInfo}}}) {
        LoadedProgram program(*simulator::FindScenario(scenario));
        EXPECT_EQ(GreyedItems(), greyed) << scenario;
        timing.pollerPeriod = timing.pollerFirstRetry = timing.pollerSecondRetry = 50;
        ASSERT_TRUE(StartWorkers());
        ASSERT_TRUE(WaitFor([&] { return program.Agent().Requests().size() >= 2; }));
        const Operations polled = program.TakeOperations();
        EXPECT_EQ(polled[0], L"PauseStatus");
        EXPECT_EQ(polled[1], second);
        BoxScript boxes{{L"Connection Issue", {}}};
        program.Agent().SetFault(L"*", {FaultKind::CloseAtOnce, {}});
        EXPECT_TRUE(WaitFor([] { return !connection.connected; }));
        Pump();
        StopWorkers(StopOrder::MainWindowDestroyed);
    }
}

} // namespace
} // namespace voltaro
