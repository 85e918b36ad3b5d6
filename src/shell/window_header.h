#pragma once

#include "base/windows_api.h"

#include <optional>

namespace voltaro {

// The head that the update, activation and about windows share: the emblem on the left, the word mark and its "TM" on
// the right of a client area 574 pixels wide.
void DrawHeader(HDC dc);

// Serves the painting messages of a window that shows nothing else behind its controls. Nothing for other messages.
[[nodiscard]] std::optional<LRESULT> AnswerHeader(HWND window, UINT message, WPARAM w, LPARAM l);

} // namespace voltaro
