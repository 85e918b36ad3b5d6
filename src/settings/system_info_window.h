#pragma once

#include "base/windows_api.h"

namespace voltaro {

// The window's procedure; the table of windows names it.
LRESULT CALLBACK SystemInfoWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// What the main window's menu command calls: shows the window over the main window, which is disabled while it is open.
void OpenSystemInfoWindow(HWND main);

// Fills the six lists from the state's details and ends the busy indicator. On the user-interface thread, after a load
// or a refresh.
void FillSystemInfo();

// For the refresh worker when the agent did not answer: ends the busy indicator, then the agent is lost. On any thread.
void OnSystemInfoRefreshFailed();

} // namespace voltaro
