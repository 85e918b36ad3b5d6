#include "shell/tray.h"

#include "power/processor_strip.h"
#include "shell/pause.h"
#include "support/fake_tray.h"
#include "support/program.h"

namespace voltaro {

struct LoadedTrayTest : testing::Test, LoadedProgram { };

TEST(TrayTest, CallsTheShellWithOneRecord)
{
    FakeTray tray;
    ConsoleProgram program;
    const HWND main = WindowOf(WindowId::Main);
    ChangeTrayIcon(1002, L"Voltaro Paused"); // not there yet: nothing to change
    EXPECT_TRUE(tray.Calls().empty());
    AddTrayIcon(main);
    ChangeTrayIcon(1002, std::wstring(300, L'x'));
    SendMessageW(main, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    Pump();
    RemoveTrayIcon();
    RemoveTrayIcon();
    const auto& calls = tray.Calls();
    ASSERT_EQ(calls.size(), 4U);
    constexpr ULONG_PTR kMade[] = {NIM_ADD, NIM_MODIFY, NIM_ADD, NIM_DELETE};
    for (std::size_t i = 0; i < calls.size(); ++i) {
        EXPECT_TRUE(calls[i].what == kMade[i] && calls[i].id == 9013 && calls[i].callback == 1025) << i;
        EXPECT_EQ(calls[i].window, static_cast<DWORD>(reinterpret_cast<DWORD_PTR>(main)));
    }
    EXPECT_EQ(calls[0].tooltip, L"Voltaro - Standard Edition  \n[ Version : 1.06.006.000 ]");
    EXPECT_EQ(calls[2].tooltip, std::wstring(127, L'x'));
    EXPECT_TRUE(calls[2].icon == calls[1].icon && calls[1].icon != calls[0].icon);
}

TEST(TrayTest, ALeftClickRestoresOnceTheConsoleWasLoaded)
{
    ConsoleProgram program;
    for (const bool loaded : {false, true}) {
        program.MainCommand(kMenuExitToTray);
        program.TakeOperations();
        program.ClickTrayIcon();
        EXPECT_EQ(program.IsOpen(WindowId::Main), loaded);
        EXPECT_EQ(program.TakeOperations(), Operations(loaded, L"GetBatteryInfo"));
        program.Load();
    }
}

// The shell reports clicks, and Windows a change of the power source, also while a request waits for its answer.
TEST_F(LoadedTrayTest, WhatComesDuringARequestFollowsItOnce)
{
    Agent().SetFault(L"GetBatteryInfo", {FaultKind::Late, L"200"});
    std::jthread shell([this] {
        Sleep(50);
        for (int i = 0; i < 10; ++i) {
            SendNotifyMessageW(main, kTrayMessage, 9013, WM_LBUTTONUP);
            SendNotifyMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
        }
    });
    ClickTrayIcon(); // asks for the battery itself, and nobody calls the agent lost
    shell.join();
    Pump();
    EXPECT_TRUE(TakeOperations() == Operations(3, L"GetBatteryInfo") && connection.connected);
}

// A box is open for a while, as a message loop of its own, in which the shell reports all it can.
TEST_F(LoadedTrayTest, WhatComesWhileABoxIsOpenFollowsItOnce)
{
    static int messages;
    static LoadedProgram* program;
    messages = 0;
    program = this;
    platformCalls.showMessageBox = [](const BoxCall&) {
        for (const LPARAM mouse : {WM_MOUSEMOVE, WM_LBUTTONUP, WM_MOUSEMOVE, WM_LBUTTONUP})
            PostMessageW(program->main, kTrayMessage, 9013, mouse);
        for (int i = 0; i < 10; ++i)
            SendMessageW(program->main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
        MSG message;
        for (const ULONGLONG end = GetTickCount64() + 200; GetTickCount64() < end; Sleep(1)) {
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                DispatchMessageW(&message);
                ++messages;
            }
        }
        EXPECT_EQ(program->TakeOperations(), Operations{}) << "no request under an open box";
        return Answer::No;
    };
    SendMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0); // served when the box is open already
    MainCommand(kTrayClose);
    EXPECT_LT(messages, 100);
    EXPECT_EQ(TakeOperations(), Operations(2, L"GetBatteryInfo")); // one for the clicks, one for the power
}

TEST_F(LoadedTrayTest, AnIconThatIsNotTakenIsTriedAgain)
{
    FakeTray tray;
    timing.trayRetry = 20;
    tray.RefuseIcons(true);
    AddTrayIcon(main);
    MainCommand(kExitToTray);
    EXPECT_TRUE(IsWindowVisible(main) && IsIconic(main)); // where else would the user find it
    tray.RefuseIcons(false);
    EXPECT_TRUE(WaitFor([&] { return !tray.Calls().empty(); }, 3'000));
    EXPECT_FALSE(WaitFor([&] { return tray.Calls().size() > 1; }, 100)) << "added once";
    MainCommand(kExitToTray);
    EXPECT_FALSE(IsWindowVisible(main));
    RemoveTrayIcon();
}

// What Look gives; 0 hours for running.
static std::wstring LookFor(int hours)
{
    std::wstring ticks = L"-----";
    if (hours == 0)
        return ticks + L"+.. Voltaro - Standard Edition  \n[ Version : 1.06.006.000 ]";
    ticks[static_cast<std::size_t>(hours - 1)] = L'x';
    return ticks + L".++ Voltaro Paused";
}

struct PauseTest : testing::Test, LoadedProgram {
    PauseTest() { AddTrayIcon(main); }
    ~PauseTest() override { RemoveTrayIcon(); }

    // The ticks; whether the pause items (all or none) and the two "Resume" items are enabled; the tray's tooltip.
    std::wstring Look() const
    {
        const auto enabled = [](HMENU menu, unsigned id) { return IsItemEnabled(menu, id) ? L'+' : L'.'; };
        const wchar_t pause = enabled(PauseMenu(), kPauseOneHour);
        std::wstring look;
        for (unsigned id = kPauseOneHour; id <= kPauseFiveHours; ++id) {
            look += GetMenuState(PauseMenu(), id, MF_BYCOMMAND) & MF_CHECKED ? L'x' : L'-';
            EXPECT_EQ(enabled(PauseMenu(), id), pause) << id;
        }
        look += {pause, enabled(MainMenuBar(), kResume), enabled(TrayMenu(), kResume), L' '};
        EXPECT_EQ(tray.Last().icon == tray.Calls()[0].icon, pause == L'+');
        EXPECT_EQ(*TooltipOf(ControlOf(main, kResumeButton)) == L'\0', pause == L'+');
        return look + tray.Last().tooltip;
    }

    FakeTray tray;
};

TEST_F(PauseTest, ShowsEveryStatusAndAsksForTheHoursChosen)
{
    EXPECT_EQ(Look(), LookFor(0));
    // A status, and the hours that are shown after it.
    constexpr std::pair<const wchar_t*, int> kRows[] = {{L"3", 3}, {L"6", 3}, {L"0", 3}, {L"-1", 3}, {L"03", 3},
        {L"33", 3}, {L"", 3}, {L"Running", 3}, {L"<vltp><response>", 3}, {kNoAnswer, 3}, {L"1", 1}, {L"resumed", 0},
        {L"6", 0}, {L"2", 2}, {L"RESUMED", 0}, {kNoAnswer, 0}, {L"5", 5}, {L"4", 4}, {L"Resumed", 0}};
    for (const auto& [status, hours] : kRows) {
        AnswerWith(L"PauseStatus", status);
        MainCommand(kRefresh);
        EXPECT_EQ(Look(), LookFor(hours)) << status;
        EXPECT_EQ(notPaused, hours == 0);
    }
    for (int hours = 1; hours <= 5; ++hours) {
        MainCommand(kPauseNone + hours);
        EXPECT_EQ(Look(), LookFor(hours));
        ExpectSent(L"Pause", Format(L"duration=%d", hours));
        EXPECT_FALSE(IsOpen(WindowId::Main) || IsOn(kChange));
        MainCommand(hours % 2 ? kResume : kResumeButton);
        EXPECT_TRUE(IsOn(kChange) && !notPaused); // until the next status is read
    }
}

TEST_F(PauseTest, HidesWhatHasTheConsoleAndLeavesItUsable)
{
    MainCommand(kPowerScheme);
    Command(WindowId::SchemeProcessor, kNewPolicy);
    EXPECT_FALSE(IsEnabled(WindowOf(WindowId::Scheme))); // by its policy window
    MainCommand(kTrayAbout);
    MainCommand(kPauseOneHour);
    EXPECT_EQ(AboutWindow(), nullptr);
    for (const WindowId window : {WindowId::Main, WindowId::Scheme, WindowId::Policy})
        EXPECT_TRUE(IsEnabled(WindowOf(window)) && !IsOpen(window));
}

TEST_F(PauseTest, ResumesWhateverIsAnsweredAndPausesOnSuccessAlone)
{
    const Operations kResumed = {L"Resume"}, kAsked = {L"Pause"}, kLicenseToo = {L"Pause", L"GetActivationstatus"};
    const std::tuple<const wchar_t*, ExpectedBox, Operations> kRows[]
        = {{L"success", {}, kResumed}, {L"failure", {L"Resume Failed", L"Could not Resume"}, kResumed},
            {L"Not Activated", {}, kResumed}, {L"", {}, kResumed}, {kMalformed, {}, kResumed},
            {kNoAnswer, {}, kResumed}, {L"FAILURE", {L"Pause Failed", L"Could not Pause"}, kAsked},
            {L"not activated", {L"Unable to pause", L"'Localhost' is not activated"}, kLicenseToo},
            {L"License Expired", {L"Unable to pause", L"'Localhost' has expired"}, kLicenseToo}, {L"Later", {}, kAsked},
            {L"", {}, kAsked}, {kMalformed, {}, kAsked}, {kNoAnswer, {}, kAsked}};
    for (const auto& [status, box, asked] : kRows) {
        SCOPED_TRACE(asked[0] + L" " + status);
        const bool resumes = asked == kResumed;
        if (resumes)
            MainCommand(kPauseFiveHours);
        else
            ShowWindow(main, SW_SHOW); // where the pauses have hidden it
        boxes.Expect({box});
        AnswerWith(asked[0], status);
        MainCommand(resumes ? kResume : kPauseOneHour);
        EXPECT_TRUE(Look() == LookFor(0) && (resumes || (IsOpen(WindowId::Main) && TakeOperations() == asked)));
    }
}

} // namespace voltaro
