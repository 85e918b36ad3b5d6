#pragma once

#include "base/windows_api.h"

#include <optional>

namespace voltaro {

// A procedure of a library of the system folder, which is loaded at the first use and stays; null where the system has
// none. For libraries that the loader, as with imports, would look for beside the program first.
[[nodiscard]] FARPROC SystemProcedure(const wchar_t* library, const char* name);

// Takes the visual style from a control, which then draws itself in the system's colours.
void LeaveVisualStyle(HWND control);
void ReturnToVisualStyle(HWND control);

// The colour inside a tab control's frame; nothing without a visual style, where that is the face colour.
[[nodiscard]] std::optional<COLORREF> TabBodyColour();

[[nodiscard]] bool IsGroupBox(HWND control);

} // namespace voltaro
