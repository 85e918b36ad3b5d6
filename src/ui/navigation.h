#pragma once

#include "base/windows_api.h"

namespace voltaro {

// Keyboard navigation follows whichever top-level window last had a message: each window's procedure names its own
// window here first, and the message loop offers every message to that window's dialog navigation.
void NavigateWith(HWND window);
[[nodiscard]] HWND NavigationWindow();

// F5 reaches the navigation window as a command of this id; a window that can be refreshed has a row for it.
inline constexpr int kRefreshKey = 0x7F05;

// Offers a message to the navigation window: Ctrl+Tab and Ctrl+Shift+Tab turn the pages of its tab control, Alt+letter,
// Tab, arrows, Enter and Esc are dialog keys, F5 is a command. Tab reaches a tab control before the fields of its page,
// which lies above it. True when it was taken.
[[nodiscard]] bool Navigate(MSG& message);

// The loop of the process: until the quit message, whose exit code it returns.
[[nodiscard]] int RunMessageLoop();

} // namespace voltaro
