#pragma once

#include "console/main_hold.h"

namespace voltaro {

// The update, activation and about windows hold the main window while they are open. The tray menu stays usable, so
// they may also be open at the same time.

// Shows the window and lets it hold the main window, which returns to its normal controls.
void ShowHolding(HWND window, HoldReason reason);

// Hides the window; after the last holder the main window is active again.
void HideHolding(HWND window, HoldReason reason);

} // namespace voltaro
