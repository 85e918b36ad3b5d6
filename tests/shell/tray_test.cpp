#include "shell/tray.h"

#include "power/processor_strip.h"
#include "shell/pause.h"
#include "support/fake_tray.h"
#include "support/program.h"

namespace voltaro {

static void LeftClick()
{
    SendMessageW(WindowOf(WindowId::Main), kTrayMessage, 9013, WM_LBUTTONUP);
    Pump();
}

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
    std::vector<ULONG_PTR> made;
    for (const TrayCall& call : tray.Calls()) {
        made.push_back(call.what);
        EXPECT_EQ(call.window, static_cast<DWORD>(reinterpret_cast<DWORD_PTR>(main)));
        EXPECT_TRUE(call.id == 9013 && call.callback == 1025);
    }
    ASSERT_EQ(made, (std::vector<ULONG_PTR>{NIM_ADD, NIM_MODIFY, NIM_ADD, NIM_DELETE}));
    EXPECT_EQ(tray.Calls()[0].tooltip, L"Voltaro - Standard Edition  \n[ Version : 1.06.006.000 ]");
    EXPECT_EQ(tray.Calls()[2].tooltip, std::wstring(127, L'x'));
    EXPECT_EQ(tray.Calls()[2].icon, tray.Calls()[1].icon);
    EXPECT_NE(tray.Calls()[1].icon, tray.Calls()[0].icon);
}

TEST(TrayTest, ALeftClickRestoresOnceTheConsoleWasLoaded)
{
    ConsoleProgram program;
    for (const bool loaded : {false, true}) {
        if (loaded)
            program.Load();
        program.MainCommand(kMenuExitToTray);
        program.TakeOperations();
        LeftClick();
        EXPECT_EQ(program.IsOpen(WindowId::Main), loaded);
        EXPECT_EQ(program.TakeOperations(), Operations(loaded, L"GetBatteryInfo"));
    }
}

// The shell reports clicks, and Windows a change of the power source, also while a request waits for its answer.
TEST_F(LoadedTrayTest, WhatComesDuringARequestFollowsItOnce)
{
    Agent().SetFault(L"GetBatteryInfo", {FaultKind::Late, L"200"});
    std::thread shell([this] {
        Sleep(50);
        for (int i = 0; i < 10; ++i) {
            SendNotifyMessageW(main, kTrayMessage, 9013, WM_LBUTTONUP);
            SendNotifyMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
        }
    });
    LeftClick(); // asks for the battery itself, and nobody calls the agent lost
    shell.join();
    Pump();
    EXPECT_EQ(TakeOperations(), Operations(3, L"GetBatteryInfo"));
    EXPECT_TRUE(connection.connected);
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

constexpr const wchar_t* kRunning = L"----- usable, resume grey grey, Voltaro - Standard Edition  \n"
                                    L"[ Version : 1.06.006.000 ]";

static const wchar_t* Usable(HMENU menu, unsigned id)
{
    return IsItemEnabled(menu, id) ? L"usable" : L"grey";
}

// What Look gives; 0 hours for running.
static std::wstring LookFor(int hours)
{
    std::wstring ticks = L"-----";
    if (hours == 0)
        return kRunning;
    ticks[static_cast<std::size_t>(hours - 1)] = L'x';
    return ticks + L" grey, resume usable usable, Voltaro Paused";
}

struct PauseTest : testing::Test, LoadedProgram {
    PauseTest() { AddTrayIcon(main); }
    ~PauseTest() override { RemoveTrayIcon(); }

    // The ticks, the pause items (they are grey or usable together), the two "Resume" items and the tray's tooltip.
    std::wstring Look() const
    {
        std::wstring look;
        for (unsigned id = kPauseOneHour; id <= kPauseFiveHours; ++id) {
            look += GetMenuState(PauseMenu(), id, MF_BYCOMMAND) & MF_CHECKED ? L'x' : L'-';
            EXPECT_STREQ(Usable(PauseMenu(), id), Usable(PauseMenu(), kPauseOneHour)) << id;
        }
        look += Format(L" %ls, resume %ls %ls, %ls", Usable(PauseMenu(), kPauseOneHour), Usable(MainMenuBar(), kResume),
            Usable(TrayMenu(), kResume), tray.Last().tooltip.c_str());
        EXPECT_EQ(tray.Last().icon == tray.Calls()[0].icon, look[6] == L'u');
        EXPECT_EQ(*TooltipOf(ControlOf(main, kResumeButton)) == L'\0', look[6] == L'u');
        return look;
    }

    FakeTray tray;
};

TEST_F(PauseTest, ShowsEveryStatusAndAsksForTheHoursChosen)
{
    EXPECT_EQ(Look(), kRunning);
    constexpr struct {
        const wchar_t* status;
        int hours; // afterwards; 0: running
    } kRows[] = {{L"3", 3}, {L"6", 3}, {L"0", 3}, {L"-1", 3}, {L"03", 3}, {L"33", 3}, {L"", 3}, {L"Running", 3},
        {L"<vltp><response>", 3}, {kNoAnswer, 3}, {L"1", 1}, {L"resumed", 0}, {L"6", 0}, {L"2", 2}, {L"RESUMED", 0},
        {kNoAnswer, 0}, {L"5", 5}, {L"4", 4}, {L"Resumed", 0}};
    for (const auto& row : kRows) {
        AnswerWith(L"PauseStatus", row.status);
        MainCommand(kRefresh);
        EXPECT_EQ(Look(), LookFor(row.hours)) << row.status;
        EXPECT_EQ(notPaused, row.hours == 0);
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
        EXPECT_EQ(Look(), kRunning);
        EXPECT_TRUE(resumes || IsOpen(WindowId::Main));
        EXPECT_TRUE(resumes || TakeOperations() == asked);
    }
}

} // namespace voltaro
