#pragma once

#include "console/state.h"
#include "ui/controls.h"

#include <string_view>

namespace voltaro {

// The id of the child that carries the text, and of the field that follows it; controls are found as the user finds
// them. The window itself may be a page.
[[nodiscard]] inline HWND Child(WindowId window, std::wstring_view text)
{
    for (HWND child = GetWindow(WindowOf(window), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t buffer[200] = L"";
        GetWindowTextW(child, buffer, 200);
        if (text == buffer)
            return child;
    }
    return nullptr;
}

[[nodiscard]] inline int IdOf(WindowId window, std::wstring_view text)
{
    return GetDlgCtrlID(Child(window, text));
}

[[nodiscard]] inline HWND FieldAfter(WindowId window, std::wstring_view label)
{
    return GetWindow(Child(window, label), GW_HWNDNEXT);
}

} // namespace voltaro
