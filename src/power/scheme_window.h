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
