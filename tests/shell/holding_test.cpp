// Who holds the main window, what a lost agent is told by, and how the workers end.
#include "base/platform_calls.h"
#include "console/agent.h"
#include "console/agent_lost.h"
#include "console/background_refresh.h"
#include "console/connection_state.h"
#include "console/main_hold.h"
#include "console/ui_calls.h"
#include "shell/about.h"
#include "shell/main_window.h"
#include "shell/workers.h"
#include "support/program.h"

#include <algorithm>

namespace voltaro {
namespace {

bool IsMainFree()
{
    return IsWindowEnabled(WindowOf(WindowId::Main)) && IsConsoleReady();
}

TEST(HoldingTest, AboutKeepsTheMainWindowThatItTookOverAnOpenBox)
{
    LoadedProgram program;
    program.Agent().Stop();
    static int boxes = 0;
    boxes = 0;
    platformCalls.showMessageBox = [](const BoxCall& call) {
        if (call.caption == L"Connection Issue" && boxes++ == 0)
            SendMessageW(WindowOf(WindowId::Main), WM_COMMAND, kTrayAbout, 0);
        return Answer::Ok;
    };
    program.Command(WindowId::Main, kReinitialize);
    EXPECT_EQ(boxes, 1);
    ASSERT_NE(AboutWindow(), nullptr);
    EXPECT_FALSE(IsWindowEnabled(WindowOf(WindowId::Main)));
    EXPECT_FALSE(IsConsoleReady());
    SendMessageW(AboutWindow(), WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(IsMainFree());
}

TEST(HoldingTest, AnOpenBoxKeepsItsOwnerWhenAboutCloses)
{
    LoadedProgram program;
    platformCalls.showMessageBox = [](const BoxCall& call) {
        EnableWindow(call.owner, FALSE); // as Windows does
        SendMessageW(call.owner, WM_COMMAND, kTrayAbout, 0);
        SendMessageW(AboutWindow(), WM_COMMAND, IDOK, 0);
        EXPECT_FALSE(IsWindowEnabled(call.owner));
        return Answer::No;
    };
    program.Command(WindowId::Main, kTrayClose);
    EXPECT_TRUE(IsMainFree());
}

TEST(HoldingTest, ALossIsToldByABoxThatIsSeen)
{
    static std::vector<HWND> owners;
    owners.clear();
    for (const bool hidden : {false, true}) {
        LoadedProgram program;
        platformCalls.showMessageBox = [](const BoxCall& call) {
            owners.push_back(call.owner);
            return Answer::Ok;
        };
        if (hidden)
            program.Command(WindowId::Main, kExitToTray);
        const HWND main = WindowOf(WindowId::Main);
        OnAgentLost();
        OnAgentLost();
        EXPECT_EQ(owners.back(), hidden ? nullptr : main);
    }
    EXPECT_EQ(owners.size(), 2U);
}

// A request that could not be sent says nothing about the agent; a member's own box comes before the loss.
TEST(OutcomeTest, EachIsToldInItsOwnWay)
{
    LoadedProgram program;
    {
        const Reply held = Exchange(Plain(Operation::ApplyPowerScheme));
        const Reply again = Exchange(Plain(Operation::ApplyPowerScheme));
        EXPECT_EQ(again.Result(), Outcome::NotSent);
        const BoxScript boxes{{L"Set Scheme Failed", {}}};
        program.Command(WindowId::Main, kChange);
        program.Command(WindowId::Main, kSet);
        const Reply status = Exchange(Plain(Operation::GetActivationStatus));
        program.Command(WindowId::Main, kRefresh); // reads the status too
    }
    EXPECT_TRUE(connection.connected);
    const Reply unbuildable = SendOrLose(WithText(Operation::PauseStatus, L"text", std::wstring(300, L'x')));
    EXPECT_EQ(unbuildable.Result(), Outcome::NotSent);
    EXPECT_TRUE(connection.connected);
    program.Agent().Stop();
    const BoxScript boxes{
        {L"Connection Closed !", L"Please check if Voltaro Service is started ?"}, {L"Connection Issue", {}}};
    EXPECT_EQ(SendOrLose(Plain(Operation::GetSavingsTillDate)).Result(), Outcome::CannotConnect);
    EXPECT_FALSE(connection.connected);
}

TEST(WorkersTest, ARefreshAskedForDuringARunIsMade)
{
    LoadedProgram program;
    program.Agent().SetFault(L"GetSystemDetails", {FaultKind::Late, L"150"});
    ASSERT_TRUE(StartWorkers());
    program.Command(WindowId::Main, kChange);
    RequestBackgroundRefresh(kRefreshSystemDetails);
    ASSERT_TRUE(WaitFor([&] { return !program.Agent().Requests().empty(); }));
    RequestBackgroundRefresh(kRefreshPowerData);
    RequestBackgroundRefresh(kRefreshSystemDetails);
    EXPECT_TRUE(WaitFor([&] { return program.Agent().Requests().size() == 5; }, 3'000));
    const Operations asked = program.TakeOperations();
    EXPECT_EQ(std::count(asked.begin(), asked.end(), L"GetSystemDetails"), 2);
    StopWorkers(StopOrder::MainWindowDestroyed);
    EXPECT_TRUE(IsWindowEnabled(ControlOf(WindowOf(WindowId::Main), kSchemeList))); // the user is still choosing
}

} // namespace
} // namespace voltaro
