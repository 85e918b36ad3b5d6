#pragma once

#include "base/windows_api.h"

#include <gtest/gtest.h>

#include <string>

namespace voltaro {

inline std::wstring WindowText(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

// A control as the user, or a screen reader, finds it: a button by its text, a field by the label right before it.
inline HWND Labelled(HWND window, const wchar_t* label)
{
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (WindowText(child) != label)
            continue;
        wchar_t kind[20] = L"";
        GetClassNameW(child, kind, 20);
        if (lstrcmpiW(kind, L"Static") == 0)
            return GetWindow(child, GW_HWNDNEXT);
        if ((GetWindowLongW(child, GWL_STYLE) & BS_TYPEMASK) != BS_GROUPBOX)
            return child;
    }
    ADD_FAILURE() << "no control " << std::string(label, label + lstrlenW(label));
    return nullptr;
}

inline int IdOf(HWND window, const wchar_t* label)
{
    return GetDlgCtrlID(Labelled(window, label));
}

// Whether the control is there to be used, in a window that may be hidden.
inline bool IsShown(HWND control)
{
    return (GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE) != 0;
}

} // namespace voltaro
