#include "savings/graph_view.h"
#include "soak/held.h"
#include "support/fake_tray.h"
#include "support/openings.h"
#include "support/program.h"

#include <ranges>

namespace voltaro {
namespace {

// A piece of work, done so often in the long run; the tests do a two-hundredth.
struct Work {
    const char* what;
    int count;
    void (*step)(ConsoleProgram& program, int number);
    int socketsLeft = 0; // on purpose, by each step
    int labels = 0;      // that each step destroys
};

constexpr auto kAllButMainAndAbout = std::views::filter(
    [](const Opening& row) { return row.window != WindowId::Main && row.window != WindowId::Count; });

void CloseAll()
{
    for (const Opening& row : kOpenings | kAllButMainAndAbout | std::views::reverse) {
        SendMessageW(WindowOf(row.window), row.window == WindowId::Update ? WM_COMMAND : WM_CLOSE, IDOK, 0);
        EXPECT_FALSE(ConsoleProgram::IsOpen(row.window)) << row.command;
    }
    Pump();
}

void OpenAndClose(ConsoleProgram& program, int)
{
    for (const Opening& row : kOpenings | kAllButMainAndAbout) {
        const HWND opened = WindowOf(row.window);
        if (row.button) {
            program.Do({{row.button}});
        } else {
            CloseAll();
            program.Command(row.opener, row.command);
        }
        EXPECT_TRUE(row.window != WindowId::Update || WaitFor([] { return !updateBusy; }));
        EXPECT_TRUE(IsWindowVisible(opened)) << row.command;
        HWND tab = nullptr;
        while ((tab = FindWindowExW(opened, tab, WC_TABCONTROLW, nullptr)) != nullptr) {
            for (int page = TabCtrl_GetItemCount(tab); page-- > 0;)
                ClickTab(tab, page);
        }
    }
    CloseAll();
}

void OpenAndCloseAbout(ConsoleProgram& program, int)
{
    program.Command(WindowId::Main, kAbout);
    SendMessageW(AboutWindow(), WM_COMMAND, IDOK, 0);
    EXPECT_EQ(AboutWindow(), nullptr);
}

void Repaint(ConsoleProgram&, int number)
{
    RefreshGraphPage(); // draws it anew
    const HWND window = windowHandles[static_cast<std::size_t>(number) % windowHandles.size()];
    for (const HWND painted : {WindowOf(WindowId::Main), window}) {
        ShowWindow(painted, SW_SHOWNA);
        RedrawWindow(painted, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    }
}

template <FaultKind Kind, Outcome Expected>
void ExchangeOnce(ConsoleProgram& program, int)
{
    program.Agent().SetFault(L"*", {Kind, {}});
    Reply reply = Exchange(Plain(Operation::GetSystemDetails));
    EXPECT_EQ(reply.Result(), Expected);
    static_cast<void>(reply.Root());
}

void Refresh(ConsoleProgram& program, int number)
{
    program.Command(WindowId::Main, kRefresh);
    const bool details = number % 2 == 0;
    const std::size_t expected = program.Agent().Requests().size() + (details ? 1 : 3);
    const Operation last = details ? Operation::GetSystemDetails : Operation::GetCurrentPowerSettings;
    RequestBackgroundRefresh(details ? kRefreshSystemDetails : kRefreshPowerData);
    EXPECT_TRUE(WaitFor([&] { return program.Agent().Requests().size() >= expected && !IsHeld(last); }));
}

void PauseAndRestore(ConsoleProgram& program, int number)
{
    const HWND main = WindowOf(WindowId::Main);
    program.Command(WindowId::Main, kPauseOneHour + number % kPauseHours);
    program.ClickTrayIcon();
    EXPECT_TRUE(IsWindowVisible(main));
    program.Command(WindowId::Main, kResume);
    program.Command(WindowId::Main, kExitToTray);
    SendMessageW(main, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    program.Command(WindowId::Main, kTrayVoltaro);
}

// clang-format off
constexpr Work kWorks[] = {
    {"windows opened, pages turned, closed",   200, OpenAndClose},
    {"about box",                              200, OpenAndCloseAbout, 0, 9},
    {"exchanges, answered",                  1'000, ExchangeOnce<FaultKind::None, Outcome::Answered>},
    {"exchanges, nobody listens",            1'000, ExchangeOnce<FaultKind::Refuse, Outcome::CannotConnect>, 1},
    {"exchanges, closed without an answer",  1'000, ExchangeOnce<FaultKind::CloseAtOnce, Outcome::ClosedByAgent>},
    {"exchanges, closed in an answer",       1'000, ExchangeOnce<FaultKind::CloseMidFrame, Outcome::ClosedByAgent>, 1},
    {"exchanges, answer too long",           1'000, ExchangeOnce<FaultKind::Length, Outcome::Damaged>, 1},
    {"exchanges, not well-formed",           1'000, ExchangeOnce<FaultKind::NotWellFormed, Outcome::Answered>},
    {"refreshes",                              300, Refresh},
    {"pause and tray round trips",             300, PauseAndRestore},
    {"connection checks",                      300, [](ConsoleProgram& program, int) { program.Command(WindowId::Main, kReinitialize); }},
    {"repaints",                             2'000, Repaint},
};
// clang-format on

TEST(GrowthTest, WorkLeavesNothingBehind)
{
    FakeTray tray;
    LoadedProgram program;
    AddTrayIcon(WindowOf(WindowId::Main));
    ASSERT_TRUE(StartWorkers());
    shownDay = MakeShownDay({2024, 2, 29}, {{.poweredOn = 43200, .offTotal = 43200, .active = 43200}, {}, 0, 0}, {});
    platformCalls.showMessageBox
        = [](const BoxCall& call) { return call.buttons == BoxButtons::Ok ? Answer::Ok : Answer::Yes; };
    for (const Work& work : kWorks) {
        SCOPED_TRACE(work.what);
        program.Agent().ClearFaults();
        ExpectNoGrowth(work.what, [&](int share) {
            const int count = IsLongRun() ? work.count / share : work.count / 200 + 1;
            Left left{count * work.socketsLeft, 0, count * work.labels};
            for (int i = 0; i < count; ++i) {
                work.step(program, i);
                Operations built = program.TakeOperations();
                std::erase(built, L"PauseStatus"); // that one is built once for all
                left.requests += std::max(static_cast<int>(built.size()), work.socketsLeft);
            }
            tray.ForgetCalls();
            return left;
        });
    }
    shownDay.reset();
    StopWorkers(StopOrder::MainWindowDestroyed);
    RemoveTrayIcon();
}

} // namespace
} // namespace voltaro
