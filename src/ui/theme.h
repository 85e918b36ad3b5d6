#pragma once

#include "base/windows_api.h"

namespace voltaro {

inline constexpr COLORREF kProductGreen = RGB(64, 128, 32);
inline constexpr COLORREF kTextGreen = RGB(5, 114, 5);
// Pixels of this colour are left out when a bitmap is drawn transparently.
inline constexpr COLORREF kKeyColour = RGB(236, 233, 216);

// Handles that live as long as the process and are lent, never given: each is made at its first use.
// Arial with the given height in pixels and weight (300 light, 400 normal, 500, 600); TrueType, ClearType quality.
[[nodiscard]] HFONT FontOf(int height, int weight);
// The font of most windows: Arial, 15 pixels, light.
[[nodiscard]] HFONT WindowFont();
[[nodiscard]] HBRUSH BrushOf(COLORREF colour);
// One pixel wide; the style is PS_SOLID, PS_DASHDOT and the like.
[[nodiscard]] HPEN PenOf(int style, COLORREF colour);
// The system's 3-D face colour: the background of every window.
[[nodiscard]] HBRUSH FaceBrush();
[[nodiscard]] HBITMAP BitmapOf(int resource);
[[nodiscard]] HICON SmallIcon(int resource);
[[nodiscard]] HICON LargeIcon(int resource);

} // namespace voltaro
