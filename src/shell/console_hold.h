#pragma once

#include "base/windows_api.h"

namespace voltaro {

// The update, activation and about windows take the console for themselves: while one of them is open, the main window
// is disabled and the console not ready. The tray menu stays usable, so they may also be open at the same time.

// Shows the window and holds the main window, which returns to its normal controls.
void HoldConsole(HWND window);

// Hides the window; after the last one the console is ready again, and the main window enabled and active unless the
// system information is open.
void ReleaseConsole(HWND window);

// Ends every hold at once, without hiding anything.
void ReleaseAllHolds();

} // namespace voltaro
