// The program itself, as a process of its own: how it ends, and how a second start leaves the first alone.
#include "base/handles.h"
#include "shell/main_commands.h"
#include "shell/window_table.h"
#include "support/fake_tray.h"
#include "support/program.h"
#include "ui/liveness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace voltaro {
namespace {

using simulator::FaultKind;

bool WaitFor(const std::function<bool()>& happened, unsigned milliseconds = 10'000)
{
    const ULONGLONG end = GetTickCount64() + milliseconds;
    while (!happened() && GetTickCount64() < end)
        WaitAlive(10);
    return happened();
}

std::wstring ProgramPath()
{
    wchar_t own[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, own, MAX_PATH);
    const std::wstring folder = std::wstring(own).substr(0, std::wstring_view(own).rfind(L'\\'));
    return folder + L"\\..\\bin\\VoltaroConsoleSE.exe";
}

UniqueHandle StartProgram()
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(CreateProcessW(
        ProgramPath().c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process));
    const UniqueHandle thread(process.hThread);
    return UniqueHandle(process.hProcess);
}

bool IsGone(const UniqueHandle& process)
{
    return WaitForSingleObject(process.Get(), 0) == WAIT_OBJECT_0;
}

class WholeProgramTest : public testing::Test {
protected:
    WholeProgramTest()
    {
        EXPECT_TRUE(agent.Start());
        UseInstallation(agent.Port());
        process = StartProgram();
        EXPECT_TRUE(WaitFor([&] { return HasAsked(L"GetPatchDetails"); }));
        main = FindWindowW(kMainClass, kMainTitle);
        EXPECT_TRUE(WaitFor([&] { return IsWindowEnabled(main) != FALSE; }));
        agent.ClearRequests();
    }
    ~WholeProgramTest() override
    {
        if (!IsGone(process))
            TerminateProcess(process.Get(), 1);
    }

    bool HasAsked(const wchar_t* operation) const
    {
        const auto requests = agent.Requests();
        return std::any_of(
            requests.begin(), requests.end(), [&](const auto& request) { return request.operation == operation; });
    }
    // Gives a command that ends in a request which the agent never answers.
    void HangIn(int command, const wchar_t* operation)
    {
        agent.SetFault(operation, {FaultKind::Silent, {}});
        PostMessageW(main, WM_COMMAND, static_cast<WPARAM>(command), 0);
        ASSERT_TRUE(WaitFor([&] { return HasAsked(operation); }));
    }
    void ExpectEndsSoon()
    {
        EXPECT_TRUE(WaitFor([&] { return IsGone(process); }, 2'000));
        DWORD code = 1;
        GetExitCodeProcess(process.Get(), &code);
        EXPECT_EQ(code, 0U);
        ASSERT_FALSE(tray.Calls().empty());
        EXPECT_EQ(tray.Last().what, static_cast<ULONG_PTR>(NIM_DELETE)); // a crash would leave the icon
    }

    simulator::AgentServer agent;
    FakeTray tray;
    UniqueHandle process;
    HWND main = nullptr;
};

TEST_F(WholeProgramTest, ClosesDuringAnUpdateCheck)
{
    HangIn(kUpdate, L"CheckForUpdates");
    PostMessageW(main, WM_COMMAND, kTrayClose, 0);
    HWND box = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (box = FindWindowW(L"#32770", L"Close Voltaro Console ?")) != nullptr; }));
    PostMessageW(box, WM_COMMAND, IDYES, 0);
    ExpectEndsSoon();
}

TEST_F(WholeProgramTest, EndsWithTheSessionWhileAWindowWaitsForTheAgent)
{
    HangIn(kRefresh, L"GetPowerSchemes");
    DWORD_PTR consent = 0;
    EXPECT_TRUE(SendMessageTimeoutW(
        main, WM_QUERYENDSESSION, 0, static_cast<LPARAM>(ENDSESSION_LOGOFF), SMTO_NORMAL, 2'000, &consent));
    EXPECT_TRUE(consent);
    ExpectEndsSoon();
}

TEST_F(WholeProgramTest, EndsWithTheSessionDuringAnUpdateCheck)
{
    HangIn(kUpdate, L"CheckForUpdates");
    DWORD_PTR answer = 0;
    for (const UINT message : {WM_QUERYENDSESSION, WM_ENDSESSION})
        SendMessageTimeoutW(main, message, TRUE, ENDSESSION_CLOSEAPP, SMTO_NORMAL, 2'000, &answer);
    ExpectEndsSoon();
}

TEST_F(WholeProgramTest, ASecondStartRestoresTheFirst)
{
    const auto startAgain = [&] {
        const UniqueHandle second = StartProgram();
        EXPECT_TRUE(WaitFor([&] { return IsGone(second); }, 5'000));
        EXPECT_TRUE(WaitFor([&] { return IsWindowVisible(main) != FALSE; }, 2'000));
    };
    PostMessageW(main, WM_COMMAND, kPauseOneHour, 0);
    ASSERT_TRUE(WaitFor([&] { return tray.Last().tooltip == L"Voltaro Paused"; }));
    EXPECT_FALSE(IsWindowVisible(main));
    const std::size_t calls = tray.Calls().size();
    startAgain(); // paused and hidden
    EXPECT_EQ(tray.Last().tooltip, L"Voltaro Paused");
    EXPECT_EQ(agent.Requests().size(), 1U);
    HangIn(kRefresh, L"GetPowerSchemes");
    startAgain(); // busy
    EXPECT_EQ(agent.Requests().size(), 2U);
    EXPECT_EQ(tray.Calls().size(), calls);
    EXPECT_FALSE(IsGone(process));
}

} // namespace
} // namespace voltaro
