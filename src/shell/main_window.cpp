// The main window: the console's home. Opened at start-up; every other window is opened from its commands.
#include "shell/main_window.h"

#include "base/com_apartment.h"
#include "base/error_log.h"
#include "base/text.h"
#include "console/agent_records.h"
#include "console/agent_state.h"
#include "console/change.h"
#include "console/connection_state.h"
#include "console/help.h"
#include "console/main_hold.h"
#include "console/main_view.h"
#include "console/system_events.h"
#include "console/ui_calls.h"
#include "console/windows.h"
#include "link/host_config.h"
#include "power/scheme_window.h"
#include "resources/resource_ids.h"
#include "savings/savings_window.h"
#include "scheduler/job_list_window.h"
#include "settings/access_control_window.h"
#include "settings/battery_window.h"
#include "settings/device_control_window.h"
#include "settings/proxy_window.h"
#include "settings/snooze_window.h"
#include "settings/system_info_window.h"
#include "shell/about.h"
#include "shell/activation_window.h"
#include "shell/closing.h"
#include "shell/connection.h"
#include "shell/main_commands.h"
#include "shell/main_menu_items.h"
#include "shell/main_menus.h"
#include "shell/pause.h"
#include "shell/quick_actions.h"
#include "shell/tray.h"
#include "shell/update_window.h"
#include "shell/window_table.h"
#include "ui/boxes.h"
#include "ui/canvas.h"
#include "ui/combo_box.h"
#include "ui/commands.h"
#include "ui/controls.h"
#include "ui/list_view.h"
#include "ui/menus.h"
#include "ui/navigation.h"
#include "ui/row_tips.h"
#include "ui/theme.h"
#include "ui/tooltip.h"
#include "ui/window_class.h"

