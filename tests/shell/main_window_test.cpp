#include "shell/main_window.h"

#include "console/agent_records.h"
#include "console/connection_state.h"
#include "shell/main_commands.h"
#include "shell/main_menus.h"
#include "shell/quick_actions.h"
#include "support/program.h"
#include "support/test_window.h"
#include "ui/combo_box.h"
#include "ui/controls.h"
#include "ui/menus.h"

namespace voltaro {
namespace {

std::wstring Reply(const wchar_t* fields)
{
    return std::wstring(L"<?xml version=\"1.0\"?><vltp version=\"1.0\"><response>") + fields + L"</response></vltp>";
}

class MainWindowTest : public testing::Test {
protected:
    LoadedProgram program;
    HWND main = WindowOf(WindowId::Main);
};

TEST_F(MainWindowTest, SetAppliesTheChosenSchemeAndReadsTheState)
{
    program.Command(WindowId::Main, kChange);
    EXPECT_TRUE(IsWindowEnabled(ControlOf(main, kSchemeList)));
    EXPECT_EQ(SelectedText(main, kSchemeList), L"Balanced");
    SendMessageW(ControlOf(main, kSchemeList), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    program.Command(WindowId::Main, kSchemeList, CBN_SELCHANGE);
    EXPECT_FALSE(IsWindowEnabled(ControlOf(main, kSet))); // nothing to set
    program.Choose(WindowId::Main, kSchemeList, L"Minimum");
    program.Command(WindowId::Main, kSet);
    program.ExpectSent(L"ApplyPowerScheme", L"scheme=Minimum");
    EXPECT_EQ(program.TakeOperations(),
        (Operations{L"GetActivationstatus", L"ApplyPowerScheme", L"GetCurrentpowersettings"}));
    EXPECT_EQ(SelectedText(main, kSchemeList), L"Minimum");
    EXPECT_FALSE(IsWindowEnabled(ControlOf(main, kSchemeList)));
}

TEST_F(MainWindowTest, SetTellsEachRefusal)
{
    const Change change = {.operation = L"ApplyPowerScheme",
        .question = nullptr,
        .failed = {L"Set Scheme Failed", L"Unable to Set Scheme."},
        .readAfterSuccess = {L"GetCurrentpowersettings"},
        .unlicensed = L"Unable to Set Scheme",
        .lenient = true};
    program.ExpectAnswers(change, [&] {
        program.Command(WindowId::Main, kChange);
        program.Command(WindowId::Main, kSet);
        EXPECT_EQ(SelectedText(main, kSchemeList), L"Balanced");
    });
}

TEST_F(MainWindowTest, QuickActionsTellEveryAnswer)
{
    static int locked = 0;
    locked = 0;
    platformCalls.lockScreen = [] { ++locked; };
    {
        const BoxScript boxes{{L"Log off now",
            L"Are you sure you want to Log off from this system.\nPress 'Yes' to continue..", Answer::No}};
        program.Command(WindowId::Main, kLogOff);
        EXPECT_EQ(program.TakeOperations(), Operations{});
    }
    const std::wstring busy = Reply(L"<status>FAILURE</status><a>Copy of files</a><a>Download</a>");
    // Once the question is answered with Yes: the agent's answer, the box that it leads to, and what the agent is asked
    // after the user's answer there.
    // clang-format off
    const struct {
        int command; const wchar_t *question, *operation; std::wstring reply; ExpectedBox box; const wchar_t* then = {};
    } kRows[] = {
        {kStandby,    L"Standby now",     L"standby",    L"Success", {}},
        {kStandby,    L"Standby now",     L"standby",    L"standby not support", {L"Standby disabled", {}}},
        {kStandby,    L"Standby now",     L"standby",    L"other", {L"Failed", L"Could not Standby."}},
        {kStandby,    L"Standby now",     L"standby",    L"<broken", {L"Failed", L"Could not Standby."}},
        {kStandby,    L"Standby now",     L"standby",    busy,
            {L"Force Standby", L"is/are in progress on this System:\n\nCopy of files\nDownload\n", Answer::Yes},
            L"success"},
        {kShutdown,   L"Shutdown now",    L"shutdown",   busy, {L"Force Shutdown", {}, Answer::No}, L"failure"},
        {kHibernate,  L"Hibernate now",   L"hibernate",  L"No Disk Space",
            {L"Failed", L"Failed to Hibernate.\nInsufficient disk space to Hibernate"}},
        {kRestart,    L"Restart now",     L"Restart",    busy, {L"Force Restart", {}, Answer::No}, L"failure"},
        {kLogOff,     L"Log off now",     L"logoff",     L"No Active User", {L"Nobody Active", {}}},
        {kLockScreen, L"Lock Screen now", L"LockScreen", busy, {L"LockScreen Failed", L"Could not Lock Screen"}},
        {kLockScreen, L"Lock Screen now", L"LockScreen", L"Success", {}},
    };
    // clang-format on
    for (const auto& row : kRows) {
        EXPECT_TRUE(GetWindowLongW(ControlOf(main, row.command), GWL_STYLE) & BS_PUSHLIKE);
        program.AnswerWith(row.operation, row.reply);
        const BoxScript boxes{{row.question, {}, Answer::Yes}, row.box};
        program.Command(WindowId::Main, row.command);
        EXPECT_EQ(program.LastRequest(row.operation).find(L"<monitoroff>No</monitoroff>") != std::wstring::npos,
            row.command == kLogOff || row.command == kLockScreen);
        EXPECT_EQ(
            program.TakeOperations(), row.then ? (Operations{row.operation, row.then}) : Operations{row.operation});
        program.Agent().ClearScripts();
    }
    EXPECT_EQ(locked, 1);
    program.Agent().Stop();
    BoxScript boxes{{L"Restart now", {}, Answer::Yes}, {L"Closed Connection", L"type 'services.msc' press Enter."}};
    program.Command(WindowId::Main, kRestart);
    EXPECT_TRUE(connection.connected); // a quick action's failure does not disconnect
}

TEST_F(MainWindowTest, ClosesOnYesAndOnNoAnswerOnly)
{
    BoxScript boxes{{L"Close Voltaro Console ?", L"Voltaro will automatically close in 5 Seconds.", Answer::No}};
    SendMessageW(main, WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(main));
    EXPECT_TRUE(IsItemEnabled(TrayMenu(), kTrayClose));
    boxes.Expect({{L"Close Voltaro Console ?", {}, Answer::TimedOut}});
    program.Command(WindowId::Main, kTrayClose);
    EXPECT_FALSE(IsWindow(main));
}

TEST_F(MainWindowTest, NamesTheHelpFileThatIsMissing)
{
    BoxScript boxes{{L"Voltaro Help", L"The help file is missing:\n\n"}, {L"Voltaro Help", L"Voltaro_Help_SE.chm"}};
    program.Command(WindowId::Main, kTrayHelp);
    EXPECT_TRUE(IsWindowEnabled(GetDesktopWindow()));
    SendMessageW(WindowOf(WindowId::Snooze), WM_HELP, 0, 0);
}

TEST_F(MainWindowTest, F1OpensThePageOfTheWindow)
{
    static std::wstring topic;
    const auto viewer = std::exchange(platformCalls.showHelp, [](HWND, const std::wstring& shown) { topic = shown; });
    constexpr std::pair<WindowId, std::wstring_view> kPages[]
        = {{WindowId::Activation, L"::/activation.htm"}, {WindowId::Update, L"::/update.htm"},
            {WindowId::Profile, L"::/powercalculations.htm"}, {WindowId::Rule, L"::/advanced.htm"}};
    for (const auto& [window, page] : kPages) {
        SendMessageW(WindowOf(window), WM_HELP, 0, 0);
        EXPECT_TRUE(topic.ends_with(page)) << topic;
    }
    platformCalls.showHelp = viewer;
}

TEST_F(MainWindowTest, AnswersPowerBroadcastsAndEndsOfTheSession)
{
    SendMessageW(main, WM_POWERBROADCAST, PBT_APMSUSPEND, 0);
    EXPECT_EQ(program.TakeOperations(), Operations{});
    for (const wchar_t* charge : {L"12 %", L"11 %"}) { // the status stays and with it the picture, but not the charge
        program.Agent().ScriptReply(L"GetBatteryInfo",
            Reply((L"<a>On Battery</a><b>Discharging</b><c>" + std::wstring(charge) + L"</c>").c_str()));
        SendMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
        EXPECT_EQ(program.TakeOperations(), Operations{}); // nothing within the message
        Pump();
        EXPECT_EQ(program.TakeOperations(), Operations{L"GetBatteryInfo"});
        EXPECT_EQ(TextOf(main, kChargeLine), charge);
    }
    EXPECT_EQ(agentRecords.battery.PowerSource(), L"On Battery");
    connection.connected = false;
    SendMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    Pump();
    EXPECT_EQ(program.TakeOperations(), Operations{});

    MSG message;
    EXPECT_TRUE(SendMessageW(main, WM_QUERYENDSESSION, 0, 0));
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
    EXPECT_TRUE(SendMessageW(main, WM_QUERYENDSESSION, 0, static_cast<LPARAM>(ENDSESSION_LOGOFF)));
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

} // namespace
} // namespace voltaro
