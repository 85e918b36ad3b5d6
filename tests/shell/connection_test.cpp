#include "shell/connection.h"

#include "console/agent_lost.h"
#include "console/main_view.h"
#include "shell/main_window.h"
#include "support/program.h"
#include "ui/ui_thread.h"

#include <set>

namespace voltaro {

const Operations kLoadOrder
    = {L"GetSystemstatus", L"GetSystemDetails", L"GetBatteryInfo", L"GetPowerSchemes", L"GetPolicies",
        L"GetCurrentpowersettings", L"GetCurrenthostsettings", L"GetCurrentProxySettings", L"GetActivationstatus",
        L"GetVoltaroSavingsTillDate", L"PauseStatus", L"GetCurrentPowerConsumptionData", L"GetPatchDetails"};

static std::set<int> GreyedItems()
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

struct UnloadedProgram : testing::Test, ConsoleProgram { };
struct ConnectionTest : testing::Test, LoadedProgram { };

TEST_F(UnloadedProgram, LoadsAndRefreshesInOrderAndTellsOfADeadAgentOnce)
{
    Load();
    EXPECT_EQ(TakeOperations(), kLoadOrder);
    EXPECT_EQ(SelectedText(WindowOf(WindowId::Main), kSchemeList), L"Balanced");
    EXPECT_EQ(GreyedItems(), (std::set<int>{kResume}));
    EXPECT_EQ(HostLineText().substr(0, 10), L"Hostname :");
    MainCommand(kRefresh);
    EXPECT_EQ(TakeOperations(),
        (Operations{L"GetPowerSchemes", L"GetPolicies", L"GetCurrentpowersettings", L"GetBatteryInfo",
            L"GetActivationstatus", L"PauseStatus"}));
    Agent().Stop();
    boxes.Expect({{L"Failed to communicate with Voltaro Agent", {}}});
    MainCommand(kRefresh);
}

TEST_F(UnloadedProgram, TriesThreeTimesGreysWhatNeedsAnAgentAndGoesOnWithoutSchemes)
{
    // What fails, the box (for the details there is none), and what was asked until then.
    const std::tuple<const wchar_t*, ExpectedBox, Operations> kRows[]
        = {{L"GetSystemstatus",
               {L"Connection Issue", L"           To check for services (in Windows) go to Start->Run.. , type"},
               Operations(3, L"GetSystemstatus")},
            {L"GetSystemDetails", {}, {L"GetSystemstatus", L"GetSystemDetails"}},
            {L"GetPowerSchemes", {L"Failed to communicate with Voltaro Agent", L"Voltaro Agent not responding"},
                kLoadOrder}};
    for (const auto& [operation, box, asked] : kRows) {
        Agent().ClearFaults();
        Agent().SetFault(operation, {FaultKind::CloseMidFrame, {}});
        boxes.Expect({box});
        Load();
        EXPECT_EQ(TakeOperations(), asked);
        EXPECT_EQ(connection.connected, asked == kLoadOrder);
        if (connection.connected)
            break;
        EXPECT_EQ(HostLineText(), L"Not initialized.");
    }
}

TEST_F(ConnectionTest, OneLossOneBox)
{
    boxes.Expect({{L"Connection Issue", L"\n         To reconnect (in Voltaro Console Menu)"}});
    OnAgentLost();
    OnAgentLost();
    EXPECT_EQ(GreyedItems(),
        (std::set<int>{
            kResume, kSystemInfo, kPowerScheme, kJobScheduler, kSnooze, kSecurity, kSavingsReport, kActivate, kPorts}));
    EXPECT_EQ(RowCount(ControlOf(main, kSavingsList)), 0);
    MainCommand(kReinitialize);
    Agent().SetFault(L"GetSystemDetails", {FaultKind::CloseMidFrame, {}});
    MainCommand(kReinitialize);
    EXPECT_EQ(GreyedItems(),
        (std::set<int>{kResume, kSystemInfo, kSavingsReport, kPowerScheme, kProxy, kSecurity, kJobScheduler, kSnooze,
            kUpdate, kRefresh, kActivate}));
    for (const int id : {kChange, kResumeButton, kLockScreen, kLogOff, kStandby, kHibernate, kShutdown, kRestart})
        EXPECT_FALSE(IsOn(WindowId::Main, id)) << id;
    Agent().ClearFaults();
    MainCommand(kReinitialize);
    EXPECT_EQ(GreyedItems(), (std::set<int>{kResume}));
}

// The poller asks for the pause state, for the battery where there is one, and gives up after three failed tries.
TEST(PollerTest, PollsUntilTheAgentIsLost)
{
    for (const auto& [scenario, second, greyed] : {std::tuple(L"battery", L"GetBatteryInfo", std::set<int>{kResume}),
             {L"desktop", L"PauseStatus", {kResume, kBatteryInfo}},
             {L"paused", L"PauseStatus", {kPauseOneHour, kPauseFiveHours}}}) {
        LoadedProgram program(scenario);
        EXPECT_EQ(GreyedItems(), greyed) << scenario;
        timing.pollerPeriod = timing.pollerFirstRetry = timing.pollerSecondRetry = 50;
        mainView.showCharge = [] { EXPECT_TRUE(OnUiThread()); };
        ASSERT_TRUE(StartWorkers());
        ASSERT_TRUE(WaitFor([&] { return program.Agent().Requests().size() >= 2; }));
        EXPECT_EQ(program.Agent().Requests()[0].operation, L"PauseStatus");
        EXPECT_EQ(program.Agent().Requests()[1].operation, second);
        program.boxes.Expect({{L"Connection Issue", {}}});
        program.Agent().SetFault(L"*", {FaultKind::CloseAtOnce, {}});
        program.TakeOperations();
        EXPECT_TRUE(WaitFor([] { return !connection.connected; }));
        EXPECT_GE(program.TakeOperations().size(), 3U);
        Pump();
        StopWorkers(StopOrder::MainWindowDestroyed);
    }
}

} // namespace voltaro
