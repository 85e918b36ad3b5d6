// System information: a page for each part of what the agent reports about the machine. Opened from the main menu; the
// load and the refresh worker fill it.
#include "settings/system_info_window.h"

#include "console/agent_lost.h"
#include "console/agent_records.h"
#include "console/background_refresh.h"
#include "console/connection_state.h"
#include "console/main_hold.h"
#include "console/ui_calls.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "resources/resource_ids.h"
#include "settings/machine_texts.h"
#include "settings/system_info_pages.h"
#include "ui/clipboard.h"
#include "ui/tabs.h"

namespace voltaro {
namespace {

enum Id : int { kTab = 101, kCopyAll, kRefresh, kBusyText, kBusyBar };

// clang-format off
constexpr Control kControls[] = {
    {Kind::Tab,         kTab,      L"",                             2,   2, 650, 408, kPlain, L"Parts of the system"},
    {Kind::Label,       kBusyText, L"Refreshing, please wait ..",  14, 423, 170,  18, kHidden},
    {Kind::BusyBar,     kBusyBar,  L"",                           190, 423, 160,  16, kHidden},
    {Kind::Push,        kCopyAll,  L"Copy all",                   462, 418,  85,  25},
    {Kind::DefaultPush, kRefresh,  L"Refresh",                    555, 418,  85,  25},
};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 654, 456));

constexpr int kBusyControls[] = {kBusyText, kBusyBar};

bool busy = false; // a refresh was asked for and has not ended

HWND Window()
{
    return WindowOf(WindowId::SystemInfo);
}

void SetBusy(bool on)
{
    constexpr LPARAM kStepMs = 50;
    busy = on;
    SendMessageW(ControlOf(Window(), kBusyBar), PBM_SETMARQUEE, on, kStepMs);
    Show(Window(), kBusyControls, on);
    Enable(Window(), kRefresh, !on);
}

void OnRefresh(HWND)
{
    if (busy || !connection.connected)
        return;
    SetBusy(true);
    RequestBackgroundRefresh(kRefreshSystemDetails);
}

void OnCopyAll(HWND window)
{
    CopyToClipboard(window, DetailsText(agentRecords.details));
}

void OnClose(HWND window)
{
    if (!IsWindowVisible(window))
        return;
    ReleaseMainWindow(HoldReason::SystemInfo); // first, else another program's window would come to the front
    HideWindow(window);
    SetForegroundWindow(FrontWindow());
}

constexpr Command kCommands[] = {
    {kRefresh, OnRefresh},
    {kCopyAll, OnCopyAll},
    {ID_SYSTEM_INFO_REFRESH, OnRefresh},
    {ID_SYSTEM_INFO_HELP, ShowHelp},
    {kRefreshKey, OnRefresh},
    {IDOK, OnRefresh},
    {IDCANCEL, OnClose},
};

constexpr WindowTables kTables = {kControls, kCommands, L"System Info.htm"};

// The pages are made after their window.
void BindPages(HWND tab)
{
    SetTabs(tab,
        {{
            {L"CPU", WindowOf(WindowId::SystemInfoCpu)},
            {L"Power", WindowOf(WindowId::SystemInfoPower)},
            {L"OS", WindowOf(WindowId::SystemInfoOs)},
            {L"Network", WindowOf(WindowId::SystemInfoNetwork)},
            {L"Disk", WindowOf(WindowId::SystemInfoDisks)},
        }});
}

} // namespace

LRESULT CALLBACK SystemInfoWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

void OpenSystemInfoWindow(HWND)
{
    const HWND tab = ControlOf(Window(), kTab);
    if (TabCtrl_GetItemCount(tab) == 0)
        BindPages(tab);
    SelectTab(tab, 0);
    SetBusy(false);
    ShowAndActivate(Window());
    HoldMainWindow(HoldReason::SystemInfo, Window());
}

void FillSystemInfo()
{
    FillSystemInfoPages();
    SetBusy(false);
}

void OnSystemInfoRefreshFailed()
{
    PostOnUi([] { SetBusy(false); });
    OnAgentLost();
}

} // namespace voltaro
