#include "shell/main_commands.h"
#include "shell/main_window.h"
#include "shell/window_table.h"
#include "simulator/server.h"
#include "soak/held.h"
#include "support/fake_tray.h"
#include "support/installation.h"
#include "ui/controls.h"

#include <gtest/gtest.h>

#include <random>

namespace voltaro {
namespace {

using simulator::FaultKind;

HWND MainWindow()
{
    return FindWindowW(kMainClass, kMainTitle);
}

std::wstring HostLine()
{
    wchar_t text[200] = {};
    SendMessageTimeoutW(
        ControlOf(MainWindow(), kHostLine), WM_GETTEXT, 200, reinterpret_cast<LPARAM>(text), SMTO_NORMAL, 500, nullptr);
    return text;
}

bool IsConnected()
{
    return MainWindow() && HostLine().starts_with(L"Hostname :");
}

void AnswerBox(const wchar_t* caption, WPARAM button)
{
    HWND box = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (box = FindWindowW(L"#32770", caption)) != nullptr; }, 20'000));
    PostMessageW(box, WM_COMMAND, button, 0);
}

struct Console : Process {
    Console()
        : Process(_wgetenv(L"VOLTARO_CONSOLE"))
    {
    }
    // The exit code once the program has ended, -1 when it has not within that time.
    [[nodiscard]] int ExitCode(unsigned milliseconds) const
    {
        DWORD code = 0;
        const bool ended = WaitFor([this] { return WaitForSingleObject(Get(), 0) == WAIT_OBJECT_0; }, milliseconds);
        return ended && GetExitCodeProcess(Get(), &code) ? static_cast<int>(code) : -1;
    }
};

struct ConsoleTest : testing::Test {
    ConsoleTest()
    {
        EXPECT_TRUE(agent.Start());
        Install(L"voltaro_program", agent.Port());
    }
    simulator::AgentServer agent;
    FakeTray tray;
};

TEST_F(ConsoleTest, StartsConnectsAndIsRestoredByASecondStart)
{
    const Console console;
    ASSERT_TRUE(WaitFor(IsConnected, 20'000)) << HostLine();
    ASSERT_TRUE(WaitFor([&] { return agent.HasReceived(L"GetPatchDetails"); }, 2'000));
    EXPECT_TRUE(IsWindowEnabled(MainWindow()) && !IsIconic(MainWindow()));
    agent.ClearRequests();
    PostMessageW(MainWindow(), WM_COMMAND, kPauseOneHour, 0);
    ASSERT_TRUE(WaitFor([&] { return tray.Last().tooltip == L"Voltaro Paused"; }, 2'000));
    EXPECT_FALSE(IsWindowVisible(MainWindow()));
    const std::size_t calls = tray.Calls().size();
    for (const bool busy : {false, true}) {
        if (busy) {
            agent.SetFault(L"GetPowerSchemes", {FaultKind::Silent, {}}); // never answered
            agent.ClearRequests();
            PostMessageW(MainWindow(), WM_COMMAND, kRefresh, 0);
            ASSERT_TRUE(WaitFor([&] { return agent.HasReceived(L"GetPowerSchemes"); }, 3'000));
        }
        ShowWindowAsync(MainWindow(), SW_MINIMIZE);
        const Console second;
        EXPECT_EQ(second.ExitCode(10'000), 0);
        EXPECT_TRUE(WaitFor([] { return IsWindowVisible(MainWindow()) && !IsIconic(MainWindow()); }, 2'000));
        EXPECT_EQ(agent.Requests().size(), 1U); // the pause's; the hung one's
    }
    EXPECT_TRUE(tray.Calls().size() == calls && console.ExitCode(0) == -1);
}

// Ends of the program and of the session wherever a request happens to be. The session waits for nothing.
TEST_F(ConsoleTest, EndsAtAnyPointOfARequest)
{
    constexpr WPARAM kCommands[] = {kRefresh, kUpdate, kReinitialize, kSavingsReport, kJobScheduler, 0};
    const simulator::Fault kFaults[]
        = {{FaultKind::None, {}}, {FaultKind::Late, L"300"}, {FaultKind::Slow, L"50"}, {FaultKind::Silent, {}}};
    std::mt19937 random(Seed());
    const int rounds = IsLongRun() ? 100 : 4;
    for (int i = 0; i < rounds; ++i) {
        SCOPED_TRACE(i);
        const bool sessionEnds = i % 2 == 1, whileStarting = i % 4 < 2;
        const simulator::Fault fault = kFaults[random() % (sessionEnds ? 4 : 3)];
        agent.SetFault(L"*", whileStarting ? fault : kFaults[0]);
        const Console console;
        ASSERT_TRUE(WaitFor([&] { return agent.HasReceived(L"*"); }, 60'000)) << HostLine();
        if (!whileStarting) {
            ASSERT_TRUE(WaitFor(IsConnected, 60'000)) << HostLine();
            agent.SetFault(L"*", fault);
            PostMessageW(MainWindow(), WM_COMMAND, kCommands[random() % 6], 0);
        }
        for (auto naps = random() % 20; naps > 0; --naps) {
            EXPECT_TRUE(SendMessageTimeoutW(MainWindow(), WM_NULL, 0, 0, SMTO_NORMAL, 1'000, nullptr)) << "it is alive";
            Sleep(20);
        }
        if (sessionEnds) {
            const LPARAM reason = whileStarting ? ENDSESSION_CLOSEAPP : static_cast<LPARAM>(ENDSESSION_LOGOFF);
            for (const UINT message : {WM_QUERYENDSESSION, WM_ENDSESSION})
                SendMessageTimeoutW(MainWindow(), message, TRUE, reason, SMTO_NORMAL, 2'000, nullptr);
        } else {
            PostMessageW(MainWindow(), WM_COMMAND, kTrayClose, 0);
            AnswerBox(L"Close Voltaro Console ?", IDYES);
        }
        EXPECT_EQ(console.ExitCode(2'000), 0);
        ASSERT_FALSE(tray.Calls().empty());
        EXPECT_EQ(tray.Last().what, static_cast<ULONG_PTR>(NIM_DELETE)) << "a crash would leave the icon";
        agent.ClearRequests();
    }
}

TEST(ConsoleStartTest, EndsWithoutAnInstallation)
{
    SetEnvironmentVariableW(L"VOLTARO_HOME", nullptr);
    const Console console;
    AnswerBox(L"Could not read Environment variable 'VOLTARO_HOME'", IDOK);
    EXPECT_TRUE(console.ExitCode(3'000) == 0 && !MainWindow());
}

} // namespace
} // namespace voltaro
