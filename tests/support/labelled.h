#pragma once

#include "base/windows_api.h"
#include "ui/tooltip.h"

#include <gtest/gtest.h>

#include <string>

namespace voltaro {

inline std::wstring WindowText(HWND window)
{
    wchar_t text[500] = L"";
    GetWindowTextW(window, text, 500);
    return text;
}

inline std::wstring ClassOf(HWND window)
{
    wchar_t name[50] = L"";
    GetClassNameW(window, name, 50);
    return name;
}

// A control as the user, or a screen reader, finds it: a button by its text, a field by the label right before it.
inline HWND Labelled(HWND window, const wchar_t* label)
{
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (WindowText(child) != label)
            continue;
        if (ClassOf(child) == WC_STATICW)
            return GetWindow(child, GW_HWNDNEXT);
        if ((GetWindowLongW(child, GWL_STYLE) & BS_TYPEMASK) != BS_GROUPBOX)
            return child;
    }
    ADD_FAILURE() << "no control " << std::wstring(label);
    return nullptr;
}

// The tooltip of a list's cell once the mouse is over it.
inline std::wstring TipOver(HWND list, int row, int column = 0)
{
    RECT cell{};
    ListView_GetSubItemRect(list, row, column, LVIR_LABEL, &cell);
    SendMessageW(list, WM_MOUSEMOVE, 0, MAKELPARAM(cell.left + 2, cell.top + 2));
    return TooltipOf(list);
}

inline std::wstring ClipboardText()
{
    EXPECT_TRUE(OpenClipboard(nullptr));
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const std::wstring text(data != nullptr ? static_cast<const wchar_t*>(GlobalLock(data)) : L"");
    GlobalUnlock(data);
    CloseClipboard();
    return text;
}

inline bool IsEnabled(HWND window)
{
    return IsWindowEnabled(window) != FALSE;
}

// Whether a control would show if its window did.
inline bool IsShown(HWND control)
{
    return (GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE) != 0;
}

} // namespace voltaro
