#pragma once

#include "base/windows_api.h"

namespace voltaro {

// Asks, sends and tells the outcome of the quick power action with that command id; then the normal controls.
void RunQuickAction(HWND main, int command);

template <int Id>
void OnQuickAction(HWND main)
{
    RunQuickAction(main, Id);
}

} // namespace voltaro