namespace voltaro {
namespace {

// clang-format off
constexpr Control kControls[] = {
    // The keyboard begins where Enter does no harm; from there it goes in reading order.
    // kind                 id                   text                                x    y    w    h
    {Kind::GroupBox,         kSchemeGroup,       L"Current Active Power Scheme",     105,  30, 385,  70},
    {Kind::SortedCombo,      kSchemeList,        L"",                                120,  60, 245, 150, kPlain, L"Power scheme"},
    {Kind::DefaultPush,      kChange,            L"Change",                          380,  60,  95,  25},
    {Kind::DefaultPush,      kSet,               L"Set",                             380,  60,  95,  25, kHidden},
    {Kind::CentredPlainEdit, kChargeLine,        L"",                                220, 108,  50,  16, kNoTabStop, L"Battery charge"},
    {Kind::PlainEdit,        kHostLine,          L"",                                 15, 195, 475,  16, kNoTabStop, L"Host"},
    {Kind::TabStopGroupBox,  kActionsGroup,      L"Quick Power Options",              15, 220, 475,  95},
    {Kind::TabStopGroupBox,  kInnerGroup,        L"",                                 20, 225, 465,  85, kPlain, L"Actions"},
    {Kind::BitmapPush,       kLockScreen,        L"Lock Screen",                      42, 245,  41,  41},
    {Kind::BitmapPush,       kLogOff,            L"LogOff",                          118, 245,  41,  41},
    {Kind::BitmapPush,       kStandby,           L"Standby",                         195, 245,  41,  41},
    {Kind::BitmapPush,       kHibernate,         L"Hibernate",                       270, 245,  41,  41},
    {Kind::BitmapPush,       kShutdown,          L"Shutdown",                        346, 245,  41,  41},
    {Kind::BitmapPush,       kRestart,           L"Restart",                         422, 245,  41,  41},
    {Kind::ListView,         kSavingsList,       L"Main List01",                     160, 325, 330, 140, kPlain, L"Savings till date"},
    {Kind::DefaultBitmapPush, kResumeButton,     L"Resume",                          105,   4,  95,  22},
    {Kind::DefaultPush,      kExitToTray,        L"Exit to Tray",                    390,   4, 100,  22},
    {Kind::SmoothProgress,   kProgressBar,       L"",                                 50, 140, 346,  23, kHidden, L"Progress"},
    {Kind::Progress,         kSecondProgressBar, L"",                                 40, 230, 425,  20, kHidden, L"Progress"},
};

// What a quick-action button shows, says when pointed at, and the caption painted under it inside the inner group.
struct ActionButton {
    int button;
    int bitmap;
    const wchar_t* tip;
    int captionX;
    const wchar_t* caption;
};
constexpr int kCaptionY = 65;
constexpr ActionButton kActionButtons[] = {
    {kLockScreen, IDB_ACTION_LOCK_SCREEN, L"Lock this system's screen",           9, L"Lock Screen"},
    {kLogOff,     IDB_ACTION_LOG_OFF,     L"Log off from this system",           99, L"Log Off"},
    {kStandby,    IDB_ACTION_STANDBY,     L"Put this system to standby",        173, L"Standby"},
    {kHibernate,  IDB_ACTION_HIBERNATE,   L"Hibernate this system",             244, L"Hibernate"},
    {kShutdown,   IDB_ACTION_SHUTDOWN,    L"Shut this system down",             319, L"Shutdown"},
    {kRestart,    IDB_ACTION_RESTART,     L"Restart this system",               403, L"Restart"},
};
// clang-format on

static_assert(IdsAreUnique(kControls));
static_assert(CoversQuickActions(kActionButtons, [](const ActionButton& action) { return action.button; }));
static_assert(FitInside(kControls, 504, 516)); // of 510 x 565, less the frame, the caption and the menu bar

constexpr Column kSavingsColumns[] = {{L"Estimated (Till date), Power Details", 210}, {L"Value", 120}};

constexpr Box kSetFailed = {L"Set Scheme Failed", L"Unable to Set Scheme."};
constexpr Box kNoDirectory = {L"Error!", L"Could not read Environment variable 'VOLTARO_HOME' !"};
constexpr const wchar_t* kSetRefused = L"Unable to Set Scheme";
constexpr const wchar_t* kHelpPage = L"Main Window.htm";

constexpr int kBusyViewHides[] = {kActionsGroup, kInnerGroup, kSavingsList}; // and the quick actions

HFONT MainFont()
{
    return FontOf(15, 400);
}

void ShowAgentLost()
{
    const HWND window = WindowOf(WindowId::Main);
    ShowIdleView(window);
    ApplyOccasion(window, Occasion::AgentLost);
    ClearList(ControlOf(window, kSavingsList));
    Repaint(window);
}

// "Set" has nothing to apply while no scheme is selected.
void EnableSet(HWND window)
{
    Enable(window, kSet, !SelectedText(window, kSchemeList).empty());
}

void SelectCurrentScheme()
{
    const HWND window = WindowOf(WindowId::Main);
    SelectExact(window, kSchemeList, agentRecords.currentScheme.powerScheme);
    EnableSet(window);
}

void ShowSchemes()
{
    FillCombo(WindowOf(WindowId::Main), kSchemeList, agentRecords.schemes);
    SelectCurrentScheme();
}

void ShowCharge()
{
    SetText(WindowOf(WindowId::Main), kChargeLine,
        connection.connected ? std::wstring(agentRecords.battery.Charge()) : std::wstring());
}

// While a check runs the console is not ready, and repaints in its own steps.
void RepaintMain()
{
    if (IsConsoleReady())
        Repaint(WindowOf(WindowId::Main));
}

// Paints the captions under the buttons on the inner group itself, between a begin and an end of its own paint.
void PaintInnerGroup(HWND window)
{
    const HWND group = ControlOf(window, kInnerGroup);
    InvalidateRect(group, nullptr, FALSE);
    PAINTSTRUCT paint;
    const HDC dc = Checked(BeginPaint(group, &paint), "BeginPaint");
    for (const ActionButton& action : kActionButtons)
        DrawTextAt(dc, action.captionX, kCaptionY, action.caption, MainFont(), kTextGreen);
    EndPaint(group, &paint);
}

void OnBoxClosed()
{
    ApplyHolds();
    ServeKeptEvents();
}

// --- handlers ---

LRESULT OnCreate(HWND window)
{
    if (!CreateControls(window, kControls, MainFont()))
        return -1;
    const HWND list = ControlOf(window, kSavingsList);
    SetColumns(list, kSavingsColumns);
    SetRowTips(list);
    SetListColours(list, RGB(255, 255, 255), kProductGreen);
    for (const ActionButton& action : kActionButtons) {
        const HWND button = ControlOf(window, action.button);
        SendMessageW(button, BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(BitmapOf(action.bitmap)));
        SetTooltip(button, action.tip);
    }
    SendMessageW(
        ControlOf(window, kResumeButton), BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(BitmapOf(IDB_RESUME)));
    BuildMainMenus(window);
    mainView = {ShowAgentLost, ShowSchemes, SelectCurrentScheme, ShowCharge, RepaintMain};
    boxClosed = OnBoxClosed;

    HostConfigText port;
    HostConfigText second; // of no use to the console
    if (!TcpPortGetter(port, second))
        ShowMessage(nullptr, kNoDirectory);
    servicePort = LeadingNumber(port);
    PreparePauseStatus();
    return 0;
}

LRESULT OnPaint(HWND window)
{
    SetText(window, kHostLine, HostLineText());
    ShowCharge();
    {
        const Canvas canvas(window);
        DrawMainWindow(canvas.Dc());
    }
    PaintInnerGroup(window);
    return 0;
}

void OnChange(HWND window)
{
    SelectExact(window, kSchemeList, agentRecords.currentScheme.powerScheme);
    Enable(window, kSchemeList, true);
    Show(window, kChange, false);
    Show(window, kSet, true);
    EnableSet(window);
    SetFocus(ControlOf(window, kSchemeList));
}

bool IsChoosing(HWND window)
{
    return IsWindowEnabled(ControlOf(window, kSchemeList)) != FALSE;
}

void ApplyChosenScheme(HWND window, const std::wstring& scheme)
{
    const ChangeTexts texts{kSetRefused, kSetFailed, {}, true};
    const ChangeResult result = SubmitChange(window, texts, WithText(Operation::ApplyPowerScheme, L"scheme", scheme));
    if (result == ChangeResult::Done || result == ChangeResult::Unclear)
        ReadOrLose(ReadCurrentPowerSettings);
}

void OnSet(HWND window)
{
    const std::wstring scheme = SelectedText(window, kSchemeList);
    if (scheme.empty())
        return;
    Enable(window, kSchemeList, false);
    Show(window, kSet, false);
    Repaint(window);
    ApplyChosenScheme(window, scheme);
    ShowNormalControls(window);
    FocusOn(window, kChange);
}

void OnEnter(HWND window)
{
    if (IsChoosing(window))
        OnSet(window);
}

void OnEscape(HWND window)
{
    if (!IsChoosing(window))
        return;
    ShowNormalControls(window);
    FocusOn(window, kChange);
}

void OnRefreshKey(HWND window)
{
    if (IsItemEnabled(MainMenuBar(), kRefresh))
        RefreshConsoleData(window);
}

void OnHelp(HWND)
{
    OpenHelp(GetDesktopWindow(), kHelpPage);
    if (connection.connected)
        ShowNormalControls(WindowOf(WindowId::Main));
}

void OnWebSite(HWND window)
{
    EnterComApartment(); // for the shell's extensions
    ShellExecuteW(window, L"open", Format(L"http://%ls", kWebSiteHost).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

void ReadBatteryAfterPowerChange()
{
    if (!connection.connected)
        return;
    if (ReadOrLose(ReadBatteryInfo) != ReadResult::Lost && IsWindowVisible(WindowOf(WindowId::Battery)))
        RefreshBatteryWindow();
}

LRESULT OnPowerBroadcast(WPARAM event)
{
    if (event == PBT_APMPOWERSTATUSCHANGE)
        KeepEvent(kPowerChanged);
    return TRUE;
}

void ServeEvents(HWND window)
{
    const unsigned events = TakeEvents();
    ServeTrayEvents(window, events);
    if (events & kPowerChanged)
        ReadBatteryAfterPowerChange();
}

// What a themed control asks for when it paints the window's part under itself.
void PrintClient(HWND window, HDC dc)
{
    FillWithGround(window, dc);
    DrawMainWindow(dc);
}

// clang-format off
constexpr Command kCommands[] = {
    {kTrayClose,        OnCloseQuestion},
    {kTrayHelp,         OnHelp},
    {kTrayAbout,        OnAbout},
    {kResume,           OnResume},
    {kPauseOneHour,     OnPause<1>},
    {kPauseOneHour + 1, OnPause<2>},
    {kPauseOneHour + 2, OnPause<3>},
    {kPauseOneHour + 3, OnPause<4>},
    {kPauseFiveHours,   OnPause<5>},
    {kTrayVoltaro,      RestoreFromTray},
    {kStandby,          OnQuickAction<kStandby>},
    {kHibernate,        OnQuickAction<kHibernate>},
    {kShutdown,         OnQuickAction<kShutdown>},
    {kRestart,          OnQuickAction<kRestart>},
    {kLogOff,           OnQuickAction<kLogOff>},
    {kLockScreen,       OnQuickAction<kLockScreen>},
    {kChange,           OnChange},
    {kExitToTray,       SendToTray},
    {kSet,              OnSet},
    {kResumeButton,     OnResume},
    {kMenuExitToTray,   SendToTray},
    {kPowerScheme,      OpenSchemeWindow},
    {kAbout,            OnAbout},
    {kHelp,             OnHelp},
    {kWebSite,          OnWebSite},
    {kSystemInfo,       OpenSystemInfoWindow},
    {kClose,            OnCloseQuestion},
    {kRefresh,          RefreshConsoleData},
    {kJobScheduler,     OpenJobListWindow},
    {kUpdate,           StartUpdateCheck},
    {kPorts,            OpenAccessControlWindow},
    {kBatteryInfo,      OpenBatteryWindow},
    {kSavingsReport,    OpenSavingsWindow},
    {kActivate,         OpenActivationWindow},
    {kReinitialize,     OnReinitialize},
    {kProxy,            OpenProxyWindow},
    {kSecurity,         OpenDeviceControlWindow},
    {kSnooze,           OpenSnoozeWindow},
    {kSchemeList,       EnableSet, CBN_SELCHANGE},
    {kRefreshKey,       OnRefreshKey},
    {IDOK,              OnEnter},
    {IDCANCEL,          OnEscape},
};
// clang-format on
static_assert(
    HasCommands(kCommands, kPauseItems) && HasCommands(kCommands, kBarItems) && HasCommands(kCommands, kTrayItems));

} // namespace

void ShowBusyView(HWND window)
{
    SetProgress(window, 0);
    Show(window, kQuickActionButtons, false);
    Show(window, kBusyViewHides, false);
    Show(window, kProgressBar, true);
}

void ShowIdleView(HWND window)
{
    Show(window, kProgressBar, false);
    SetProgress(window, 0);
    Show(window, kQuickActionButtons, true);
    Show(window, kBusyViewHides, true);
}

void SetProgress(HWND window, int position)
{
    SendMessageW(ControlOf(window, kProgressBar), PBM_SETPOS, static_cast<WPARAM>(position), 0);
}

void ShowNormalControls(HWND window)
{
    SelectExact(window, kSchemeList, agentRecords.currentScheme.powerScheme);
    Enable(window, kSchemeList, false);
    Show(window, kSet, false);
    Show(window, kChange, true);
}

LRESULT CALLBACK MainWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    NavigateWith(window);
    if (const auto answered = AnswerTray(message, w, l))
        return *answered;
    switch (message) {
    case WM_CREATE: return OnCreate(window);
    case WM_PAINT: return OnPaint(window);
    case WM_ERASEBKGND: return 1;
    case WM_PRINTCLIENT: PrintClient(window, reinterpret_cast<HDC>(w)); return 0;
    case WM_COMMAND: Dispatch(kCommands, window, w); return 0;
    case WM_HELP: OnHelp(window); return TRUE;
    case WM_CLOSE: OnCloseQuestion(window); return 0;
    case WM_DESTROY: return OnMainDestroyed();
    case WM_QUERYENDSESSION: return OnQueryEndSession(l);
    case WM_ENDSESSION: return OnEndSession(window, w, l);
    case WM_POWERBROADCAST: return OnPowerBroadcast(w);
    case kRunOnUiMessage: RunSentWork(l); return 0;
    case kPostedOnUiMessage: RunPostedWork(); return 0;
    case kServeEventsMessage: ServeEvents(window); return 0;
    default: return DefaultAnswer(window, message, w, l);
    }
}

} // namespace voltaro
