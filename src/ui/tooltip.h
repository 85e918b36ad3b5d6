#pragma once

#include "base/windows_api.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace voltaro {

// Gives a control a tooltip, or changes its text; an empty text takes it away. The tooltip window is made once for each
// top-level window and dies with it.
void SetTooltip(HWND control, std::wstring_view text);
// The text as it stands, for tests; empty without one.
[[nodiscard]] const wchar_t* TooltipOf(HWND control);

// Shows a text above the thumb of a slider, which the usual tooltip leaves as soon as a button is pressed; an empty
// text takes it away.
void SetThumbTip(HWND slider, std::wstring_view text);

// A part of a window's client area and what its tooltip says; a text may have several lines.
struct AreaTip {
    RECT area;
    std::wstring text;
};
inline constexpr std::size_t kMaxAreaTips = 32;

// Gives parts of a window tooltips in the place of those it had; what is beyond kMaxAreaTips is dropped. The window
// must live as long as its top-level window.
void SetAreaTips(HWND window, std::span<const AreaTip> tips);
// What the tooltip at a point says, for tests; empty without one.
[[nodiscard]] std::wstring AreaTipAt(HWND window, POINT point);

} // namespace voltaro
