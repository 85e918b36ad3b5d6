#include "shell/pause.h"

#include "base/text.h"
#include "power/processor_strip.h"
#include "shell/about.h"
#include "shell/main_menus.h"
#include "shell/tray.h"
#include "support/fake_tray.h"
#include "support/program.h"
#include "ui/menus.h"
#include "ui/tooltip.h"

namespace voltaro {
namespace {

constexpr const wchar_t* kRunning = L"----- usable, resume grey grey, Voltaro - Standard Edition  \n"
                                    L"[ Version : 1.06.006.000 ]";
constexpr const wchar_t* kPausedFor[] = {L"x---- grey, resume usable usable, Voltaro Paused",
    L"-x--- grey, resume usable usable, Voltaro Paused", L"--x-- grey, resume usable usable, Voltaro Paused",
    L"---x- grey, resume usable usable, Voltaro Paused", L"----x grey, resume usable usable, Voltaro Paused"};

const wchar_t* Usable(HMENU menu, unsigned id)
{
    return IsItemEnabled(menu, id) ? L"usable" : L"grey";
}

// A program with its tray icon, loaded and running, and what pausing changes about it.
class PauseTest : public testing::Test {
protected:
    PauseTest()
    {
        AddTrayIcon(main);
        runningIcon = tray.Last().icon;
    }
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
        EXPECT_EQ(tray.Last().icon == runningIcon, look[6] == L'u');
        EXPECT_EQ(ResumeTip().empty(), look[6] == L'u');
        EXPECT_TRUE(IsWindowEnabled(ControlOf(main, kResumeButton)));
        return look;
    }
    std::wstring ResumeTip() const { return TooltipOf(ControlOf(main, kResumeButton)); }

    FakeTray tray;
    LoadedProgram program;
    HWND main = WindowOf(WindowId::Main);
    std::string runningIcon;
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
        program.AnswerWith(L"PauseStatus", row.status);
        program.Command(WindowId::Main, kRefresh);
        EXPECT_EQ(Look(), row.hours == 0 ? kRunning : kPausedFor[row.hours - 1]) << row.status;
        EXPECT_EQ(notPaused, row.hours == 0);
        if (row.hours == 1) {
            EXPECT_EQ(ResumeTip().substr(0, 26), L"Paused for 1 hour, read at");
        }
    }
}

TEST_F(PauseTest, AsksForTheHoursChosen)
{
    for (int hours = 1; hours <= 5; ++hours) {
        program.Command(WindowId::Main, kPauseNone + hours);
        EXPECT_EQ(Look(), kPausedFor[hours - 1]);
        program.ExpectSent(L"Pause", Format(L"duration=%d", hours));
        EXPECT_FALSE(IsWindowVisible(main));
        EXPECT_FALSE(IsWindowEnabled(ControlOf(main, kChange)));
        EXPECT_FALSE(notPaused);
        program.Command(WindowId::Main, hours % 2 ? kResume : kResumeButton);
        EXPECT_EQ(Look(), kRunning);
        EXPECT_TRUE(IsWindowEnabled(ControlOf(main, kChange)));
        EXPECT_FALSE(notPaused); // until the next status is read
    }
}

TEST_F(PauseTest, HidesWhatHasTheConsoleAndLeavesItUsable)
{
    const HWND scheme = WindowOf(WindowId::Scheme);
    program.Command(WindowId::Main, kPowerScheme);
    program.Command(WindowId::SchemeProcessor, kNewPolicy);
    EXPECT_FALSE(IsWindowEnabled(scheme)); // by its policy window
    program.Command(WindowId::Main, kTrayAbout);
    program.Command(WindowId::Main, kPauseOneHour);
    EXPECT_EQ(AboutWindow(), nullptr);
    for (const HWND window : {main, scheme, WindowOf(WindowId::Policy)})
        EXPECT_TRUE(IsWindowEnabled(window) && !IsWindowVisible(window));
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
        const BoxScript boxes{box};
        program.AnswerWith(L"Pause", status);
        program.Command(WindowId::Main, kPauseOneHour);
        EXPECT_EQ(Look(), kRunning);
        EXPECT_TRUE(IsWindowVisible(main));
        EXPECT_TRUE(IsWindowEnabled(ControlOf(main, kChange)));
        EXPECT_EQ(program.TakeOperations(), asked);
    }
}

TEST_F(PauseTest, ResumeShowsTheRunningStateWhateverIsAnswered)
{
    for (const wchar_t* status : {L"success", L"failure", L"Not Activated", L"", kMalformed, kNoAnswer}) {
        program.Command(WindowId::Main, kPauseFiveHours);
        ASSERT_EQ(Look(), kPausedFor[4]);
        const bool refused = std::wstring_view(status) == L"failure";
        const BoxScript boxes{{refused ? L"Resume Failed" : L"", L"Could not Resume"}};
        program.AnswerWith(L"Resume", status);
        program.Command(WindowId::Main, kResume);
        EXPECT_EQ(Look(), kRunning);
    }
}

} // namespace
} // namespace voltaro
