#pragma once

#include "console/windows.h"
#include "link/system_details.h"

namespace voltaro {

// The procedure of a page of the system information window.
template <WindowId page>
LRESULT CALLBACK SystemInfoPageProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Fills the pages' six lists from the state's details.
void FillSystemInfoPages();

// What a page paints beside its lists: the machine's picture and the logo of its operating system's family.
void DrawMachine(HDC dc, const SystemDetails& details);

} // namespace voltaro
