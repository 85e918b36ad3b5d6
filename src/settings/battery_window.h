#pragma once

#include "base/windows_api.h"

namespace voltaro {

// The window's procedure; the table of windows names it.
LRESULT CALLBACK BatteryWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// What the main window's menu command calls: reads the battery, fills the window and shows it. A lost agent is reported
// and opens nothing.
void OpenBatteryWindow(HWND main);

// Shows what the state holds of the battery; for whoever reads it while the window is open.
void RefreshBatteryWindow();

} // namespace voltaro
