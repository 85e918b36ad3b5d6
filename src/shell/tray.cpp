#include "shell/tray.h"

#include "base/fixed_text.h"
#include "console/agent_lost.h"
#include "console/agent_state.h"
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
bool added = false;

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

// Reads the battery as any tray click does; only while connected.
void ReadBatteryWhenConnected()
{
    if (state.connected && !ReadBatteryInfo())
        OnAgentLost();
}

void OnLeftClick(HWND main)
{
    if (state.trayRestoreAllowed) {
        ShowWindow(main, SW_RESTORE);
        ShowWindow(main, SW_SHOW);
        SetForegroundWindow(main);
    }
    if (!state.connected)
        return;
    ReadBatteryWhenConnected();
    ShowNormalControls(main);
}

void OnRightClick(HWND main)
{
    SetForegroundWindow(main);
    POINT cursor{};
    GetCursorPos(&cursor);
    TrackPopupMenu(TrayMenu(), TPM_LEFTALIGN | TPM_TOPALIGN, cursor.x, cursor.y, 0, main, nullptr);
    PostMessageW(main, WM_NULL, 0, 0); // lets the menu close when the user clicks elsewhere
    ReadBatteryWhenConnected();
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
    PutTip(state.trayTooltip);
    // The task bar has fewer rights than a console that runs as administrator, and its news would not pass.
    ChangeWindowMessageFilterEx(main, TaskbarCreated(), MSGFLT_ALLOW, nullptr);
    added = true;
    Shell_NotifyIconW(NIM_ADD, &record);
}

void ChangeTrayIcon(int iconResource, std::wstring_view tooltip)
{
    record.hIcon = TrayIcon(iconResource);
    PutTip(tooltip);
    if (added)
        Shell_NotifyIconW(NIM_MODIFY, &record);
}

void RemoveTrayIcon()
{
    if (std::exchange(added, false))
        Shell_NotifyIconW(NIM_DELETE, &record);
}

std::optional<LRESULT> AnswerTray(HWND main, UINT message, WPARAM w, LPARAM l)
{
    if (message == TaskbarCreated() && added) {
        Shell_NotifyIconW(NIM_ADD, &record);
        return 0;
    }
    if (message != kTrayMessage || w != kTrayIconId)
        return std::nullopt;
    // The shell may send its news in the midst of a wait for the agent; they then queue up as other input does.
    if (IsWaitingForAgent())
        PostMessageW(main, message, w, l);
    else if (l == WM_LBUTTONUP)
        OnLeftClick(main);
    else if (l == WM_RBUTTONUP)
        OnRightClick(main);
    return 0;
}

} // namespace voltaro
