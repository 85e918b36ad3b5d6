#include "soak/held.h"
#include "support/fake_tray.h"
#include "support/program.h"

#include <random>

namespace voltaro {
namespace {

constexpr int kUpdateOk = 8505, kCloseVoltaro = 8504; // the latter ends the program

std::mt19937 generator(Seed());
std::atomic<int> steps{0};
int losses = 0;          // told
bool isLossOwed = false; // the program was connected since the last box that told of a loss
bool isExcused = false;  // and the user has asked for a new check since

std::size_t RandomBelow(std::size_t count)
{
    return generator() % count;
}

template <class Values>
auto Any(const Values& values)
{
    return values[RandomBelow(std::size(values))];
}

// Looks at the connection before and after every message of the main window.
LRESULT CALLBACK Observe(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR)
{
    isLossOwed |= connection.connected;
    isExcused = (isExcused && !connection.connected) || (message == WM_COMMAND && w == kReinitialize);
    const LRESULT answer = DefSubclassProc(window, message, w, l);
    isLossOwed |= connection.connected;
    return answer;
}

// The box is open for a while, as a message loop of its own, and leaves its owner enabled.
Answer OnBox(const BoxCall& call)
{
    if (call.caption == L"Connection Issue" && call.text.find(L"Hint :To check") != std::wstring::npos) {
        ++losses;
        EXPECT_TRUE(std::exchange(isLossOwed, false)) << "told twice, step " << steps;
    }
    MSG message;
    EnableWindow(call.owner, FALSE);
    for (std::size_t i = RandomBelow(20); OpenBoxes() < 4 && i > 0; --i) {
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
    EnableWindow(call.owner, TRUE);
    if (call.buttons == BoxButtons::Ok)
        return Answer::Ok;
    return call.caption.starts_with(L"Close Voltaro") || RandomBelow(2) ? Answer::No : Answer::Yes;
}

BOOL CALLBACK AddIfVisible(HWND window, LPARAM list)
{
    if (IsWindowVisible(window) && ((GetWindowLongW(window, GWL_STYLE) & (WS_CHILD | WS_CAPTION)) != 0))
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> OpenWindows()
{
    std::vector<HWND> open;
    EnumThreadWindows(GetCurrentThreadId(), &AddIfVisible, reinterpret_cast<LPARAM>(&open));
    return open;
}

// From the menu of the notification area now and then, and whenever the bar cannot be reached.
void Choose()
{
    const bool tray = RandomBelow(3) == 0 || !IsWindowEnabled(WindowOf(WindowId::Main));
    HMENU menu = tray ? TrayMenu() : MainMenuBar();
    int at = 0;
    for (HMENU inner = menu; inner != nullptr; inner = GetSubMenu(menu, at)) {
        menu = inner;
        at = static_cast<int>(RandomBelow(static_cast<std::size_t>(GetMenuItemCount(menu))));
    }
    const bool again = !tray && !connection.connected && RandomBelow(2) == 0;
    const UINT item = again ? static_cast<UINT>(kReinitialize) : GetMenuItemID(menu, at);
    if (item != kWebSite && IsItemEnabled(tray ? TrayMenu() : MainMenuBar(), item))
        PostMessageW(WindowOf(WindowId::Main), WM_COMMAND, item, 0);
}

// Clicks a control that the user can reach, or closes its window.
void Click()
{
    std::vector<HWND> controls;
    for (const HWND window : OpenWindows()) {
        if (IsWindowEnabled(window))
            EnumChildWindows(window, &AddIfVisible, reinterpret_cast<LPARAM>(&controls));
    }
    std::erase_if(controls, [](HWND control) {
        return !IsWindowEnabled(control) || (GetWindowLongW(control, GWL_STYLE) & WS_TABSTOP) == 0
            || GetDlgCtrlID(control) == kCloseVoltaro;
    });
    if (controls.empty())
        return;
    const HWND control = Any(controls);
    SetFocus(control);
    if (RandomBelow(4))
        PostMessageW(control, BM_CLICK, 0, 0);
    else
        PostMessageW(GetAncestor(control, GA_ROOT), WM_CLOSE, 0, 0);
}

void PressAny()
{
    constexpr WORD kKeys[] = {VK_TAB, VK_TAB, VK_RETURN, VK_ESCAPE, VK_SPACE, VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT,
        VK_HOME, VK_END, VK_PRIOR, VK_NEXT, VK_DELETE, VK_F1, VK_F5, 'A', '7'};
    constexpr WORD kModifiers[] = {0, 0, 0, VK_CONTROL, VK_SHIFT};
    if (GetDlgCtrlID(GetFocus()) != kCloseVoltaro)
        Press(Any(kKeys), Any(kModifiers));
}

// A message of the shell or the system, to the window that gets it or to any other.
void PostSystemMessage()
{
    const std::tuple<UINT, WPARAM, LPARAM> kMessages[]
        = {{kTrayMessage, 9013, WM_LBUTTONUP}, {kTrayMessage, 9013, WM_LBUTTONUP}, {kTrayMessage, 9013, WM_RBUTTONUP},
            {kTrayMessage, 9013, NIN_KEYSELECT}, {WM_TIMER, 1, 0}, {WM_TIMER, RandomBelow(100), 0},
            {WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0}, {WM_POWERBROADCAST, PBT_APMSUSPEND, 0},
            {RegisterWindowMessageW(L"TaskbarCreated"), 0, 0}, {WM_QUERYENDSESSION, 0, 0}, {WM_SYSCOLORCHANGE, 0, 0},
            {WM_THEMECHANGED, 0, 0}, {WM_DISPLAYCHANGE, 0, 0}, {WM_SETTINGCHANGE, 0, 0}};
    const auto [message, w, l] = Any(kMessages);
    PostMessageW(RandomBelow(2) ? WindowOf(WindowId::Main) : Any(windowHandles), message, w, l);
}

constexpr void (*kActions[])() = {Choose, Choose, Choose, Click, Click, Click, Click, PressAny, PressAny,
    PostSystemMessage, PostSystemMessage, PostSystemMessage};

// Kills and revives the agent, which then answers rubbish every other time; closes the menus that wait for the user.
void Guard(const std::stop_token& over, simulator::AgentServer& agent, int port, DWORD uiThread)
{
    std::mt19937 own(Seed());
    for (int tick = 0; !over.stop_requested(); ++tick, Sleep(20)) {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        if (GetGUIThreadInfo(uiThread, &info) && (info.flags & GUI_INMENUMODE))
            PostMessageW(info.hwndMenuOwner, WM_CANCELMODE, 0, 0);
        if (tick % 20 == 10)
            agent.Stop();
        if (tick % 20 == 0) {
            const auto kind = static_cast<FaultKind>(own() % 2 ? own() % simulator::FaultInfos().size() : 0);
            agent.SetFault(L"*", {kind == FaultKind::Refuse ? FaultKind::CloseAtOnce : kind, {}});
            static_cast<void>(agent.Start(port));
        }
    }
}

// A window that takes no input waits for another one, and a loss has been told.
void ExpectLive()
{
    const std::vector<HWND> open = OpenWindows();
    for (const HWND window : open) {
        const auto holds = [window](HWND other) {
            return other != window && (window == WindowOf(WindowId::Main) || GetWindow(other, GW_OWNER) == window);
        };
        ASSERT_TRUE(IsWindowEnabled(window) || std::ranges::any_of(open, holds)) << "left disabled, step " << steps;
    }
    const auto isTold = [] { return !isLossOwed || isExcused || connection.connected; };
    ASSERT_TRUE(WaitFor(isTold, 2'000)) << "a loss was not told, step " << steps;
}

TEST(StormTest, LeavesTheProgramAsItWasAndPollingGoesOn)
{
    FakeTray tray;
    LoadedProgram program;
    simulator::AgentServer agent; // at the port of the program's own
    const int port = program.Agent().Port();
    program.Agent().Stop();
    timing.pollerPeriod = 30;
    platformCalls.showMessageBox = &OnBox;
    platformCalls.showHelp = [](HWND, const std::wstring&) {};
    platformCalls.lockScreen = [] {};
    platformCalls.chooseFile = [](HWND, const FileDialog&) { return std::optional<std::wstring>(L"C:\\a.exe"); };
    SetWindowSubclass(WindowOf(WindowId::Main), &Observe, 0, 0);
    AddTrayIcon(WindowOf(WindowId::Main));
    {
        const std::jthread guard(&Guard, std::ref(agent), port, GetCurrentThreadId());
        for (steps = 0; steps < (IsLongRun() ? 10'000 : 300) && !testing::Test::HasFatalFailure(); ++steps) {
            if (steps % 100 == 0) { // in the middle of what they do; the poller has ended with the first loss
                const ULONGLONG start = GetTickCount64();
                StopWorkers(steps % 200 ? StopOrder::MainWindowDestroyed : StopOrder::SessionEnds);
                EXPECT_LT(GetTickCount64() - start, 1'000U) << steps;
                EXPECT_TRUE(StartWorkers());
            }
            Any(kActions)();
            Pump();
            ExpectLive();
        }
    }
    std::printf("seed %u: %d steps, %d losses\n", Seed(), steps.load(), losses);
    StopWorkers(StopOrder::MainWindowDestroyed);
    agent.ClearFaults();
    ASSERT_TRUE(agent.Start(port));
    EXPECT_TRUE(WaitFor([] {
        SendMessageW(WindowOf(WindowId::Update), WM_COMMAND, kUpdateOk, 0);
        for (const HWND window : OpenWindows())
            PostMessageW(window, window == WindowOf(WindowId::Main) ? WM_NULL : WM_CLOSE, 0, 0);
        Pump();
        return OpenWindows().size() <= 1;
    }));
    program.Command(WindowId::Main, kReinitialize);
    EXPECT_TRUE(connection.connected && IsConsoleReady() && OpenBoxes() == 0);
    for (const HWND window : windowHandles)
        EXPECT_TRUE(IsWindowEnabled(window)) << WindowText(window);
    program.Command(WindowId::Main, kResume);
    timing.pollerPeriod = IsLongRun() ? 480 : 8;
    ExpectNoGrowth("eight hours of polling", [&](int) {
        agent.ClearRequests();
        EXPECT_TRUE(StartWorkers());
        EXPECT_TRUE(WaitFor([&] { return agent.Requests().size() >= 120; }, 120'000));
        StopWorkers(StopOrder::MainWindowDestroyed);
        const auto polls = static_cast<int>(agent.Requests().size() / 2); // the pause's request is built once for all
        agent.ClearRequests();
        tray.ForgetCalls();
        return Left{0, polls, 0};
    });
    ASSERT_TRUE(StartWorkers());
    losses = 0;
    agent.Stop();
    EXPECT_TRUE(WaitFor([] { return losses == 1; }));
    StopWorkers(StopOrder::MainWindowDestroyed);
    RemoveTrayIcon();
}

} // namespace
} // namespace voltaro
