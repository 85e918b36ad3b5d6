#include "shell/main_window.h"

#include "resources/resource_ids.h"
#include "shell/closing.h"
#include "shell/main_commands.h"
#include "shell/main_menus.h"
#include "shell/quick_actions.h"
#include "shell/window_table.h"
#include "support/box_script.h"
#include "support/program.h"
#include "ui/controls.h"
#include "ui/menus.h"
#include "ui/tooltip.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

using simulator::FaultKind;
using Names = std::vector<std::wstring>;

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
    MainWindowTest()
    {
        program.Load();
        static_cast<void>(program.TakeOperations());
    }
    ConsoleProgram program;
};

TEST_F(MainWindowTest, SetAppliesTheChosenSchemeAndReadsTheState)
{
    const HWND main = WindowOf(WindowId::Main);
    program.Command(WindowId::Main, kChange);
    EXPECT_TRUE(IsWindowEnabled(ControlOf(main, kSchemeList)));
    EXPECT_EQ(SelectedText(main, kSchemeList), L"Balanced");
    SelectExact(main, kSchemeList, L"Minimum");
    program.Command(WindowId::Main, kSet);
    EXPECT_NE(program.LastRequest(L"ApplyPowerScheme")
                  .find(L"<operation>ApplyPowerScheme</operation>\r\n\t\t<scheme>Minimum</scheme>"),
        std::wstring::npos);
    EXPECT_EQ(
        program.TakeOperations(), (Names{L"GetActivationstatus", L"ApplyPowerScheme", L"GetCurrentpowersettings"}));
    EXPECT_EQ(SelectedText(main, kSchemeList), L"Minimum");
    EXPECT_FALSE(IsWindowEnabled(ControlOf(main, kSchemeList)));
}

