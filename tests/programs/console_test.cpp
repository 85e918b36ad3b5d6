#include "base/handles.h"
#include "shell/main_commands.h"
#include "shell/main_window.h"
#include "shell/window_table.h"
#include "simulator/server.h"
#include "soak/held.h"
#include "support/fake_tray.h"
#include "support/installation.h"
#include "support/test_window.h"
#include "ui/controls.h"

#include <gtest/gtest.h>

#include <random>

namespace voltaro {
namespace {

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

// One console process; ended by force when a test leaves it running.
class Console {
public:
    Console()
    {
        wchar_t path[MAX_PATH] = {};
        GetEnvironmentVariableW(L"VOLTARO_CONSOLE", path, MAX_PATH);
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESHOWWINDOW;
        start.wShowWindow = SW_SHOWMINIMIZED; // ignored by the console
        PROCESS_INFORMATION made{};
        EXPECT_TRUE(CreateProcessW(path, nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &made));
        CloseHandle(made.hThread);
        m_process = UniqueHandle(made.hProcess);
    }
    ~Console() { TerminateProcess(m_process.Get(), 9); }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    // The exit code once the program has ended, -1 when it has not within that time.
    [[nodiscard]] int ExitCode(unsigned milliseconds) const
    {
        DWORD code = 0;
        if (!WaitFor([&] { return WaitForSingleObject(m_process.Get(), 0) == WAIT_OBJECT_0; }, milliseconds))
            return -1;
        GetExitCodeProcess(m_process.Get(), &code);
        return static_cast<int>(code);
    }

private:
    UniqueHandle m_process;
};

class ConsoleTest : public testing::Test {
protected:
    ConsoleTest()
    {
        EXPECT_TRUE(agent.Start());
        Install(L"voltaro_program", agent.Port());
    }
    // Gives a command that ends in a request which the agent never answers.
    void HangIn(int command, const wchar_t* operation)
    {
        agent.SetFault(operation, {simulator::FaultKind::Silent, {}});
        agent.ClearRequests();
        PostMessageW(MainWindow(), WM_COMMAND, static_cast<WPARAM>(command), 0);
        ASSERT_TRUE(WaitFor([&] { return LastOperation() == operation; }, 3'000));
    }
    std::wstring LastOperation() const
    {
        const auto requests = agent.Requests();
        return requests.empty() ? std::wstring() : requests.back().operation;
    }
    // The console tells the shell to take its icon away as the last thing; a crash would leave it there.
    void ExpectNoIcon() const
    {
        ASSERT_FALSE(tray.Calls().empty());
        EXPECT_EQ(tray.Last().what, static_cast<ULONG_PTR>(NIM_DELETE));
    }

    simulator::AgentServer agent;
    FakeTray tray;
};

TEST_F(ConsoleTest, StartsConnectsAndStaysTheOnlyOne)
{
    const Console console;
    ASSERT_TRUE(WaitFor(IsConnected, 20'000)) << HostLine().c_str();
    EXPECT_TRUE(WaitFor([] { return IsWindowEnabled(MainWindow()) != FALSE; }, 2'000));
    EXPECT_FALSE(IsIconic(MainWindow()));

    ShowWindowAsync(MainWindow(), SW_MINIMIZE);
    ASSERT_TRUE(WaitFor([] { return IsIconic(MainWindow()) != FALSE; }, 2'000));
    const Console second;
    EXPECT_EQ(second.ExitCode(10'000), 0);
    EXPECT_TRUE(WaitFor([] { return !IsIconic(MainWindow()); }, 2'000));
    EXPECT_EQ(console.ExitCode(0), -1);
}

TEST_F(ConsoleTest, ClosesByItselfWhenTheQuestionIsNotAnswered)
{
    const Console console;
    ASSERT_TRUE(WaitFor(IsConnected, 20'000));
    PostMessageW(MainWindow(), WM_CLOSE, 0, 0);
    EXPECT_EQ(console.ExitCode(4'000), -1);
    EXPECT_EQ(console.ExitCode(6'000), 0);
}

TEST_F(ConsoleTest, StaysAliveAndEndsWithTheSessionDuringAHungRequest)
{
    const std::tuple<int, const wchar_t*, LPARAM> kRows[]
        = {{kRefresh, L"GetPowerSchemes", static_cast<LPARAM>(ENDSESSION_LOGOFF)},
            {kUpdate, L"CheckForUpdates", ENDSESSION_CLOSEAPP}};
    for (const auto& [command, operation, reason] : kRows) {
        agent.ClearFaults();
        const Console console;
        ASSERT_TRUE(WaitFor(IsConnected, 20'000));
        HangIn(command, operation);
        int answered = 0;
        for (int i = 0; i < 20; ++i) {
            answered += SendMessageTimeoutW(MainWindow(), WM_NULL, 0, 0, SMTO_NORMAL, 50, nullptr) != 0 ? 1 : 0;
            Sleep(20);
        }
        EXPECT_EQ(answered, 20);
        for (const UINT message : {WM_QUERYENDSESSION, WM_ENDSESSION})
            SendMessageTimeoutW(MainWindow(), message, TRUE, reason, SMTO_NORMAL, 2'000, nullptr);
        EXPECT_EQ(console.ExitCode(2'000), 0);
        ExpectNoIcon();
    }
}

TEST_F(ConsoleTest, ClosesDuringAnUpdateCheck)
{
    const Console console;
    ASSERT_TRUE(WaitFor(IsConnected, 20'000));
    HangIn(kUpdate, L"CheckForUpdates");
    PostMessageW(MainWindow(), WM_COMMAND, kTrayClose, 0);
    HWND box = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (box = FindWindowW(L"#32770", L"Close Voltaro Console ?")) != nullptr; }, 3'000));
    PostMessageW(box, WM_COMMAND, IDYES, 0);
    EXPECT_EQ(console.ExitCode(2'000), 0);
    ExpectNoIcon();
}

// Ends of the program and of the session wherever a request happens to be, from the first one of the start on. The user
// is asked once the user-interface thread's own request is over; the session waits for nothing.
TEST_F(ConsoleTest, EndsAtAnyPointOfARequest)
{
    constexpr int kCommands[] = {kRefresh, kUpdate, kReinitialize, kSavingsReport, kJobScheduler, 0};
    constexpr std::pair<simulator::FaultKind, const wchar_t*> kFaults[] = {{simulator::FaultKind::None, L""},
        {simulator::FaultKind::Late, L"300"}, {simulator::FaultKind::Slow, L"50"}, {simulator::FaultKind::Silent, L""}};
    std::mt19937 random(Seed());
    const int rounds = IsLongRun() ? 100 : 4;
    for (int i = 0; i < rounds; ++i) {
        SCOPED_TRACE(i);
        const bool sessionEnds = i % 2 == 1;
        const auto& [kind, argument] = kFaults[random() % (sessionEnds ? 4 : 3)];
        agent.SetFault(L"*", {i % 4 < 2 ? kind : simulator::FaultKind::None, argument});
        const Console console;
        ASSERT_TRUE(WaitFor([&] { return !agent.Requests().empty(); }, 60'000)) << HostLine() << MainWindow();
        if (i % 4 >= 2) {
            ASSERT_TRUE(WaitFor(IsConnected, 60'000)) << HostLine();
            agent.SetFault(L"*", {kind, argument});
            PostMessageW(MainWindow(), WM_COMMAND, static_cast<WPARAM>(kCommands[random() % 6]), 0);
        }
        Sleep(random() % 400);
        HWND box = nullptr;
        if (!sessionEnds) {
            PostMessageW(MainWindow(), WM_COMMAND, kTrayClose, 0);
            ASSERT_TRUE(
                WaitFor([&] { return (box = FindWindowW(L"#32770", L"Close Voltaro Console ?")) != nullptr; }, 20'000));
            PostMessageW(box, WM_COMMAND, IDYES, 0);
        }
        for (const UINT message : {WM_QUERYENDSESSION, WM_ENDSESSION})
            SendMessageTimeoutW(sessionEnds ? MainWindow() : nullptr, message, TRUE,
                static_cast<LPARAM>(ENDSESSION_LOGOFF), SMTO_NORMAL, 2'000, nullptr);
        const ULONGLONG start = GetTickCount64();
        EXPECT_EQ(console.ExitCode(30'000), 0);
        EXPECT_LE(GetTickCount64() - start, 2'000U);
        ExpectNoIcon();
        agent.ClearRequests();
    }
}

TEST_F(ConsoleTest, ASecondStartRestoresAConsoleThatIsPausedOrBusy)
{
    const Console console;
    ASSERT_TRUE(WaitFor(IsConnected, 20'000));
    ASSERT_TRUE(WaitFor([&] { return LastOperation() == L"GetPatchDetails"; }, 2'000));
    agent.ClearRequests();
    PostMessageW(MainWindow(), WM_COMMAND, kPauseOneHour, 0);
    ASSERT_TRUE(WaitFor([&] { return tray.Last().tooltip == L"Voltaro Paused"; }, 2'000));
    EXPECT_FALSE(IsWindowVisible(MainWindow()));
    const std::size_t calls = tray.Calls().size();
    for (const bool busy : {false, true}) {
        if (busy)
            HangIn(kRefresh, L"GetPowerSchemes");
        const Console second;
        EXPECT_EQ(second.ExitCode(5'000), 0);
        EXPECT_TRUE(WaitFor([] { return IsWindowVisible(MainWindow()) != FALSE; }, 2'000));
        EXPECT_EQ(agent.Requests().size(), 1U); // the pause's; the hung one's
    }
    EXPECT_EQ(tray.Calls().size(), calls);
    EXPECT_EQ(console.ExitCode(0), -1);
}

TEST(ConsoleStartTest, EndsWithoutAnInstallation)
{
    SetEnvironmentVariableW(L"VOLTARO_HOME", nullptr);
    const Console console;
    HWND box = nullptr;
    ASSERT_TRUE(WaitFor(
        [&] { return (box = FindWindowW(nullptr, L"Could not read Environment variable 'VOLTARO_HOME'")) != nullptr; },
        10'000));
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(console.ExitCode(3'000), 0);
    EXPECT_EQ(MainWindow(), nullptr);
}

} // namespace
} // namespace voltaro
