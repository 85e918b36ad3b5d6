#include "shell/pause.h"

#include "power/processor_strip.h"
#include "shell/tray.h"
#include "support/fake_tray.h"
#include "support/program.h"

namespace voltaro {

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

TEST_F(PauseTest, ShowsEveryStatusThatTheAgentReports)
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
}

TEST_F(PauseTest, AsksForTheHoursChosen)
{
    for (int hours = 1; hours <= 5; ++hours) {
        MainCommand(kPauseNone + hours);
        EXPECT_EQ(Look(), LookFor(hours));
        ExpectSent(L"Pause", Format(L"duration=%d", hours));
        EXPECT_FALSE(IsOpen(WindowId::Main) || IsOn(WindowId::Main, kChange));
        MainCommand(hours % 2 ? kResume : kResumeButton);
        EXPECT_TRUE(IsOn(WindowId::Main, kChange) && !notPaused); // until the next status is read
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

TEST_F(PauseTest, AnAnswerThatIsNoSuccessChangesNothing)
{
    const Operations kAsked = {L"Pause"}, kLicenseToo = {L"Pause", L"GetActivationstatus"};
    const std::tuple<const wchar_t*, ExpectedBox, Operations> kRows[]
        = {{L"FAILURE", {L"Pause Failed", L"Could not Pause"}, kAsked},
            {L"not activated", {L"Unable to pause", L"'Localhost' is not activated"}, kLicenseToo},
            {L"License Expired", {L"Unable to pause", L"'Localhost' has expired"}, kLicenseToo}, {L"Later", {}, kAsked},
            {L"", {}, kAsked}, {kMalformed, {}, kAsked}, {kNoAnswer, {}, kAsked}};
    for (const auto& [status, box, asked] : kRows) {
        boxes.Expect({box});
        AnswerWith(L"Pause", status);
        MainCommand(kPauseOneHour);
        EXPECT_EQ(Look(), kRunning);
        EXPECT_TRUE(IsOpen(WindowId::Main));
        EXPECT_EQ(TakeOperations(), asked);
    }
}

TEST_F(PauseTest, ResumeShowsTheRunningStateWhateverIsAnswered)
{
    const std::pair<const wchar_t*, ExpectedBox> kRows[]
        = {{L"success", {}}, {L"failure", {L"Resume Failed", L"Could not Resume"}}, {L"Not Activated", {}}, {L"", {}},
            {kMalformed, {}}, {kNoAnswer, {}}};
    for (const auto& [status, box] : kRows) {
        MainCommand(kPauseFiveHours);
        boxes.Expect({box});
        AnswerWith(L"Resume", status);
        MainCommand(kResume);
        EXPECT_EQ(Look(), kRunning);
    }
}

} // namespace voltaro
