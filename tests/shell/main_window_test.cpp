#include "shell/main_window.h"

#include "resources/resource_ids.h"
#include "shell/quick_actions.h"
#include "support/pixels.h"
#include "support/program.h"

namespace voltaro {

struct MainWindowTest : testing::Test, LoadedProgram { };

TEST_F(MainWindowTest, SetAppliesTheChosenScheme)
{
    agentRecords.currentScheme.powerScheme = L"Gone"; // none that the agent lists
    MainCommand(kChange);
    EXPECT_TRUE(IsOn(kSchemeList) && !IsOn(kSet));
    Do({{kSchemeList, L"Minimum"}});
    EXPECT_TRUE(IsOn(kSet));
    SendMessageW(ControlOf(main, kSchemeList), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    Command(main, kSchemeList, CBN_SELCHANGE);
    EXPECT_FALSE(IsOn(kSet)); // nothing to set
    Do({{kSchemeList, L"Minimum"}, {kSet}});
    ExpectSent(L"ApplyPowerScheme", L"scheme=Minimum");
    EXPECT_EQ(TakeOperations(), (Operations{L"GetActivationstatus", L"ApplyPowerScheme", L"GetCurrentpowersettings"}));
    EXPECT_FALSE(IsOn(kSchemeList));
}

TEST_F(MainWindowTest, QuickActionsTellEveryAnswer)
{
    static int locked;
    locked = 0;
    platformCalls.lockScreen = [] { ++locked; };
    boxes.Expect({{L"Log off now", L"Are you sure you want to Log off from this system.\nPress 'Yes' to", Answer::No}});
    MainCommand(kLogOff);
    EXPECT_EQ(TakeOperations(), Operations{});
    const std::wstring busy
        = L"<vltp><response><status>FAILURE</status><a>Copy of files</a><a>Download</a></response></vltp>";
    // After a Yes: the agent's answer, the box that it leads to, and what the agent is asked after the answer there.
    // clang-format off
    const struct {
        int command, face; const wchar_t *question, *operation; std::wstring reply; ExpectedBox box; const wchar_t* then = {};
    } kRows[] = {
        {kStandby, IDB_ACTION_STANDBY, L"Standby now",     L"standby",    L"Success", {}},
        {kStandby, IDB_ACTION_STANDBY, L"Standby now",     L"standby",    L"standby not support", {L"Standby disabled", {}}},
        {kStandby, IDB_ACTION_STANDBY, L"Standby now",     L"standby",    L"other", {L"Failed", L"Could not Standby."}},
        {kStandby, IDB_ACTION_STANDBY, L"Standby now",     L"standby",    busy, {L"Force Standby", L"is/are in progress on this System:\n\nCopy of files\nDownload\n", Answer::Yes},
            L"success"},
        {kShutdown, IDB_ACTION_SHUTDOWN, L"Shutdown now",    L"shutdown",   busy, {L"Force Shutdown", {}, Answer::No}, L"failure"},
        {kHibernate, IDB_ACTION_HIBERNATE, L"Hibernate now",   L"hibernate",  L"No Disk Space", {L"Failed", L"Failed to Hibernate.\nInsufficient disk space to Hibernate"}},
        {kRestart, IDB_ACTION_RESTART, L"Restart now",     L"Restart",    busy, {L"Force Restart", {}, Answer::No}, L"failure"},
        {kLogOff, IDB_ACTION_LOG_OFF, L"Log off now",     L"logoff",     L"No Active User", {L"Nobody Active", {}}},
        {kLockScreen, IDB_ACTION_LOCK_SCREEN, L"Lock Screen now", L"LockScreen", busy, {L"LockScreen Failed", L"Could not Lock Screen"}},
        {kLockScreen, IDB_ACTION_LOCK_SCREEN, L"Lock Screen now", L"LockScreen", L"Success", {}},
    };
    // clang-format on
    for (const auto& row : kRows) {
        EXPECT_EQ(SendDlgItemMessageW(main, row.command, BM_GETIMAGE, IMAGE_BITMAP, 0),
            reinterpret_cast<LRESULT>(BitmapOf(row.face)));
        AnswerWith(row.operation, row.reply);
        boxes.Expect({{row.question, {}, Answer::Yes}, row.box});
        MainCommand(row.command);
        EXPECT_EQ(LastRequest(row.operation).find(L"<monitoroff>No</monitoroff>") != std::wstring::npos,
            row.command == kLogOff || row.command == kLockScreen);
        EXPECT_EQ(TakeOperations(), row.then ? (Operations{row.operation, row.then}) : Operations{row.operation});
    }
    EXPECT_EQ(locked, 1);
    Agent().Stop();
    boxes.Expect({{L"Restart now", {}, Answer::Yes}, {L"Closed Connection", L"type 'services.msc' press Enter."}});
    MainCommand(kRestart);
    EXPECT_TRUE(connection.connected); // a quick action's failure does not disconnect
}

TEST_F(MainWindowTest, PaintsTheStateOfThePowerAndTheLicense)
{
    constexpr std::tuple<const wchar_t*, int, const wchar_t*, int, const wchar_t*, int> kRows[] = {
        {kNoBattery, IDB_BATTERY_NONE, L"On AC", IDB_SOURCE_AC, L"Activated", IDB_LICENSE_ACTIVE},
        {L"Charging", IDB_BATTERY_CHARGING, L"On AC", IDB_SOURCE_AC, L"Not Activated", IDB_LICENSE_INACTIVE},
        {L"Unknown status", IDB_BATTERY_UNKNOWN, L"UPS", IDB_SOURCE_BATTERY, L"License Expired", IDB_LICENSE_EXPIRED},
        {L"Low", IDB_BATTERY_DISCHARGING, L"On Battery", IDB_SOURCE_BATTERY, L"Activated", IDB_LICENSE_ACTIVE}};
    for (const auto& [battery, batteryPicture, source, sourcePicture, license, licensePicture] : kRows) {
        agentRecords.battery.rows = {{L"", source}, {L"", battery}, {}, {L"", L"MMM"}}; // at last the remaining time
        agentRecords.activationStatus = license;
        const auto draw = [](HDC dc, void*) { DrawMainWindow(dc); };
        const Pixels page(RenderBitmap(504, 516, draw, nullptr).Get());
        EXPECT_TRUE(Shows(page, batteryPicture, {184, 112, 216, 144})) << battery;
        EXPECT_TRUE(Shows(page, sourcePicture, {352, 112, 384, 144})) << source;
        EXPECT_TRUE(Shows(page, licensePicture, {255, 6, 380, 22})) << license;
        for (const auto& [x, y] : {POINT{229, 128}, {229, 146}, {392, 121}})
            EXPECT_GT(page.CountIn(kTextGreen, {x, y, x + 60, y + 15}), 20) << battery << x << "," << y;
    }
}

TEST_F(MainWindowTest, ClosesOnYesAndOnNoAnswerOnly)
{
    boxes.Expect({{L"Close Voltaro Console ?", L"Voltaro will automatically close in 5 Seconds.", Answer::No}});
    SendMessageW(main, WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(main) && IsItemEnabled(TrayMenu(), kTrayClose));
    EXPECT_TRUE(SendMessageW(main, WM_QUERYENDSESSION, 0, 0) && !QuitCode());
    boxes.Expect({{L"Voltaro Help", L"file is missing:\n\n"}, {L"Close Voltaro Console ?", {}, Answer::TimedOut}});
    MainCommand(kTrayHelp);
    MainCommand(kTrayClose);
    EXPECT_FALSE(IsWindow(main));
}

TEST_F(MainWindowTest, FollowsAChangeOfThePower)
{
    const auto change = [&](WPARAM what) {
        SendMessageW(main, WM_POWERBROADCAST, what, 0);
        EXPECT_EQ(TakeOperations(), Operations{}); // nothing within the message
        Pump();
        return TakeOperations();
    };
    EXPECT_TRUE(change(PBT_APMSUSPEND).empty() && change(PBT_APMPOWERSTATUSCHANGE) == Operations{L"GetBatteryInfo"});
    AnswerWith(L"GetBatteryInfo", L"<vltp><response><a>On AC</a><b>Charging</b><c>12 %</c></response></vltp>");
    EXPECT_EQ(change(PBT_APMPOWERSTATUSCHANGE), Operations{L"GetBatteryInfo"});
    EXPECT_EQ(Shown(kChargeLine), L"12 %") << "though the picture stays";
    connection.connected = false;
    EXPECT_EQ(change(PBT_APMPOWERSTATUSCHANGE), Operations{});
}

} // namespace voltaro
