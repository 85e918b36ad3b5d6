#pragma once

#include "base/windows_api.h"
#include "console/agent_state.h"
#include "link/records.h"

namespace voltaro {

// The window's procedure; the table of windows names it.
LRESULT CALLBACK AccessControlWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// What the main window's menu command calls: reads the record, fills the window and shows it. A lost agent is reported
// and opens nothing.
void OpenAccessControlWindow(HWND main);

// The settings as the agent sent them last; read at the load too.
inline HostSettings hostSettings;
ReadResult ReadHostSettings();

} // namespace voltaro
