#pragma once

#include "base/windows_api.h"

#include <optional>

namespace voltaro {

inline constexpr COLORREF kProductGreen = RGB(64, 128, 32);
inline constexpr COLORREF kTextGreen = RGB(5, 114, 5);
// Pixels of this colour are left out when a bitmap is drawn transparently.
inline constexpr COLORREF kKeyColour = RGB(236, 233, 216);

// Handles that live as long as the process and are never destroyed by a caller: each is made at its first use.
// Arial with the given height in pixels and weight (300 light, 400 normal, 500, 600); TrueType, ClearType quality.
[[nodiscard]] HFONT FontOf(int height, int weight);
// The font of most windows: Arial, 15 pixels, light.
[[nodiscard]] HFONT WindowFont();
[[nodiscard]] HBRUSH BrushOf(COLORREF colour);
// One pixel wide; the style is PS_SOLID, PS_DASHDOT and the like.
[[nodiscard]] HPEN PenOf(int style, COLORREF colour);
// The system's 3-D face colour: the background of every window.
[[nodiscard]] HBRUSH FaceBrush();
// What lies behind a window's controls: the face colour; behind those of a tab page the colour of the tab's body.
[[nodiscard]] HBRUSH GroundBrush(HWND window);
[[nodiscard]] HBITMAP BitmapOf(int resource);
[[nodiscard]] HICON SmallIcon(int resource);
// At the size of the notification area on the user's screen: 16 pixels to 32, whatever this program's own scale is.
[[nodiscard]] HICON TrayIcon(int resource);
[[nodiscard]] HICON LargeIcon(int resource);

// What the system and its user give for all programs.
[[nodiscard]] bool HasHighContrast();
[[nodiscard]] MONITORINFO ScreenOf(HWND window); // with the work area that is left for windows

// The product's colours as they are shown. With high contrast on the system's colours stand in their place, both of a
// pair: text on the face colour, and text on a ground of its own.
[[nodiscard]] COLORREF ShownOnFace(COLORREF text);
[[nodiscard]] COLORREF ShownText(COLORREF text);
[[nodiscard]] COLORREF ShownGround(COLORREF ground);

// Gives a list view or a progress bar the product's colours, now and whenever the system's change.
void SetListColours(HWND list, COLORREF text, COLORREF ground);
void SetBarColour(HWND bar, COLORREF colour);

// Makes a child window a page of a tab control.
void SetTabPage(HWND page);

// The system's colours, its high contrast or its visual style have changed: gives every control of the window its
// colours anew, and paints it all. Pages do the same with theirs when told of WM_SYSCOLORCHANGE.
void RenewColours(HWND window);

} // namespace voltaro
