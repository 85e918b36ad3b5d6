// Events in an order that is rare, and what threads share.
#include "base/platform_calls.h"
#include "console/agent.h"
#include "console/agent_lost.h"
#include "console/connection_state.h"
#include "console/main_view.h"
#include "link/document.h"
#include "shell/main_menus.h"
#include "shell/pause.h"
#include "shell/workers.h"
#include "support/program.h"
#include "ui/menus.h"
#include "ui/ui_thread.h"

#include <atomic>
#include <thread>

namespace voltaro {
namespace {

struct LateEventsTest : testing::Test, LoadedProgram { };

TEST_F(LateEventsTest, ALossThatAReconnectionOvertookIsNotTold)
{
    std::thread(OnAgentLost).join();
    connection.connected = true;
    Pump(); // a box would fail the test
}

TEST_F(LateEventsTest, NoOperationIsHeldUnderItsBoxes)
{
    static int boxes;
    boxes = 0;
    Agent().Stop();
    ShowWindow(WindowOf(WindowId::Main), SW_MINIMIZE);
    platformCalls.showMessageBox = [](const BoxCall& call) {
        EXPECT_FALSE(IsHeld(Operation::GetSavingsTillDate));
        EXPECT_EQ(call.owner, nullptr) << "a box of a minimised window is not seen";
        ++boxes;
        return Answer::Ok;
    };
    static_cast<void>(SendOrLose(Plain(Operation::GetSavingsTillDate)));
    EXPECT_EQ(boxes, 2) << "the member's own and the loss";
}

TEST_F(LateEventsTest, TheTrayCannotCloseUnderTheQuestion)
{
    platformCalls.showMessageBox = [](const BoxCall&) {
        EXPECT_FALSE(IsItemEnabled(TrayMenu(), kTrayClose));
        return Answer::No;
    };
    Command(WindowId::Main, kClose);
    EXPECT_TRUE(IsItemEnabled(TrayMenu(), kTrayClose));
}

TEST_F(LateEventsTest, ASecondThreadWaitsForTheOperation)
{
    std::atomic<bool> answered = false;
    std::thread other;
    {
        const Reply held = Exchange(Plain(Operation::GetBatteryInfo));
        other = std::thread([&] { answered = Exchange(Plain(Operation::GetBatteryInfo)).Answered(); });
        Sleep(100);
        EXPECT_FALSE(answered);
    }
    other.join();
    EXPECT_TRUE(answered);
}

TEST_F(LateEventsTest, ARequestFillsItsBufferButForTheNul)
{
    const auto request
        = [](std::size_t units) { return WithText(Operation::Pause, L"duration", std::wstring(units, L'x')); };
    const std::size_t least = SerialiseRequest(RequestElement(request(1), NewMessageId()))->view().size();
    const std::size_t fits = 250 - least;
    EXPECT_EQ(Exchange(request(fits)).Result(), Outcome::Answered);
    EXPECT_EQ(Exchange(request(fits + 1)).Result(), Outcome::NotSent);
}

TEST_F(LateEventsTest, ThePollerAppliesOnTheUiThreadAndGivesUpAfterThreeTries)
{
    static std::atomic<int> shown;
    shown = 0;
    mainView.showCharge = [] {
        EXPECT_TRUE(OnUiThread());
        ++shown;
    };
    timing.pollerPeriod = 50;
    timing.pollerFirstRetry = timing.pollerSecondRetry = 10;
    ASSERT_TRUE(StartWorkers());
    EXPECT_TRUE(WaitFor([] { return shown > 0; }));
    Agent().SetFault(L"*", {FaultKind::CloseAtOnce, {}});
    const BoxScript boxes{{L"Connection Issue", {}}};
    TakeOperations();
    EXPECT_TRUE(WaitFor([] { return !connection.connected; }));
    EXPECT_GE(TakeOperations().size(), 3U);
    Pump();
    StopWorkers(StopOrder::MainWindowDestroyed);
}

TEST(PausedAgentTest, IsShownPausedAndIsNotAskedForItsBattery)
{
    ConsoleProgram program(*simulator::FindScenario(L"paused"));
    program.Load();
    EXPECT_TRUE(IsItemEnabled(TrayMenu(), kResume) && !IsItemEnabled(PauseMenu(), kPauseOneHour));
    program.TakeOperations();
    timing.pollerPeriod = 20;
    ASSERT_TRUE(StartWorkers());
    EXPECT_TRUE(WaitFor([&] { return program.Agent().Requests().size() >= 2; }));
    StopWorkers(StopOrder::MainWindowDestroyed);
    for (const std::wstring& operation : program.TakeOperations())
        EXPECT_EQ(operation, L"PauseStatus");
}

} // namespace
} // namespace voltaro
