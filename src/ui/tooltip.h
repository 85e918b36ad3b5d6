#pragma once

#include "base/windows_api.h"

#include <string_view>

namespace voltaro {

// Gives a control a tooltip, or changes its text; an empty text takes it away. The tooltip window is made once for each
// top-level window and dies with it.
void SetTooltip(HWND control, std::wstring_view text);
// The text as it stands, for tests; empty without one.
[[nodiscard]] const wchar_t* TooltipOf(HWND control);

} // namespace voltaro
