#pragma once

#include "base/windows_api.h"

#include <optional>

namespace voltaro {

// Takes the visual style from a control, which then draws itself in the system's colours.
void LeaveVisualStyle(HWND control);
void ReturnToVisualStyle(HWND control);

// The colour inside a tab control's frame; nothing without a visual style, where that is the face colour.
[[nodiscard]] std::optional<COLORREF> TabBodyColour();

[[nodiscard]] bool IsGroupBox(HWND control);

} // namespace voltaro
