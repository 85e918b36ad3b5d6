#include "base/text.h"
#include "power/processor_strip.h"
#include "shell/about.h"
#include "shell/main_commands.h"
#include "shell/main_menus.h"
#include "shell/pause.h"
#include "shell/tray.h"
#include "support/box_script.h"
#include "support/fake_tray.h"
#include "support/program.h"
#include "ui/controls.h"
#include "ui/menus.h"
#include "ui/tooltip.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

using simulator::FaultKind;

constexpr const wchar_t* kRunning = L"----- usable, resume grey grey, Voltaro - Standard Edition  \n"
                                    L"[ Version : 1.06.006.000 ]";
constexpr const wchar_t* kPausedFor[] = {L"x---- grey, resume usable usable, Voltaro Paused",
    L"-x--- grey, resume usable usable, Voltaro Paused", L"--x-- grey, resume usable usable, Voltaro Paused",
    L"---x- grey, resume usable usable, Voltaro Paused", L"----x grey, resume usable usable, Voltaro Paused"};

const wchar_t* Usable(HMENU menu, unsigned id)
{
    return IsItemEnabled(menu, id) ? L"usable" : L"grey";
}

std::wstring Answer(const wchar_t* status)
{
    return Format(L"<vltp version=\"1.0\"><response><status>%ls</status></response></vltp>", status);
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
    void SetAnswer(const wchar_t* operation, const wchar_t* status)
    {
        program.Agent().ClearFaults();
        if (status == nullptr)
            program.Agent().SetFault(operation, {FaultKind::CloseAtOnce, {}});
        else if (*status == L'<')
            program.Agent().ScriptReply(operation, status);
        else
            program.Agent().ScriptReply(operation, Answer(status));
    }

    FakeTray tray;
    LoadedProgram program;
    HWND main = WindowOf(WindowId::Main);
    std::string runningIcon;
};

TEST_F(PauseTest, ShowsEveryStatusThatTheAgentReports)
{
    EXPECT_EQ(Look(), kRunning);
    constexpr struct {
        const wchar_t* status; // null: lost; a document of its own: with its "<"
        int hours;             // afterwards; 0: running
    } kRows[] = {{L"3", 3}, {L"6", 3}, {L"0", 3}, {L"-1", 3}, {L"03", 3}, {L"33", 3}, {L"", 3}, {L"Running", 3},
        {L"<vltp><response>", 3}, {nullptr, 3}, {L"1", 1}, {L"resumed", 0}, {L"6", 0}, {L"2", 2}, {L"RESUMED", 0},
        {nullptr, 0}, {L"5", 5}, {L"4", 4}, {L"Resumed", 0}};
    for (const auto& row : kRows) {
        SetAnswer(L"PauseStatus", row.status);
        program.Command(WindowId::Main, kRefresh);
        EXPECT_EQ(Look(), row.hours == 0 ? kRunning : kPausedFor[row.hours - 1]) << (row.status ? row.status : L"-");
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
        EXPECT_NE(program.LastRequest(L"Pause").find(Format(L"<duration>%d</duration>", hours)), std::wstring::npos);
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
    const std::pair<const wchar_t*, ExpectedBox> kRows[] = {{L"FAILURE", {L"Pause Failed", L"Could not Pause"}},
        {L"not activated", {L"Unable to pause", L"'Localhost' is not activated"}},
        {L"License Expired", {L"Unable to pause", L"'Localhost' has expired"}}, {L"Later", {}}, {L"", {}},
        {L"<vltp", {}}, {nullptr, {}}};
    for (const auto& [status, box] : kRows) {
        const BoxScript boxes{box};
        SetAnswer(L"Pause", status);
        program.Command(WindowId::Main, kPauseOneHour);
        EXPECT_EQ(Look(), kRunning);
        EXPECT_TRUE(IsWindowVisible(main));
        EXPECT_TRUE(IsWindowEnabled(ControlOf(main, kChange)));
    }
    EXPECT_EQ(program.TakeOperations(),
        (Operations{L"Pause", L"Pause", L"GetActivationstatus", L"Pause", L"GetActivationstatus", L"Pause", L"Pause",
            L"Pause", L"Pause"}));
}

TEST_F(PauseTest, ResumeShowsTheRunningStateWhateverIsAnswered)
{
    for (const wchar_t* status :
        {L"success", L"failure", L"Not Activated", L"", L"<vltp", static_cast<LPCWSTR>(nullptr)}) {
        program.Command(WindowId::Main, kPauseFiveHours);
        ASSERT_EQ(Look(), kPausedFor[4]);
        BoxScript boxes{};
        if (status && EqualsIgnoreCase(status, L"Failure"))
            boxes.Expect({{L"Resume Failed", L"Could not Resume"}});
        SetAnswer(L"Resume", status);
        program.Command(WindowId::Main, kResume);
        EXPECT_EQ(Look(), kRunning);
    }
}

} // namespace
} // namespace voltaro
