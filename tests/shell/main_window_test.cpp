#include "shell/main_window.h"

#include "shell/main_commands.h"
#include "shell/main_menus.h"
#include "shell/quick_actions.h"
#include "support/box_script.h"
#include "support/program.h"
#include "support/test_window.h"
#include "ui/combo_box.h"
#include "ui/controls.h"
#include "ui/menus.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

using simulator::FaultKind;

std::wstring Reply(const wchar_t* fields)
{
    return std::wstring(L"<?xml version=\"1.0\"?><vltp version=\"1.0\"><response>") + fields + L"</response></vltp>";
}

std::wstring Status(const wchar_t* word)
{
    return Reply((std::wstring(L"<status>") + word + L"</status>").c_str());
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
    EXPECT_NE(program.LastRequest(L"ApplyPowerScheme")
                  .find(L"<operation>ApplyPowerScheme</operation>\r\n\t\t<scheme>Minimum</scheme>"),
        std::wstring::npos);
    EXPECT_EQ(program.TakeOperations(),
        (Operations{L"GetActivationstatus", L"ApplyPowerScheme", L"GetCurrentpowersettings"}));
    EXPECT_EQ(SelectedText(main, kSchemeList), L"Minimum");
    EXPECT_FALSE(IsWindowEnabled(ControlOf(main, kSchemeList)));
}

TEST_F(MainWindowTest, SetTellsEachRefusal)
{
    const std::tuple<const wchar_t*, std::wstring, ExpectedBox, Operations> kRows[] = {
        {L"ApplyPowerScheme", Status(L"failure"), {L"Set Scheme Failed", L"Unable to Set Scheme."},
            {L"GetActivationstatus", L"ApplyPowerScheme"}},
        {L"GetActivationstatus", Status(L"Not Activated"), {L"Unable to Set Scheme", L"Localhost"},
            {L"GetActivationstatus"}},
        {L"ApplyPowerScheme", Status(L"License Expired"), {L"Unable to Set Scheme", L"expired"},
            {L"GetActivationstatus", L"ApplyPowerScheme", L"GetActivationstatus"}},
    };
    for (const auto& [operation, reply, box, operations] : kRows) {
        program.Agent().ScriptReply(operation, reply);
        const BoxScript boxes{box};
        program.Command(WindowId::Main, kChange);
        program.Command(WindowId::Main, kSet);
        EXPECT_EQ(program.TakeOperations(), operations);
        EXPECT_EQ(SelectedText(main, kSchemeList), L"Balanced");
        program.Agent().ClearScripts();
    }
    program.Agent().SetFault(L"ApplyPowerScheme", {FaultKind::CloseAtOnce, {}});
    BoxScript boxes{{L"Connection Issue", {}}};
    program.Command(WindowId::Main, kSet);
    EXPECT_FALSE(state.connected);
}

TEST_F(MainWindowTest, QuickActionsTellEveryAnswer)
{
    static int locked = 0;
    locked = 0;
    lockThisScreen = [] { ++locked; };
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
        {kStandby,    L"Standby now",     L"standby",    Status(L"Success"), {}},
        {kStandby,    L"Standby now",     L"standby",    Status(L"standby not support"), {L"Standby disabled", {}}},
        {kStandby,    L"Standby now",     L"standby",    Status(L"other"), {L"Failed", L"Could not Standby."}},
        {kStandby,    L"Standby now",     L"standby",    L"<broken", {L"Failed", L"Could not Standby."}},
        {kStandby,    L"Standby now",     L"standby",    busy,
            {L"Force Standby", L"is/are in progress on this System:\n\nCopy of files\nDownload\n", Answer::Yes},
            L"success"},
        {kShutdown,   L"Shutdown now",    L"shutdown",   busy, {L"Force Shutdown", {}, Answer::No}, L"failure"},
        {kHibernate,  L"Hibernate now",   L"hibernate",  Status(L"No Disk Space"),
            {L"Failed", L"Failed to Hibernate.\nInsufficient disk space to Hibernate"}},
        {kRestart,    L"Restart now",     L"Restart",    busy, {L"Force Restart", {}, Answer::No}, L"failure"},
        {kLogOff,     L"Log off now",     L"logoff",     Status(L"No Active User"), {L"Nobody Active", {}}},
        {kLockScreen, L"Lock Screen now", L"LockScreen", busy, {L"LockScreen Failed", L"Could not Lock Screen"}},
        {kLockScreen, L"Lock Screen now", L"LockScreen", Status(L"Success"), {}},
    };
    // clang-format on
    for (const auto& row : kRows) {
        program.Agent().ScriptReply(row.operation, row.reply);
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
    EXPECT_TRUE(state.connected); // a quick action's failure does not disconnect
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

TEST_F(MainWindowTest, AnswersPowerBroadcastsAndEndsOfTheSession)
{
    SendMessageW(main, WM_POWERBROADCAST, PBT_APMSUSPEND, 0);
    EXPECT_EQ(program.TakeOperations(), Operations{});
    program.Agent().ScriptReply(L"GetBatteryInfo", Reply(L"<a>On Battery</a><b>Discharging</b><c>12 %</c>"));
    for (int i = 0; i < 10; ++i)
        SendMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    EXPECT_EQ(program.TakeOperations(), Operations{}); // nothing within the message
    Pump();
    EXPECT_EQ(program.TakeOperations(), Operations{L"GetBatteryInfo"});
    // The status stays and with it the picture, but not the charge.
    program.Agent().ScriptReply(L"GetBatteryInfo", Reply(L"<a>On Battery</a><b>Discharging</b><c>11 %</c>"));
    SendMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    Pump();
    EXPECT_EQ(TextOf(main, kChargeLine), L"11 %");
    program.Agent().ScriptReply(L"GetBatteryInfo", Reply(L"<a>On Battery</a><b>Discharging</b><c>12 %</c>"));
    SendMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    Pump();
    program.TakeOperations();
    EXPECT_EQ(state.battery.PowerSource(), L"On Battery");
    EXPECT_EQ(TextOf(main, kChargeLine), L"12 %");
    state.connected = false;
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
