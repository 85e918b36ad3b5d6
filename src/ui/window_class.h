#pragma once

#include "base/windows_api.h"

namespace voltaro {

// Registers a class the way all windows of the program have it: style 0, arrow cursor, face-colour background, the
// program icon large and at 16 x 16. `menu` is a menu resource or 0. False when Windows refuses.
[[nodiscard]] bool RegisterWindow(const wchar_t* name, WNDPROC procedure, int menu);

// The answers that every window of the program gives alike to a message that it does not serve itself: F1 and the like
// stay with the window; labels, check boxes and read-only edits get the window's ground behind them; the system's
// colours are followed; no window opens off the screen; the focus comes back to the field it left.
[[nodiscard]] LRESULT DefaultAnswer(HWND window, UINT message, WPARAM w, LPARAM l);

// Fills a window's client area with what lies behind its controls.
void FillWithGround(HWND window, HDC dc);

// Repaints a window at once; with `erase` its background and its controls too.
void Repaint(HWND window, bool erase = false);

// Shows a window in front of its owner, which takes no input until the window is hidden again.
void ShowOverOwner(HWND window);
void HideFromOwner(HWND window);

// Instance handle of the program.
[[nodiscard]] HINSTANCE Instance();

} // namespace voltaro
