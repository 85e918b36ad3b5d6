#include "console/connection_state.h"
#include "console/main_hold.h"
#include "console/ui_calls.h"
#include "shell/about.h"
#include "shell/main_menus.h"
#include "shell/tray.h"
#include "shell/update_window.h"
#include "shell/workers.h"
#include "soak/held.h"
#include "support/fake_tray.h"
#include "support/program.h"
#include "ui/menus.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <random>
#include <thread>

namespace voltaro {
namespace {

constexpr int kUpdateOk = 8505, kCloseVoltaro = 8504;

std::mt19937 dice;
std::atomic<int> steps{0};
bool isLossOwed = false; // connected since the last box that told of a loss
bool isExcused = false;  // the user has asked for a new check since

std::size_t Throw(std::size_t sides)
{
    return dice() % sides;
}

template <class T, std::size_t N>
T Any(const T (&values)[N])
{
    return values[Throw(N)];
}

// Looks at the connection at every message of the main window, so that none goes unseen.
LRESULT CALLBACK Observe(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR)
{
    const auto look = [] {
        isLossOwed = isLossOwed || connection.connected;
        isExcused = isExcused && !connection.connected;
    };
    look();
    isExcused = isExcused || (message == WM_COMMAND && w == kReinitialize);
    const LRESULT answer = DefSubclassProc(window, message, w, l);
    look();
    return answer;
}

// A box is open for a while, as a message loop of its own, and leaves its owner enabled.
Answer OnBox(const BoxCall& call)
{
    const bool tellsLoss
        = call.caption == L"Connection Issue" && call.text.find(L"Hint :To check") != std::wstring::npos;
    EXPECT_TRUE(!tellsLoss || std::exchange(isLossOwed, false)) << "told twice, step " << steps;
    MSG message;
    EnableWindow(call.owner, FALSE);
    for (std::size_t i = Throw(20); OpenBoxes() < 4 && i > 0; --i) {
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
    EnableWindow(call.owner, TRUE);
    if (call.buttons == BoxButtons::Ok)
        return Answer::Ok;
    return call.caption.starts_with(L"Close Voltaro") || Throw(2) ? Answer::No : Answer::Yes;
}

std::vector<HWND> OpenWindows()
{
    std::vector<HWND> open;
    for (std::size_t i = 0; i <= windowHandles.size(); ++i) {
        const HWND window = i < windowHandles.size() ? windowHandles[i] : AboutWindow();
        if (window && IsWindowVisible(window) && GetAncestor(window, GA_ROOT) == window)
            open.push_back(window);
    }
    return open;
}

// A control that the user can reach; null where there is none.
HWND AnyControl()
{
    std::vector<HWND> controls;
    for (const HWND window : OpenWindows()) {
        EnumChildWindows(
            window,
            [](HWND control, LPARAM list) -> BOOL {
                if (IsWindowVisible(control) && IsWindowEnabled(control)
                    && IsWindowEnabled(GetAncestor(control, GA_ROOT)) && GetDlgCtrlID(control) != kCloseVoltaro)
                    reinterpret_cast<std::vector<HWND>*>(list)->push_back(control);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&controls));
    }
    return controls.empty() ? nullptr : controls[Throw(controls.size())];
}

void ToMain(UINT message, WPARAM w, LPARAM l = 0)
{
    PostMessageW(WindowOf(WindowId::Main), message, w, l);
}

void ChooseFromBar()
{
    constexpr int kItems[] = {kPowerScheme, kSystemInfo, kJobScheduler, kUpdate, kPorts, kBatteryInfo, kSavingsReport,
        kActivate, kProxy, kSecurity, kSnooze, kAbout, kRefresh, kMenuExitToTray, kClose, kHelp, kReinitialize,
        kReinitialize, kReinitialize, kReinitialize};
    const int item = Any(kItems);
    if (IsWindowEnabled(WindowOf(WindowId::Main)) && IsItemEnabled(MainMenuBar(), static_cast<unsigned>(item)))
        ToMain(WM_COMMAND, static_cast<WPARAM>(item));
}

void ChooseFromTray()
{
    constexpr int kItems[] = {kTrayVoltaro, kTrayAbout, kTrayHelp, kTrayClose, kPauseOneHour, kPauseFiveHours, kResume};
    const int item = Any(kItems);
    if (IsItemEnabled(TrayMenu(), static_cast<unsigned>(item)))
        ToMain(WM_COMMAND, static_cast<WPARAM>(item));
}

void Click()
{
    const HWND control = AnyControl();
    SetFocus(control);
    PostMessageW(control, BM_CLICK, 0, 0);
}

void PressAny()
{
    constexpr WORD kKeys[] = {VK_TAB, VK_TAB, VK_RETURN, VK_ESCAPE, VK_SPACE, VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT,
        VK_HOME, VK_END, VK_PRIOR, VK_NEXT, VK_DELETE, VK_F1, VK_F5, 'A', '7'};
    constexpr WORD kModifiers[] = {0, 0, 0, VK_CONTROL, VK_SHIFT};
    if (GetDlgCtrlID(GetFocus()) != kCloseVoltaro)
        Press(Any(kKeys), Any(kModifiers));
}

void Tick()
{
    PostMessageW(windowHandles[Throw(windowHandles.size())], WM_TIMER, Throw(4), 0);
}

void Tray()
{
    constexpr LPARAM kEvents[] = {WM_LBUTTONUP, WM_LBUTTONUP, WM_MOUSEMOVE, WM_RBUTTONUP, NIN_KEYSELECT};
    ToMain(kTrayMessage, 9013, Any(kEvents));
}

void Power()
{
    constexpr WPARAM kEvents[]
        = {PBT_APMPOWERSTATUSCHANGE, PBT_APMPOWERSTATUSCHANGE, PBT_APMSUSPEND, PBT_APMRESUMEAUTOMATIC};
    ToMain(WM_POWERBROADCAST, Any(kEvents));
}

void System()
{
    const UINT messages[] = {WM_SYSCOLORCHANGE, WM_THEMECHANGED, WM_DISPLAYCHANGE, WM_SETTINGCHANGE, WM_QUERYENDSESSION,
        RegisterWindowMessageW(L"TaskbarCreated")};
    PostMessageW(windowHandles[Throw(2) ? 0 : Throw(windowHandles.size())], Any(messages), 0, 0);
}

void Close()
{
    const std::vector<HWND> open = OpenWindows();
    if (!open.empty())
        PostMessageW(open[Throw(open.size())], WM_CLOSE, 0, 0);
}

constexpr void (*kActions[])() = {ChooseFromBar, ChooseFromBar, ChooseFromTray, Click, Click, Click, PressAny, PressAny,
    Tick, Tray, Power, System, Close};

class StormTest : public testing::Test {
protected:
    StormTest()
    {
        const char* seed = std::getenv("VOLTARO_SEED");
        m_seed = seed ? static_cast<unsigned>(std::atoi(seed)) : 1;
        std::printf("seed %u\n", m_seed);
        dice.seed(m_seed);
        timing.pollerPeriod = 30;
        program.Agent().Stop(); // from now on another one stands at its port
        platformCalls.showMessageBox = &OnBox;
        platformCalls.showHelp = [](HWND, const std::wstring&) {};
        platformCalls.lockScreen = [] {};
        platformCalls.chooseFile = [](HWND, const FileDialog&) { return std::optional<std::wstring>(L"C:\\a.exe"); };
        SetWindowSubclass(WindowOf(WindowId::Main), &Observe, 0, 0);
        AddTrayIcon(WindowOf(WindowId::Main));
    }
    ~StormTest() override { RemoveTrayIcon(); }

    // Kills and revives the agent, takes back the menus that the program waits in, and ends it all when it hangs.
    void Guard(const std::stop_token& over, DWORD uiThread)
    {
        std::mt19937 own(m_seed);
        ULONGLONG moved = GetTickCount64();
        int seen = -1;
        for (int tick = 0; !over.stop_requested(); ++tick, Sleep(20)) {
            GUITHREADINFO info{};
            info.cbSize = sizeof info;
            if (GetGUIThreadInfo(uiThread, &info) && (info.flags & GUI_INMENUMODE))
                PostMessageW(info.hwndMenuOwner, WM_CANCELMODE, 0, 0);
            moved = seen == steps ? moved : GetTickCount64();
            seen = steps;
            if (GetTickCount64() - moved > 20'000) {
                std::printf("no step since %d, seed %u\n[  FAILED  ]\n", seen, m_seed);
                std::fflush(stdout);
                TerminateProcess(GetCurrentProcess(), 3);
            }
            if (tick % 20 == 10) {
                agent.Stop();
            } else if (tick % 20 == 0) {
                const auto kind = static_cast<FaultKind>(own() % 2 ? 0 : own() % simulator::FaultInfos().size());
                agent.SetFault(L"*", {kind == FaultKind::Refuse ? FaultKind::CloseAtOnce : kind, {}});
                static_cast<void>(agent.Start(program.Agent().Port()));
            }
        }
    }

    static void ExpectReachable()
    {
        const std::vector<HWND> open = OpenWindows();
        ASSERT_TRUE(open.empty() || std::ranges::any_of(open, [](HWND window) { return IsWindowEnabled(window) != 0; }))
            << "nothing takes input, step " << steps;
        const auto isTold = [] { return !isLossOwed || isExcused || connection.connected; };
        ASSERT_TRUE(isTold() || WaitFor(isTold, 2'000)) << "a loss was not told, step " << steps;
    }

    FakeTray tray;
    LoadedProgram program;
    simulator::AgentServer agent;
    unsigned m_seed;
};

TEST_F(StormTest, LeavesTheProgramAsItWas)
{
    const int count = IsLongRun() ? 10'000 : 400;
    std::jthread guard([&, thread = GetCurrentThreadId()](const std::stop_token& over) { Guard(over, thread); });
    for (steps = 0; steps < count && !HasFatalFailure(); ++steps) {
        if (steps % 500 == 0) {
            StopWorkers(StopOrder::SessionEnds);
            ASSERT_TRUE(StartWorkers()); // the poller has ended with the first loss
        }
        Any(kActions)();
        Pump();
        ExpectReachable();
    }
    guard = {}; // joined
    agent.ClearFaults();
    ASSERT_TRUE(agent.Start(program.Agent().Port()));
    const auto close = [] {
        SendMessageW(WindowOf(WindowId::Update), WM_COMMAND, kUpdateOk, 0);
        for (const HWND window : OpenWindows())
            PostMessageW(window, window == WindowOf(WindowId::Main) ? WM_NULL : WM_CLOSE, 0, 0);
        Pump();
        return OpenWindows().size() <= 1;
    };
    EXPECT_TRUE(WaitFor(close));
    program.Command(WindowId::Main, kReinitialize);
    EXPECT_TRUE(connection.connected && IsConsoleReady() && OpenBoxes() == 0);
    for (const HWND window : windowHandles)
        EXPECT_TRUE(IsWindowEnabled(window)) << WindowText(window);
    StopWorkers(StopOrder::MainWindowDestroyed);
}

} // namespace
} // namespace voltaro
