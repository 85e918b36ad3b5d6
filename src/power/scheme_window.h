#pragma once

#include "base/windows_api.h"
#include "console/agent_state.h"

namespace voltaro {

// The editor's controls and menu items.
enum SchemeWindowControl : int {
    kEditorScheme = 4001,
    kApplyScheme,
    kNewSchemeName,
    kSaveNewScheme,
    kSchemeTab,
    kEditSettings,
    kSaveAndApply,
    kDeleteScheme,
    kEditorOk,
    kEditorBusy,
    kNewScheme = 4051, // the menu's
    kEditorHelp,
    kEditorRefresh,
};

inline constexpr const wchar_t* kSchemeHelpPage = L"advanced.htm"; // of the editor and what it opens

// Whether a message would close or change a window that is disabled: WM_CLOSE, commands and notifications can be sent
// to it all the same, while the window or box over it works on its data.
[[nodiscard]] inline bool IsSentToDisabled(HWND window, UINT message)
{
    return !IsWindowEnabled(window) && (message == WM_CLOSE || message == WM_COMMAND || message == WM_NOTIFY);
}

// The editor's messages.
LRESULT CALLBACK SchemeWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Reads schemes, policies and current settings from the agent, then shows the editor; an editor that is open already
// only comes to the front. A lost agent opens nothing.
void OpenSchemeWindow(HWND main);

// Signalled when the editor was closed with "OK", until it is opened again. Stays owned by the editor.
[[nodiscard]] HANDLE SchemeWindowClosed();

// The ends of a background refresh that the editor asked for; for the refresh worker. The first shows what was read,
// the second brings the controls back and reports the agent lost.
void OnPowerRefreshed(ReadResult current);
void OnPowerRefreshFailed();

} // namespace voltaro
