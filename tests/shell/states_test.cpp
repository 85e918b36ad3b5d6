// What is greyed, shown and painted after something else has changed, in windows of every folder.
#include "console/agent_records.h"
#include "console/background_refresh.h"
#include "console/connection_state.h"
#include "console/program_texts.h"
#include "link/document.h"
#include "power/scheme_window.h"
#include "resources/resource_ids.h"
#include "savings/graph_view.h"
#include "savings/savings_window.h"
#include "savings/scripted_day.h"
#include "savings/shown_day.h"
#include "settings/system_info_pages.h"
#include "shell/main_menus.h"
#include "shell/main_window.h"
#include "shell/workers.h"
#include "support/pixels.h"
#include "support/program.h"
#include "ui/menus.h"
#include "ui/theme.h"
#include "ui/waiting.h"

namespace voltaro {
namespace {

struct Place {
    WindowId window;
    const wchar_t* label;
};

HWND At(const Place& place)
{
    return Labelled(WindowOf(place.window), place.label);
}

int IdOf(const Place& place)
{
    return GetDlgCtrlID(At(place));
}

// "x" for a control that takes input, or is ticked, "-" for another.
std::wstring Marks(
    std::initializer_list<Place> places, bool (*has)(HWND) = [](HWND at) { return IsWindowEnabled(at) != FALSE; })
{
    std::wstring marks;
    for (const Place& place : places)
        marks += has(At(place)) ? L'x' : L'-';
    return marks;
}

void Push(const Place& button)
{
    SendMessageW(At(button), BM_CLICK, 0, 0);
    Pump();
}

struct StatesTest : testing::Test, LoadedProgram { };

TEST_F(StatesTest, SchemeEditor)
{
    constexpr auto kEditor = WindowId::Scheme, kStrip = WindowId::SchemeProcessor, kPage = WindowId::SchemePowerOff;
    constexpr Place kPolicies = {kStrip, L"Application Sensor Policy"},
                    kDim = {WindowId::SchemeDisplay, L"Dim Monitor Brightness"};
    const auto live = [] {
        return Marks({{kStrip, L"New .."}, {kStrip, L"Edit"}, {kStrip, L"Delete"}, {kPage, L"Standby / Hibernate"},
            {kPage, L"CPU utilization in percent"}, {kEditor, L"Edit Settings"}});
    };
    const auto refresh = [] { SendMessageW(WindowOf(kEditor), WM_COMMAND, kEditorRefresh, 0); };
    const auto isReady = [] { return IsItemEnabled(GetMenu(WindowOf(kEditor)), kEditorRefresh); };
    ASSERT_TRUE(StartWorkers());
    Machine().schemes[0].children[16].text = L"nightly_BACKUP"; // shown as the list spells it
    Command(WindowId::Main, kPowerScheme);
    EXPECT_EQ(WindowText(At(kPolicies)), L"Nightly_Backup");
    EXPECT_EQ(WindowText(At({kPage, L"Folder of the script"})), programTexts.binDirectory.view());
    EXPECT_EQ(live(), L"xxxxxx");
    Choose(kStrip, IdOf(kPolicies), L"(None)");
    Push({kPage, L"If CPU utilization is above"});
    Push({kEditor, L"Edit Settings"});
    EXPECT_EQ(live(), L"x--x-x");
    Choose(WindowId::SchemeDisplay, IdOf(kDim), L"After 20 Mins");
    OnPowerRefreshed(ReadResult::Read); // of a refresh that nobody waits for any more
    EXPECT_EQ(WindowText(At(kDim)), L"After 20 Mins");

    TakeOperations();
    refresh();
    refresh(); // during the first
    EXPECT_EQ(live(), L"------");
    EXPECT_TRUE(WaitFor(isReady));
    EXPECT_EQ(TakeOperations(), (Operations{L"GetPowerSchemes", L"GetPolicies", L"GetCurrentpowersettings"}));
    BoxScript lost{{L"Connection Issue", {}}};
    Agent().SetFault(L"GetPolicies", {FaultKind::CloseAtOnce, {}});
    refresh();
    EXPECT_TRUE(WaitFor(isReady));
    EXPECT_EQ(TakeOperations(), (Operations{L"GetPowerSchemes", L"GetPolicies"}));
    connection.connected = true;
    Agent().SetFault(L"GetSystemDetails", {FaultKind::Late, L"150"});
    RequestBackgroundRefresh(kRefreshSystemDetails);
    EXPECT_TRUE(WaitFor([&] { return !Agent().Requests().empty(); }));
    refresh();
    connection.connected = false; // before the worker comes to it
    EXPECT_TRUE(WaitFor(isReady));
    StopWorkers(StopOrder::MainWindowDestroyed);
}

TEST_F(StatesTest, PolicyOfAnotherSpelling)
{
    Command(WindowId::Main, kPowerScheme);
    Choose(
        WindowId::SchemeProcessor, IdOf({WindowId::SchemeProcessor, L"Application Sensor Policy"}), L"Presentations");
    Machine().policies[0].children[0].text = L"PRESENTATIONS";
    Push({WindowId::SchemeProcessor, L"Edit"});
    SelectRow(At({WindowId::Policy, L"Exceptions List"}), 0);
    Push({WindowId::Policy, L"Modify Rule.."});
    Push({WindowId::Rule, L"Standby"});
    Push({WindowId::Rule, L"Save"});
    Push({WindowId::Policy, L"Save"});
    const std::wstring sent = LastRequest(L"SetPolicySettings");
    for (const wchar_t* part : {L"<PolicyName>Presentations<", L"<Standby>Yes</Standby>"})
        EXPECT_NE(sent.find(part), std::wstring::npos) << part;
}

TEST_F(StatesTest, JobEditorAndItsList)
{
    constexpr auto kList = WindowId::JobList, kActions = WindowId::JobActions, kPage = WindowId::JobTasks;
    const auto live = [] {
        return Marks({{kActions, L"Kind of power off"}, {kActions, L"Upon Idleness Of :"}, {kActions, L"Power scheme"},
            {kActions, L"Enable Application Sensor Policy "}});
    };
    const auto edit = [](int row) {
        SelectRow(At({kList, L"Scheduled Job List"}), row);
        Push({kList, L"Modify Job.."});
    };
    Command(WindowId::Main, kJobScheduler);
    edit(0);
    EXPECT_EQ(live(), L"--x-"); // it applies a scheme and powers nothing off
    Push({kActions, L"Enable Power Off **"});
    Push({kActions, L"Select Power Scheme"});
    EXPECT_EQ(live(), L"xx-x");
    Command(WindowId::Main, kJobScheduler); // open already, under its editor
    EXPECT_FALSE(IsWindowEnabled(WindowOf(kList)));
    BoxScript unsaved{{L"Changes not saved", {}, Answer::Yes}};
    SendMessageW(WindowOf(WindowId::JobEditor), WM_CLOSE, 0, 0);

    edit(1);
    const HWND tasks = At({kPage, L"Scheduled Task List"});
    SelectRow(tasks, 1);
    const NMHDR twice{tasks, static_cast<UINT_PTR>(GetDlgCtrlID(tasks)), static_cast<UINT>(NM_DBLCLK)};
    SendMessageW(WindowOf(kPage), WM_NOTIFY, twice.idFrom, reinterpret_cast<LPARAM>(&twice));
    SelectRow(tasks, 0);
    Push({kPage, L"Delete"}); // above the loaded one
    Type(kPage, IdOf({kPage, L".exe/.bat File Path :"}), L"D:\\c.bat");
    Push({kPage, L"Update Task"});
    EXPECT_EQ(CellOf(tasks, 0, 0), L"D:\\c.bat");
}

TEST_F(StatesTest, Settings)
{
    constexpr auto kWindow = WindowId::AccessControl, kDevices = WindowId::DeviceControl;
    static std::wstring live;
    Command(WindowId::Main, kPorts);
    platformCalls.showMessageBox = [](const BoxCall&) { // the refusal belongs to the change
        live = Marks({{kWindow, L"TCP Port :"}, {kWindow, L"Local Host"}, {kWindow, L"Change"}});
        return Answer::Ok;
    };
    AnswerWith(L"ApplyHostSettings", L"Not Activated");
    Push({kWindow, L"Change"});
    EXPECT_EQ(live, L"---");
    Type(kWindow, IdOf({kWindow, L"UDP Port :"}), L"9");
    Command(kWindow, IDCANCEL);
    AnswerWith(L"GetCurrenthostsettings", kMalformed);
    Command(WindowId::Main, kPorts);
    EXPECT_EQ(WindowText(At({kWindow, L"UDP Port :"})), L"4917"); // as it was read, not as it was left
    Command(WindowId::Main, kSecurity);
    EXPECT_EQ(
        Marks({{kDevices, L"Disable USB Storage"}, {kDevices, L"Disable Web Cam"}, {kDevices, L"Disable Blue Tooth"}},
            [](HWND box) { return Button_GetCheck(box) != 0; }),
        L"xx-");
}

TEST_F(StatesTest, AFailedCheckGreysWhatTheLoadHadEnabled)
{
    Agent().SetFault(L"GetSystemstatus", {FaultKind::CloseAtOnce, {}});
    const BoxScript failed{{L"Connection Issue", {}}};
    Command(WindowId::Main, kReinitialize);
    for (const int id : {kChange, kResumeButton, kLockScreen, kLogOff, kStandby, kHibernate, kShutdown, kRestart})
        EXPECT_FALSE(IsWindowEnabled(ControlOf(WindowOf(WindowId::Main), id))) << id;
    for (const unsigned item : {kSystemInfo, kSavingsReport, kPowerScheme, kSecurity, kJobScheduler, kSnooze, kProxy,
             kUpdate, kRefresh, kActivate})
        EXPECT_FALSE(IsItemEnabled(MainMenuBar(), item)) << item;
}

TEST_F(StatesTest, SavingsReport)
{
    constexpr auto kWindow = WindowId::Savings, kProfile = WindowId::Profile;
    const HWND page = WindowOf(WindowId::SavingsGraph), picker = ControlOf(WindowOf(kWindow), 101);
    Command(WindowId::Main, kSavingsReport);
    const NMHDR picked{picker, 101, static_cast<UINT>(DTN_DATETIMECHANGE)};
    SendMessageW(WindowOf(kWindow), WM_NOTIFY, 101, reinterpret_cast<LPARAM>(&picked));
    Command(kWindow, IDCANCEL); // while the day rests
    TakeOperations();
    static_cast<void>(WaitServingWindows(nullptr, 600));
    Pump();
    EXPECT_EQ(TakeOperations(), Operations{});

    Push({kWindow, L"&Power Consumption Settings"});
    const std::wstring rows = ListText(ControlOf(WindowOf(kProfile), 101), false);
    for (const wchar_t* row : {L"\nSystem Manufacturer\tHarrowgate Computers\r", L"\nSystem Model\tFieldbook 14 G3\r"})
        EXPECT_NE(rows.find(row), std::wstring::npos) << rows;

    const auto ink = [&](bool known) { // of the warning that the powers are not known
        shownDay = MakeShownDay({2024, 2, 29}, {{.poweredOn = 3600, .active = 3600}, {}, 0, 0}, RoundProfile());
        shownDay->profileKnown = known;
        const auto print = [](HDC dc, void* of) {
            SendMessageW(static_cast<HWND>(of), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
        };
        const Pixels pixels(RenderBitmap(670, 497, print, WindowOf(WindowId::SavingsTotals)).Get());
        return pixels.CountIn(RGB(192, 0, 0), {0, 0, 670, 100}) > 50;
    };
    EXPECT_TRUE(!ink(true) && ink(false));
    shownDay->soFar = true;
    RecomputeSavings();
    EXPECT_TRUE(shownDay->soFar);
    Command(kProfile, IDCANCEL);
    Command(WindowId::Main, kSavingsReport);
    ClickTab(FindWindowExW(WindowOf(kWindow), nullptr, WC_TABCONTROLW, nullptr), 2);
    const auto colourOf = [&](std::int64_t idle) {
        shownDay = MakeShownDay({2024, 2, 29}, {{.active = 43200, .idle = idle}, {}, 0, 0}, RoundProfile());
        RefreshGraphPage();
        UpdateWindow(page);
        const WindowDc dc(page);
        return GetPixel(dc.Get(), 105, 450);
    };
    EXPECT_EQ(colourOf(36000), RGB(0, 96, 0));
    EXPECT_EQ(colourOf(0), RGB(0, 42, 138)) << "another day";
}

// Whether a picture stands at a place of a page.
bool Shows(const Pixels& page, int resource, const RECT& at)
{
    static std::pair<int, SIZE> wanted;
    wanted = {resource, {at.right - at.left, at.bottom - at.top}};
    const auto draw
        = [](HDC dc, void*) { DrawTransparentBitmap(dc, wanted.first, 0, 0, wanted.second.cx, wanted.second.cy); };
    const Pixels picture(RenderBitmap(wanted.second.cx, wanted.second.cy, draw, nullptr).Get());
    bool same = true;
    for (int i = 0; i < picture.Width() * picture.Height(); ++i)
        same &= picture.At(i % picture.Width(), i / picture.Width())
            == page.At(at.left + i % picture.Width(), at.top + i / picture.Width());
    return same;
}

TEST_F(StatesTest, Pictures)
{
    constexpr std::tuple<const wchar_t*, int, const wchar_t*, int, const wchar_t*, int> kRows[] = {
        {kNoBattery, IDB_BATTERY_NONE, L"On AC", IDB_SOURCE_AC, L"Activated", IDB_LICENSE_ACTIVE},
        {L"Charging", IDB_BATTERY_CHARGING, L"On AC", IDB_SOURCE_AC, L"Not Activated", IDB_LICENSE_INACTIVE},
        {L"Unknown status", IDB_BATTERY_UNKNOWN, L"UPS", IDB_SOURCE_BATTERY, L"License Expired", IDB_LICENSE_EXPIRED},
        {L"Low", IDB_BATTERY_DISCHARGING, L"On Battery", IDB_SOURCE_BATTERY, L"Activated", IDB_LICENSE_ACTIVE}};
    for (const auto& [battery, itsPicture, source, sourcePicture, license, licensePicture] : kRows) {
        agentRecords.battery.rows = {{L"", source}, {L"", battery}};
        agentRecords.activationStatus = license;
        const Pixels page(RenderBitmap(
            504, 516, [](HDC dc, void*) { DrawMainWindow(dc); }, nullptr)
                              .Get());
        EXPECT_TRUE(Shows(page, itsPicture, {184, 112, 216, 144})) << battery;
        EXPECT_TRUE(Shows(page, sourcePicture, {352, 112, 384, 144})) << source;
        EXPECT_TRUE(Shows(page, licensePicture, {255, 6, 380, 22})) << license;
    }
    constexpr std::pair<int, int> kFaces[]
        = {{kLockScreen, IDB_ACTION_LOCK_SCREEN}, {kLogOff, IDB_ACTION_LOG_OFF}, {kStandby, IDB_ACTION_STANDBY},
            {kHibernate, IDB_ACTION_HIBERNATE}, {kShutdown, IDB_ACTION_SHUTDOWN}, {kRestart, IDB_ACTION_RESTART}};
    for (const auto& [button, picture] : kFaces)
        EXPECT_EQ(reinterpret_cast<HBITMAP>(
                      SendMessageW(ControlOf(WindowOf(WindowId::Main), button), BM_GETIMAGE, IMAGE_BITMAP, 0)),
            BitmapOf(picture));
    for (const auto& [state, machine] : {std::pair(L"On", IDB_MACHINE_ON), {L"Off", IDB_MACHINE_OFF}}) {
        const auto details = ParseAnswer((std::wstring(L"<d><CPUInfo><a/><a/><a/><a/><s>") + state
            + L"</s></CPUInfo><OSInfo><n>Ubuntu 22</n></OSInfo></d>")
                                             .c_str());
        agentRecords.details.Read(&*details);
        const Pixels page(RenderBitmap(
            90, 150, [](HDC dc, void*) { DrawMachine(dc, agentRecords.details); }, nullptr)
                              .Get());
        EXPECT_TRUE(Shows(page, machine, {5, 15, 80, 90}) && Shows(page, IDB_SYSTEM_RING, {4, 99, 84, 124})) << state;
    }
}

} // namespace
} // namespace voltaro
