#pragma once

#include "base/windows_api.h"

#include <cstdint>

namespace voltaro {

// The main window's menus. Made once with the window; the pause submenu stands in the menu bar and in the tray menu.
void BuildMainMenus(HWND window);
// Takes the shared submenu out of both menus and destroys it and the tray menu; the bar goes with its window.
void DestroyMainMenus();
// Owned here; null before BuildMainMenus.
[[nodiscard]] HMENU MainMenuBar();
[[nodiscard]] HMENU TrayMenu();
[[nodiscard]] HMENU PauseMenu();

// What changes which commands and controls of the main window are greyed. The greyed lists differ from each other
// as users know them; everything that an occasion does not name stays as it is.
enum class Occasion : std::uint8_t { StartUp = 1, CheckFailed = 2, AgentLost = 4, Loaded = 8 };
void ApplyOccasion(HWND window, Occasion occasion);

} // namespace voltaro
