#pragma once

#include "base/windows_api.h"

#include <cstdint>

namespace voltaro {

// Why the main window is disabled. While any reason holds it, it takes no input; while any but the system information
// does, the console is not ready either. Nothing else in the program enables or disables the main window.
enum class HoldReason : std::uint8_t { Check, Update, Activation, About, SystemInfo, Count };

// `holder`: the window that the user has to deal with first; null for the connection check, which has none.
void HoldMainWindow(HoldReason reason, HWND holder);
void ReleaseMainWindow(HoldReason reason);
// Ends every hold at once, but for a running connection check's.
void ReleaseAllHolders();

// Whether others may repaint the main window and send it to the tray: no check runs and no window holds it.
[[nodiscard]] bool IsConsoleReady();

// The window that took hold last and still does; the main window itself when none does.
[[nodiscard]] HWND FrontWindow();

// Makes the main window enabled or disabled as the reasons tell, after Windows itself has changed it.
void ApplyHolds();

} // namespace voltaro
