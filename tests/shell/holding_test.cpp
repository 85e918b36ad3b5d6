// Who holds the main window, what a lost agent is told by, and how the workers end.
#include "console/agent.h"
#include "console/agent_lost.h"
#include "console/background_refresh.h"
#include "shell/main_window.h"
#include "support/program.h"

#include <algorithm>

namespace voltaro {

struct HoldingTest : testing::Test, LoadedProgram { };

TEST_F(HoldingTest, AboutKeepsTheMainWindowThatItTookOverAnOpenBox)
{
    Agent().Stop();
    static int told = 0;
    told = 0;
    platformCalls.showMessageBox = [](const BoxCall& call) {
        if (call.caption == L"Connection Issue" && told++ == 0)
            SendMessageW(WindowOf(WindowId::Main), WM_COMMAND, kTrayAbout, 0);
        return Answer::Ok;
    };
    MainCommand(kReinitialize);
    EXPECT_EQ(told, 1);
    ASSERT_NE(AboutWindow(), nullptr);
    EXPECT_FALSE(IsEnabled(main) || IsConsoleReady());
    SendMessageW(AboutWindow(), WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(IsMainFree());
}

TEST_F(HoldingTest, AnOpenBoxKeepsItsOwnerWhenAboutCloses)
{
    platformCalls.showMessageBox = [](const BoxCall& call) {
        EnableWindow(call.owner, FALSE); // as Windows does
        SendMessageW(call.owner, WM_COMMAND, kTrayAbout, 0);
        SendMessageW(AboutWindow(), WM_COMMAND, IDOK, 0);
        EXPECT_FALSE(IsEnabled(call.owner));
        return Answer::No;
    };
    MainCommand(kTrayClose);
    EXPECT_TRUE(IsMainFree());
}

TEST_F(HoldingTest, ALossIsToldByABoxThatIsSeen)
{
    static HWND owner;
    platformCalls.showMessageBox = [](const BoxCall& call) {
        owner = call.owner;
        return Answer::Ok;
    };
    OnAgentLost();
    EXPECT_EQ(owner, main);
    MainCommand(kReinitialize);
    MainCommand(kExitToTray);
    OnAgentLost();
    EXPECT_EQ(owner, nullptr);
}

// A request that could not be sent says nothing about the agent; a member's own box comes before the loss.
TEST_F(HoldingTest, EachOutcomeIsToldInItsOwnWay)
{
    {
        const Reply held = Exchange(Plain(Operation::ApplyPowerScheme));
        const Reply again = Exchange(Plain(Operation::ApplyPowerScheme));
        EXPECT_EQ(again.Result(), Outcome::NotSent);
        boxes.Expect({{L"Set Scheme Failed", {}}});
        MainCommand(kChange);
        MainCommand(kSet);
        const Reply status = Exchange(Plain(Operation::GetActivationStatus));
        MainCommand(kRefresh); // reads the status too
    }
    EXPECT_TRUE(connection.connected);
    const Reply unbuildable = SendOrLose(WithText(Operation::PauseStatus, L"text", std::wstring(300, L'x')));
    EXPECT_EQ(unbuildable.Result(), Outcome::NotSent);
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
