#pragma once

#include "console/state.h"
#include "support/labelled.h"
#include "ui/controls.h"

namespace voltaro {

// The child that carries the text, and the field that follows it; controls are found as the user finds them. The window
// itself may be a page.
[[nodiscard]] inline HWND Child(WindowId window, const std::wstring& text)
{
    HWND child = GetWindow(WindowOf(window), GW_CHILD);
    while (child != nullptr && WindowText(child) != text)
        child = GetWindow(child, GW_HWNDNEXT);
    return child;
}

[[nodiscard]] inline HWND FieldAfter(WindowId window, const wchar_t* label)
{
    return GetWindow(Child(window, label), GW_HWNDNEXT);
}

[[nodiscard]] inline int IdOf(WindowId window, const wchar_t* text)
{
    return GetDlgCtrlID(Child(window, text));
}

} // namespace voltaro
