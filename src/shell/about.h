#pragma once

#include "base/windows_api.h"

namespace voltaro {

// The about box, from the menu bar and the tray. It opens without an agent too, and does not block its caller.
void OnAbout(HWND main);

// Closes it if it is open.
void CloseAbout();
[[nodiscard]] HWND AboutWindow(); // null while it is closed

} // namespace voltaro
