#pragma once

#include "base/windows_api.h"

#include <string_view>

namespace voltaro {

// Puts text, or a copy of a bitmap, on the clipboard in the place of what is there. False when the clipboard is busy.
bool CopyToClipboard(HWND owner, std::wstring_view text);
bool CopyToClipboard(HWND owner, HBITMAP bitmap);

} // namespace voltaro
