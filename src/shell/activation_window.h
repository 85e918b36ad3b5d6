#pragma once

#include "base/windows_api.h"

namespace voltaro {

// The window's procedure; the table of windows names it.
LRESULT CALLBACK ActivationWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Reads the license and shows it. A lost agent is reported and opens nothing.
void OpenActivationWindow(HWND main);

} // namespace voltaro
