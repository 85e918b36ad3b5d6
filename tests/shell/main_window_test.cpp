#include "shell/main_window.h"

#include "console/agent_records.h"
#include "shell/quick_actions.h"
#include "support/program.h"

namespace voltaro {

static std::wstring Reply(const wchar_t* fields)
{
    return std::wstring(L"<?xml version=\"1.0\"?><vltp version=\"1.0\"><response>") + fields + L"</response></vltp>";
}

struct MainWindowTest : testing::Test, LoadedProgram { };

TEST_F(MainWindowTest, SetAppliesTheChosenSchemeAndReadsTheState)
{
    MainCommand(kChange);
    EXPECT_TRUE(IsOn(WindowId::Main, kSchemeList));
    EXPECT_EQ(SelectedText(main, kSchemeList), L"Balanced");
    SendMessageW(ControlOf(main, kSchemeList), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    Command(WindowId::Main, kSchemeList, CBN_SELCHANGE);
    EXPECT_FALSE(IsOn(WindowId::Main, kSet)); // nothing to set
    Choose(WindowId::Main, kSchemeList, L"Minimum");
    MainCommand(kSet);
    ExpectSent(L"ApplyPowerScheme", L"scheme=Minimum");
    EXPECT_EQ(TakeOperations(), (Operations{L"GetActivationstatus", L"ApplyPowerScheme", L"GetCurrentpowersettings"}));
    EXPECT_EQ(SelectedText(main, kSchemeList), L"Minimum");
    EXPECT_FALSE(IsOn(WindowId::Main, kSchemeList));
}

TEST_F(MainWindowTest, SetTellsEachRefusal)
{
    const Change change = {.operation = L"ApplyPowerScheme",
        .failed = {L"Set Scheme Failed", L"Unable to Set Scheme."},
        .readAfterSuccess = {L"GetCurrentpowersettings"},
        .unlicensed = L"Unable to Set Scheme",
        .lenient = true};
    ExpectAnswers(change, [&] {
        MainCommand(kChange);
        MainCommand(kSet);
        EXPECT_EQ(SelectedText(main, kSchemeList), L"Balanced");
    });
}

TEST_F(MainWindowTest, QuickActionsTellEveryAnswer)
{
    static int locked = 0;
    locked = 0;
    platformCalls.lockScreen = [] { ++locked; };
    boxes.Expect({{L"Log off now", L"Are you sure you want to Log off from this system.\nPress 'Yes' to continue..",
        Answer::No}});
    MainCommand(kLogOff);
    EXPECT_EQ(TakeOperations(), Operations{});
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
        AnswerWith(row.operation, row.reply);
        boxes.Expect({{row.question, {}, Answer::Yes}, row.box});
        MainCommand(row.command);
        EXPECT_EQ(LastRequest(row.operation).find(L"<monitoroff>No</monitoroff>") != std::wstring::npos,
            row.command == kLogOff || row.command == kLockScreen);
        EXPECT_EQ(TakeOperations(), row.then ? (Operations{row.operation, row.then}) : Operations{row.operation});
        Agent().ClearScripts();
    }
    EXPECT_EQ(locked, 1);
    Agent().Stop();
    boxes.Expect({{L"Restart now", {}, Answer::Yes}, {L"Closed Connection", L"type 'services.msc' press Enter."}});
    MainCommand(kRestart);
    EXPECT_TRUE(connection.connected); // a quick action's failure does not disconnect
}

TEST_F(MainWindowTest, ClosesOnYesAndOnNoAnswerOnly)
{
    boxes.Expect({{L"Close Voltaro Console ?", L"Voltaro will automatically close in 5 Seconds.", Answer::No}});
    SendMessageW(main, WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(main) && IsItemEnabled(TrayMenu(), kTrayClose));
    boxes.Expect({{L"Close Voltaro Console ?", {}, Answer::TimedOut}});
    MainCommand(kTrayClose);
    EXPECT_FALSE(IsWindow(main));
}

TEST_F(MainWindowTest, NamesTheHelpFileThatIsMissing)
{
    boxes.Expect({{L"Voltaro Help", L"The help file is missing:\n\n"}, {L"Voltaro Help", L"Voltaro_Help_SE.chm"}});
    MainCommand(kTrayHelp);
    EXPECT_TRUE(IsEnabled(GetDesktopWindow()));
    SendMessageW(WindowOf(WindowId::Snooze), WM_HELP, 0, 0);
}

TEST_F(MainWindowTest, AnswersPowerBroadcastsAndEndsOfTheSession)
{
    SendMessageW(main, WM_POWERBROADCAST, PBT_APMSUSPEND, 0);
    EXPECT_EQ(TakeOperations(), Operations{});
    for (const wchar_t* charge : {L"12 %", L"11 %"}) { // the status stays and with it the picture, but not the charge
        Agent().ScriptReply(L"GetBatteryInfo",
            Reply((L"<a>On Battery</a><b>Discharging</b><c>" + std::wstring(charge) + L"</c>").c_str()));
        SendMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
        EXPECT_EQ(TakeOperations(), Operations{}); // nothing within the message
        Pump();
        EXPECT_EQ(TakeOperations(), Operations{L"GetBatteryInfo"});
        EXPECT_EQ(TextOf(main, kChargeLine), charge);
    }
    EXPECT_EQ(agentRecords.battery.PowerSource(), L"On Battery");
    connection.connected = false;
    SendMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    Pump();
    EXPECT_EQ(TakeOperations(), Operations{});

    MSG message;
    EXPECT_TRUE(SendMessageW(main, WM_QUERYENDSESSION, 0, 0));
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
    EXPECT_TRUE(SendMessageW(main, WM_QUERYENDSESSION, 0, static_cast<LPARAM>(ENDSESSION_LOGOFF)));
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

} // namespace voltaro
