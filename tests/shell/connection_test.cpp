// The connection check, what is told of a lost agent, who holds the main window, and how the workers end.
#include "shell/connection.h"

#include "console/agent_lost.h"
#include "console/main_view.h"
#include "link/document.h"
#include "settings/machine_texts.h"
#include "shell/main_window.h"
#include "soak/held.h"
#include "support/program.h"

#include <algorithm>
#include <set>

namespace voltaro {

const Operations kLoadOrder
    = {L"GetSystemstatus", L"GetSystemDetails", L"GetBatteryInfo", L"GetPowerSchemes", L"GetPolicies",
        L"GetCurrentpowersettings", L"GetCurrenthostsettings", L"GetCurrentProxySettings", L"GetActivationstatus",
        L"GetVoltaroSavingsTillDate", L"PauseStatus", L"GetCurrentPowerConsumptionData", L"GetPatchDetails"};

static std::set<unsigned> GreyedItems()
{
    std::set<unsigned> greyed;
    for (unsigned item = 1; item < 0x8000; ++item) {
        const UINT state = GetMenuState(MainMenuBar(), item, MF_BYCOMMAND);
        if (state != UINT_MAX && (state & MF_GRAYED) != 0)
            greyed.insert(item);
    }
    return greyed;
}

struct UnloadedProgram : testing::Test, ConsoleProgram { };
struct ConnectionTest : testing::Test, LoadedProgram { };

TEST_F(UnloadedProgram, LoadsAndRefreshesInOrderAndTellsOfADeadAgentOnce)
{
    PrepareForCheck();
    EXPECT_FALSE(IsItemEnabled(TrayMenu(), kTrayVoltaro) || IsConsoleReady());
    Load();
    EXPECT_TRUE(TakeOperations() == kLoadOrder && SelectedText(WindowOf(WindowId::Main), kSchemeList) == L"Balanced");
    EXPECT_EQ(GreyedItems(), (std::set<unsigned>{kResume}));
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
    const auto load = [&](const wchar_t* failing, const ExpectedBox& box, const Operations& asked) {
        Agent().ClearFaults();
        Agent().SetFault(failing, {FaultKind::CloseMidFrame, {}});
        boxes.Expect({box});
        Load();
        EXPECT_TRUE(TakeOperations() == asked && connection.connected == (asked == kLoadOrder));
        EXPECT_NE(HostLineText() == L"Not initialized.", connection.connected);
    };
    load(L"GetSystemstatus", {L"Connection Issue", L"for services (in Windows) go to Start->Run.. , type"},
        Operations(3, L"GetSystemstatus"));
    load(L"GetSystemDetails", {}, {L"GetSystemstatus", L"GetSystemDetails"});
    load(L"GetPowerSchemes", {L"Failed to communicate with Voltaro Agent", L"Agent not responding"}, kLoadOrder);
}

TEST_F(ConnectionTest, OneLossOneBox)
{
    boxes.Expect({{L"Connection Issue", L"\n         To reconnect (in Voltaro Console Menu)"}});
    OnAgentLost();
    OnAgentLost();
    EXPECT_EQ(GreyedItems(),
        (std::set<unsigned>{
            kResume, kSystemInfo, kPowerScheme, kJobScheduler, kSnooze, kSecurity, kSavingsReport, kActivate, kPorts}));
    EXPECT_EQ(RowCount(ControlOf(main, kSavingsList)), 0);
    MainCommand(kReinitialize);
    Agent().SetFault(L"GetSystemDetails", {FaultKind::CloseMidFrame, {}});
    MainCommand(kReinitialize);
    EXPECT_EQ(GreyedItems(),
        (std::set<unsigned>{kResume, kSystemInfo, kSavingsReport, kPowerScheme, kProxy, kSecurity, kJobScheduler,
            kSnooze, kUpdate, kRefresh, kActivate}));
    TakeOperations();
    MainCommand(kRefreshKey); // as grey as its menu item
    EXPECT_EQ(TakeOperations(), Operations{});
    for (const bool on : {false, true}) {
        for (const int id : {kChange, kLockScreen, kLogOff, kStandby, kHibernate, kShutdown, kRestart})
            EXPECT_EQ(IsOn(id), on) << id;
        Agent().ClearFaults();
        MainCommand(kReinitialize);
    }
    EXPECT_EQ(GreyedItems(), (std::set<unsigned>{kResume}));
}

// The poller asks for the pause state, for the battery where there is one, and gives up after three failed tries.
TEST(PollerTest, PollsUntilTheAgentIsLost)
{
    for (const auto& [scenario, second, greyed] :
        {std::tuple(L"battery", L"GetBatteryInfo", std::set<unsigned>{kResume}),
            {L"desktop", L"PauseStatus", {kResume, kBatteryInfo}},
            {L"paused", L"PauseStatus",
                {kPauseOneHour, kPauseOneHour + 1, kPauseOneHour + 2, kPauseOneHour + 3, kPauseFiveHours}}}) {
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

TEST_F(ConnectionTest, AboutAndABoxHoldTheMainWindowEachForItself)
{
    platformCalls.showMessageBox = [](const BoxCall& call) {
        EnableWindow(call.owner, FALSE); // as Windows does
        SendMessageW(call.owner, WM_COMMAND, kTrayAbout, 0);
        SendMessageW(AboutWindow(), WM_COMMAND, IDOK, 0);
        EXPECT_FALSE(IsEnabled(call.owner) || IsItemEnabled(TrayMenu(), kTrayClose));
        return Answer::No;
    };
    MainCommand(kTrayClose);
    EXPECT_TRUE(IsMainFree());
    platformCalls.showMessageBox = [](const BoxCall&) {
        SendMessageW(WindowOf(WindowId::Main), WM_COMMAND, kTrayAbout, 0);
        return Answer::Ok;
    };
    Agent().Stop();
    MainCommand(kReinitialize);
    ASSERT_NE(AboutWindow(), nullptr);
    EXPECT_FALSE(IsEnabled(main) || IsConsoleReady() || connection.connected);
    platformCalls.showMessageBox = FailOnBox;
    SendMessageW(AboutWindow(), WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(IsMainFree());
}

TEST_F(ConnectionTest, ALossIsToldByABoxThatIsSeen)
{
    static HWND owner;
    platformCalls.showMessageBox = [](const BoxCall& call) {
        owner = call.owner;
        EXPECT_FALSE(IsHeld(Operation::GetSavingsTillDate) || IsHeld(Operation::GetPolicies));
        return Answer::Ok;
    };
    OnAgentLost();
    EXPECT_EQ(owner, main);
    for (const int hide : {SW_HIDE, SW_MINIMIZE}) {
        MainCommand(kReinitialize);
        ShowWindow(main, hide);
        OnAgentLost();
        EXPECT_EQ(owner, nullptr);
    }
    owner = main;
    connection.connected = true;
    std::thread(OnAgentLost).join();
    connection.connected = true; // the user has reconnected before the loss is told
    Pump();
    EXPECT_EQ(owner, main);
    Agent().Stop();
    static_cast<void>(SendOrLose(Plain(Operation::GetSavingsTillDate))); // two boxes, its own and the loss
    connection.connected = true;
    static_cast<void>(SendOrLose(Plain(Operation::GetPolicies))); // the loss alone
    EXPECT_EQ(owner, nullptr);
}

// A request that could not be sent says nothing about the agent; a member's own box comes before the loss.
TEST_F(ConnectionTest, EachOutcomeIsToldInItsOwnWay)
{
    std::atomic<bool> answered = false;
    std::jthread other;
    {
        const Reply held = Exchange(Plain(Operation::ApplyPowerScheme));
        other = std::jthread([&] { answered = Exchange(Plain(Operation::ApplyPowerScheme)).Answered(); });
        EXPECT_EQ(Exchange(Plain(Operation::ApplyPowerScheme)).Result(), Outcome::NotSent);
        boxes.Expect({{L"Set Scheme Failed", {}}});
        MainCommand(kChange);
        MainCommand(kSet);
        const Reply status = Exchange(Plain(Operation::GetActivationStatus));
        MainCommand(kRefresh); // reads the status too
        EXPECT_FALSE(answered) << "another thread waits for the operation";
    }
    other.join();
    EXPECT_TRUE(answered && connection.connected);
    const auto pause
        = [](std::size_t units) { return WithText(Operation::PauseStatus, L"t", std::wstring(units, L'x')); };
    const std::size_t fits = 250 - SerialiseRequest(RequestElement(pause(1), NewMessageId()))->view().size();
    EXPECT_EQ(SendOrLose(pause(fits)).Result(), Outcome::Answered);
    EXPECT_EQ(SendOrLose(pause(fits + 1)).Result(), Outcome::NotSent) << "no room for the NUL";
    EXPECT_TRUE(connection.connected);
    Agent().Stop();
    boxes.Expect({{L"Connection Closed !", L"if Voltaro Service is started ?"}, {L"Connection Issue", {}}});
    EXPECT_EQ(SendOrLose(Plain(Operation::GetSavingsTillDate)).Result(), Outcome::CannotConnect);
    EXPECT_FALSE(connection.connected);
}

TEST_F(ConnectionTest, WorkPostedByManyThreadsRunsOnceEach)
{
    static int ran;
    ran = 0;
    windowHandles[0] = reinterpret_cast<HWND>(4); // or the messages would take all the time
    std::atomic<int> posting = 2;
    const auto post = [&] {
        for (int i = 0; i < 100'000; ++i)
            PostOnUi([] { ++ran; });
        --posting;
    };
    const std::jthread first(post), second(post);
    while (posting > 0)
        RunPostedWork();
    RunPostedWork();
    windowHandles[0] = main;
    EXPECT_EQ(ran, 200'000);
}

TEST_F(ConnectionTest, ARefreshAskedForDuringARunIsMade)
{
    Agent().SetFault(L"GetSystemDetails", {FaultKind::Late, L"150"});
    ASSERT_TRUE(StartWorkers());
    MainCommand(kChange);
    RequestBackgroundRefresh(kRefreshSystemDetails);
    ASSERT_TRUE(WaitFor([&] { return !Agent().Requests().empty(); }));
    RequestBackgroundRefresh(kRefreshPowerData);
    RequestBackgroundRefresh(kRefreshSystemDetails);
    EXPECT_TRUE(WaitFor([&] { return Agent().Requests().size() == 5; }, 3'000));
    EXPECT_EQ(std::ranges::count(TakeOperations(), L"GetSystemDetails"), 2);
    StopWorkers(StopOrder::MainWindowDestroyed);
    EXPECT_TRUE(IsOn(kSchemeList)); // the user is still choosing
}

TEST_F(ConnectionTest, RefreshesAgainstThePollerReadWhatOneReads)
{
    const auto records = [] {
        return std::tuple(
            DetailsText(agentRecords.details), agentRecords.schemes, agentRecords.policies, agentRecords.currentScheme);
    };
    const auto expected = records();
    timing.pollerPeriod = 1;
    ASSERT_TRUE(StartWorkers());
    for (int i = 0; i < (IsLongRun() ? 200 : 40); ++i) {
        RequestBackgroundRefresh(i % 2 ? kRefreshSystemDetails : kRefreshPowerData);
        ASSERT_TRUE(WaitFor([] { return refreshRequests == 0; }));
    }
    StopWorkers(StopOrder::MainWindowDestroyed);
    EXPECT_TRUE(records() == expected && connection.connected);
    EXPECT_GT(std::ranges::count(TakeOperations(), L"PauseStatus"), 5);
}

} // namespace voltaro
