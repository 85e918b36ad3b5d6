#pragma once

#include "base/windows_api.h"

namespace voltaro {

// Opens the window that belongs to a menu command of the main window: reads the window's record where it has one, then
// fills and shows it. A lost agent is reported and opens nothing.
void OpenByCommand(HWND main, int command);

template <int Id>
void OnOpen(HWND main)
{
    OpenByCommand(main, Id);
}

} // namespace voltaro
