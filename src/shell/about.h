#pragma once

#include "base/windows_api.h"

namespace voltaro {

// The about box, from the menu bar and the tray.
void OnAbout(HWND main);

} // namespace voltaro
