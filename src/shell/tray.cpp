#include "shell/tray.h"

#include "base/fixed_text.h"
#include "base/platform_calls.h"
#include "console/agent_state.h"
#include "console/connection_state.h"
#include "console/main_hold.h"
#include "console/program_texts.h"
#include "console/system_events.h"
#include "console/ui_calls.h"
#include "resources/resource_ids.h"
#include "shell/main_menus.h"
#include "shell/main_window.h"
#include "ui/theme.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace voltaro {
namespace {

NOTIFYICONDATAW record{}; // its size is the platform's own
enum class IconState : std::uint8_t { None, Added, Missing };
IconState iconState = IconState::None;
constexpr UINT_PTR kRetryTimer = 1;

UINT TaskbarCreated()
{
    static const UINT message = RegisterWindowMessageW(L"TaskbarCreated");
    return message;
}

void PutTip(std::wstring_view tooltip)
{
    const FixedText<std::size(NOTIFYICONDATAW{}.szTip)> tip(tooltip);
    std::copy_n(tip.c_str(), std::size(record.szTip), record.szTip);
}

void TryToAdd()
{
    iconState = Shell_NotifyIconW(NIM_ADD, &record) ? IconState::Added : IconState::Missing;
    if (iconState == IconState::Missing)
        SetTimer(record.hWnd, kRetryTimer, timing.trayRetry, nullptr);
    else
        KillTimer(record.hWnd, kRetryTimer);
}

// As any click on the icon does; only while connected.
void ReadBatteryWhenConnected()
{
    if (connection.connected)
        ReadOrLose(ReadBatteryInfo);
}

void OnClicked(HWND main)
{
    if (trayRestoreAllowed)
        RestoreFromTray(main);
    if (!connection.connected)
        return;
    ReadBatteryWhenConnected();
    ShowNormalControls(main);
}

void ShowMenu(HWND main)
{
    SetForegroundWindow(FrontWindow());
    POINT cursor{};
    GetCursorPos(&cursor);
    TrackPopupMenu(TrayMenu(), TPM_LEFTALIGN | TPM_TOPALIGN, cursor.x, cursor.y, 0, main, nullptr);
    PostMessageW(main, WM_NULL, 0, 0); // lets the menu close when the user clicks elsewhere
    ReadBatteryWhenConnected();
}

void OnCallback(LPARAM mouseOrKey)
{
    switch (mouseOrKey) {
    case WM_LBUTTONUP: return KeepEvent(kTrayClicked);
    case WM_RBUTTONUP:
    case WM_CONTEXTMENU:
    case NIN_KEYSELECT: return KeepEvent(kTrayMenuAsked);
    default: return;
    }
}

} // namespace

void AddTrayIcon(HWND main)
{
    record = {};
    record.cbSize = sizeof record;
    record.hWnd = main;
    record.uID = kTrayIconId;
    record.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    record.uCallbackMessage = kTrayMessage;
    record.hIcon = TrayIcon(IDI_RUNNING);
    PutTip(programTexts.trayTooltip);
    // The task bar has fewer rights than a console that runs as administrator, and its message would not pass.
    ChangeWindowMessageFilterEx(main, TaskbarCreated(), MSGFLT_ALLOW, nullptr);
    TryToAdd();
}

void ChangeTrayIcon(int iconResource, std::wstring_view tooltip)
{
    record.hIcon = TrayIcon(iconResource);
    PutTip(tooltip);
    if (iconState == IconState::Added)
        Shell_NotifyIconW(NIM_MODIFY, &record);
}

void RemoveTrayIcon()
{
    if (std::exchange(iconState, IconState::None) == IconState::Added)
        Shell_NotifyIconW(NIM_DELETE, &record);
    KillTimer(record.hWnd, kRetryTimer);
}

void SendToTray(HWND main)
{
    ShowWindow(main, iconState == IconState::Missing ? SW_MINIMIZE : SW_HIDE);
}

void RestoreFromTray(HWND main)
{
    ShowWindow(main, SW_RESTORE);
    ShowWindow(main, SW_SHOW);
    SetForegroundWindow(FrontWindow());
}

std::optional<LRESULT> AnswerTray(UINT message, WPARAM w, LPARAM l)
{
    if (message == TaskbarCreated())
        KeepEvent(kTaskbarCreated);
    else if (message == WM_TIMER && w == kRetryTimer)
        TryToAdd();
    else if (message == kTrayMessage && w == kTrayIconId)
        OnCallback(l);
    else
        return std::nullopt;
    return 0;
}

void ServeTrayEvents(HWND main, unsigned events)
{
    if (events & kTaskbarCreated && iconState != IconState::None)
        TryToAdd();
    if (events & kTrayClicked)
        OnClicked(main);
    if (events & kTrayMenuAsked)
        ShowMenu(main);
}

} // namespace voltaro
