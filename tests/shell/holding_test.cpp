// Who holds the main window, what a lost agent is told by, and how the workers end.
#include "console/agent.h"
#include "console/agent_lost.h"
#include "console/background_refresh.h"
#include "link/document.h"
#include "shell/main_window.h"
#include "support/program.h"

#include <algorithm>
#include <atomic>
#include <thread>

namespace voltaro {

struct HoldingTest : testing::Test, LoadedProgram { };

TEST_F(HoldingTest, AboutAndABoxHoldTheMainWindowEachForItself)
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
    EXPECT_FALSE(IsEnabled(main) || IsConsoleReady());
    platformCalls.showMessageBox = FailOnBox;
    SendMessageW(AboutWindow(), WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(IsMainFree());
}

TEST_F(HoldingTest, ALossIsToldByABoxThatIsSeen)
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
TEST_F(HoldingTest, EachOutcomeIsToldInItsOwnWay)
{
    std::atomic<bool> answered = false;
    std::thread other;
    {
        const Reply held = Exchange(Plain(Operation::ApplyPowerScheme));
        other = std::thread([&] { answered = Exchange(Plain(Operation::ApplyPowerScheme)).Answered(); });
        const Reply again = Exchange(Plain(Operation::ApplyPowerScheme));
        EXPECT_EQ(again.Result(), Outcome::NotSent);
        boxes.Expect({{L"Set Scheme Failed", {}}});
        MainCommand(kChange);
        MainCommand(kSet);
        const Reply status = Exchange(Plain(Operation::GetActivationStatus));
        MainCommand(kRefresh); // reads the status too
        EXPECT_FALSE(answered) << "another thread waits for the operation";
    }
    other.join();
    EXPECT_TRUE(answered);
    EXPECT_TRUE(connection.connected);
    const auto pause
        = [](std::size_t units) { return WithText(Operation::PauseStatus, L"text", std::wstring(units, L'x')); };
    const std::size_t fits = 250 - SerialiseRequest(RequestElement(pause(1), NewMessageId()))->view().size();
    EXPECT_EQ(SendOrLose(pause(fits)).Result(), Outcome::Answered);
    EXPECT_EQ(SendOrLose(pause(fits + 1)).Result(), Outcome::NotSent) << "no room for the NUL";
    EXPECT_TRUE(connection.connected);
    Agent().Stop();
    boxes.Expect(
        {{L"Connection Closed !", L"Please check if Voltaro Service is started ?"}, {L"Connection Issue", {}}});
    EXPECT_EQ(SendOrLose(Plain(Operation::GetSavingsTillDate)).Result(), Outcome::CannotConnect);
    EXPECT_FALSE(connection.connected);
}

TEST_F(HoldingTest, ARefreshAskedForDuringARunIsMade)
{
    Agent().SetFault(L"GetSystemDetails", {FaultKind::Late, L"150"});
    ASSERT_TRUE(StartWorkers());
    MainCommand(kChange);
    RequestBackgroundRefresh(kRefreshSystemDetails);
    ASSERT_TRUE(WaitFor([&] { return !Agent().Requests().empty(); }));
    RequestBackgroundRefresh(kRefreshPowerData);
    RequestBackgroundRefresh(kRefreshSystemDetails);
    EXPECT_TRUE(WaitFor([&] { return Agent().Requests().size() == 5; }, 3'000));
    const Operations asked = TakeOperations();
    EXPECT_EQ(std::count(asked.begin(), asked.end(), L"GetSystemDetails"), 2);
    StopWorkers(StopOrder::MainWindowDestroyed);
    EXPECT_TRUE(IsOn(WindowId::Main, kSchemeList)); // the user is still choosing
}

} // namespace voltaro
