#pragma once

#include "base/windows_api.h"

namespace voltaro {

// The machine's power consumption profile, which the savings are computed with.
LRESULT CALLBACK ProfileWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Reads the profile and shows it. A lost agent is reported and opens nothing.
void OpenProfileWindow(HWND owner);

} // namespace voltaro
