#pragma once

#include "base/windows_api.h"
#include "console/connection_state.h"

namespace voltaro {

// The window's procedure; the table of windows names it.
LRESULT CALLBACK UpdateWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// A check is asked for or runs; the bar moves meanwhile.
inline SharedFlag updateBusy;

// Shows the update window and wakes the workers for one check.
void StartUpdateCheck(HWND main);

// One update check, on its worker: asks the agent and shows the outcome in the update window. Does nothing when none
// was asked for.
void RunUpdateCheck();

// Moves the update window's bar while the check runs, on the busy-animation worker. Does nothing when it was not asked.
void AnimateUpdateBar();

} // namespace voltaro
