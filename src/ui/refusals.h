#pragma once

#include "base/refusal.h"
#include "base/windows_api.h"

#include <cstddef>
#include <string_view>

namespace voltaro {

// Tells the user why an input is refused, then empties the edit and gives it the focus. Does nothing and gives false
// when there is no refusal. `window` holds the edit and may be a page of the window that the box belongs to. `input` is
// put in where the refusal's text names it.
bool RefuseInput(HWND window, int edit, const Refusal* refusal, std::wstring_view input = {});

// For every change of a name's edit: a text longer than `limit` is cut, and one that `check` refuses is refused at
// once. The change that emptying makes passes every check, so that there is no second box.
using TypingCheck = const Refusal* (*)(std::wstring_view text);
void CheckTyping(HWND window, int edit, std::size_t limit, TypingCheck check);

} // namespace voltaro