TEST_F(MainWindowTest, SetTellsEachRefusal)
{
    const struct {
        const wchar_t* operation;
        std::wstring reply;
        ExpectedBox box;
        Names operations;
    } kCases[] = {
        {L"ApplyPowerScheme", Status(L"failure"), {L"Set Scheme Failed", L"Unable to Set Scheme."},
            {L"GetActivationstatus", L"ApplyPowerScheme"}},
        {L"GetActivationstatus", Status(L"Not Activated"), {L"Unable to Set Scheme", L"Localhost"},
            {L"GetActivationstatus"}},
        {L"ApplyPowerScheme", Status(L"License Expired"), {L"Unable to Set Scheme", L"expired"},
            {L"GetActivationstatus", L"ApplyPowerScheme", L"GetActivationstatus"}},
    };
    for (const auto& row : kCases) {
        program.Agent().ScriptReply(row.operation, row.reply);
        BoxScript boxes{row.box};
        program.Command(WindowId::Main, kChange);
        program.Command(WindowId::Main, kSet);
        EXPECT_EQ(program.TakeOperations(), row.operations);
        EXPECT_EQ(SelectedText(WindowOf(WindowId::Main), kSchemeList), L"Balanced");
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
    const std::wstring busy = Reply(L"<status>FAILURE</status><a>Copy of files</a><a>Download</a>");
    const struct {
        int command;
        const wchar_t* operation;
        std::wstring reply;
        std::vector<ExpectedBox> boxes;
        Names operations;
    } kCases[] = {
        {kStandby, L"standby", Status(L"Success"), {{L"Standby now", {}, Answer::No}}, {}},
        {kStandby, L"standby", Status(L"Success"), {{L"Standby now", {}, Answer::Yes}}, {L"standby"}},
        {kStandby, L"standby", Status(L"standby not support"),
            {{L"Standby now", {}, Answer::Yes}, {L"Standby disabled", {}}}, {L"standby"}},
        {kStandby, L"standby", Status(L"other"),
            {{L"Standby now", {}, Answer::Yes}, {L"Failed", L"Could not Standby."}}, {L"standby"}},
        {kStandby, L"standby", L"<broken", {{L"Standby now", {}, Answer::Yes}, {L"Failed", L"Could not Standby."}},
            {L"standby"}},
        {kStandby, L"standby", busy,
            {{L"Standby now", {}, Answer::Yes},
                {L"Force Standby", L"is/are in progress on this System:\n\nCopy of files\nDownload\n", Answer::Yes}},
            {L"standby", L"success"}},
        {kShutdown, L"shutdown", busy, {{L"Shutdown now", {}, Answer::Yes}, {L"Force Shutdown", {}, Answer::No}},
            {L"shutdown", L"failure"}},
        {kHibernate, L"hibernate", Status(L"No Disk Space"),
            {{L"Hibernate now", {}, Answer::Yes},
                {{L"Failed"}, L"Failed to Hibernate.\nInsufficient disk space to Hibernate"}},
            {L"hibernate"}},
        {kRestart, L"Restart", busy, {{L"Restart now", {}, Answer::Yes}, {L"Force Restart", {}, Answer::No}},
            {L"Restart", L"failure"}},
        {kLogOff, L"logoff", Status(L"No Active User"),
            {{L"Log off now", L"Are you sure you want to Log off from this system.\nPress 'Yes' to continue..",
                 Answer::Yes},
                {L"Nobody Active", {}}},
            {L"logoff"}},
        {kLockScreen, L"LockScreen", busy,
            {{L"Lock Screen now", {}, Answer::Yes}, {L"LockScreen Failed", L"Could not Lock Screen"}}, {L"LockScreen"}},
        {kLockScreen, L"LockScreen", Status(L"Success"), {{L"Lock Screen now", {}, Answer::Yes}}, {L"LockScreen"}},
    };
    for (const auto& row : kCases) {
        program.Agent().ScriptReply(row.operation, row.reply);
        BoxScript boxes{};
        for (const ExpectedBox& box : row.boxes)
            boxes.Expect({box});
        program.Command(WindowId::Main, row.command);
        EXPECT_EQ(program.TakeOperations(), row.operations) << row.operation;
        program.Agent().ClearScripts();
    }
    EXPECT_EQ(locked, 1);
    program.Agent().Stop();
    BoxScript boxes{{L"Restart now", {}, Answer::Yes}, {L"Closed Connection", L"type 'services.msc' press Enter."}};
    program.Command(WindowId::Main, kRestart);
    EXPECT_TRUE(state.connected); // a quick action's failure does not disconnect
}

TEST_F(MainWindowTest, LogOffCarriesTheMonitorElement)
{
    BoxScript boxes{{L"Log off now", {}, Answer::Yes}};
    program.Command(WindowId::Main, kLogOff);
    EXPECT_NE(program.LastRequest(L"logoff").find(L"<monitoroff>No</monitoroff>"), std::wstring::npos);
}

TEST_F(MainWindowTest, ClosesOnYesAndOnNoAnswerOnly)
{
    const HWND main = WindowOf(WindowId::Main);
    BoxScript boxes{{L"Close Voltaro Console ?", L"Voltaro will automatically close in 5 Seconds.", Answer::No}};
    SendMessageW(main, WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(main));
    EXPECT_TRUE(IsItemEnabled(TrayMenu(), kTrayClose));
    boxes.Expect({{L"Close Voltaro Console ?", {}, Answer::TimedOut}});
    program.Command(WindowId::Main, kTrayClose);
    EXPECT_FALSE(IsWindow(main));
}

TEST_F(MainWindowTest, AnOrdinaryEndOfTheSessionStopsNothing)
{
    const HWND main = WindowOf(WindowId::Main);
    MSG message;
    EXPECT_TRUE(SendMessageW(main, WM_QUERYENDSESSION, 0, 0));
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
    EXPECT_TRUE(SendMessageW(main, WM_QUERYENDSESSION, 0, static_cast<LPARAM>(ENDSESSION_LOGOFF)));
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(MainWindowTest, PowerBroadcastsReadTheBattery)
{
    const HWND main = WindowOf(WindowId::Main);
    SendMessageW(main, WM_POWERBROADCAST, PBT_APMSUSPEND, 0);
    EXPECT_EQ(program.TakeOperations(), Names());
    program.Agent().ScriptReply(L"GetBatteryInfo", Reply(L"<a>On Battery</a><b>Discharging</b><c>12 %</c>"));
    SendMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    EXPECT_EQ(program.TakeOperations(), Names{L"GetBatteryInfo"});
    EXPECT_EQ(state.battery.PowerSource(), L"On Battery");
    EXPECT_EQ(TextOf(main, kChargeLine), L"12 %");
    state.connected = false;
    SendMessageW(main, WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    EXPECT_EQ(program.TakeOperations(), Names());
}

// The window walks its rows: every window stands where its table says, and no close destroys a secondary one.
TEST_F(MainWindowTest, AllWindowsAreMadeOnce)
{
    for (std::size_t i = 0; i < kWindowCount; ++i) {
        const WindowRow& row = WindowRowOf(i);
        const HWND window = WindowOf(row.id);
        wchar_t name[64] = {};
        RECT place{};
        GetClassNameW(window, name, 64);
        GetWindowRect(window, &place);
        EXPECT_STREQ(name, row.className);
        EXPECT_EQ(place.right - place.left, row.width) << i;
        EXPECT_EQ(place.bottom - place.top, row.height) << i;
        const HWND owner = row.owner == WindowId::Count ? nullptr : WindowOf(row.owner);
        EXPECT_EQ(row.style & WS_CHILD ? GetParent(window) : GetWindow(window, GW_OWNER), owner) << i;
    }
}

} // namespace
} // namespace voltaro
