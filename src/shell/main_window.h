#pragma once

#include "base/windows_api.h"

#include <string>
#include <string_view>

namespace voltaro {

inline constexpr const wchar_t* kWebSiteHost = L"www.voltaro.example";
inline constexpr const wchar_t* kNoticeLine = L"Voltaro and its emblems are trade marks of Kestrelfen.";
inline constexpr const wchar_t* kRightsLine = L"All rights reserved.";

// Controls of the main window that other files of the shell address.
enum MainControl : int {
    kSchemeList = 5001,
    kHostLine = 6007,
    kChargeLine = 6018,
    kSavingsList = 6023,
    kSchemeGroup = 7001, // this and the following have no number of their own to the outside
    kActionsGroup,
    kInnerGroup,
    kProgressBar,
    kSecondProgressBar,
};

// The window's procedure; the table of windows names it.
LRESULT CALLBACK MainWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// While the console checks and loads, a progress bar (0 to 100) stands in the place of the quick actions and the
// savings list.
void ShowBusyView(HWND window);
void ShowIdleView(HWND window);
void SetProgress(HWND window, int position); // 0 to 100

// The state after most commands: the scheme list disabled and showing the current scheme, "Set" hidden, "Change" shown.
void ShowNormalControls(HWND window);

// Draws the status area, pictures and notices; WM_PAINT, WM_PRINTCLIENT and tests use it alike.
void DrawMainWindow(HDC dc);

// What the host line says: not connected, loading, or the machine's name.
[[nodiscard]] std::wstring HostLineText();

} // namespace voltaro
