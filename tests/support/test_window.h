#pragma once

#include "ui/navigation.h"
#include "ui/tooltip.h"
#include "ui/waiting.h"
#include "ui/window_class.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace voltaro {

// A top-level window as long as the object lives. Messages go to the handler first; one without it has the keyboard.
class TestWindow {
public:
    using Handler = std::function<std::optional<LRESULT>(HWND window, UINT message, WPARAM w, LPARAM l)>;

    explicit TestWindow(Handler handler = {}, const wchar_t* className = L"VoltaroTestWindow",
        DWORD extendedStyle = WS_EX_CONTROLPARENT, DWORD style = WS_OVERLAPPEDWINDOW | WS_VISIBLE)
        : m_handler(std::move(handler))
    {
        static_cast<void>(RegisterWindow(className, &Procedure, 0)); // at the first time
        m_window = CreateWindowExW(
            extendedStyle, className, L"Test", style, 10, 10, 600, 500, nullptr, nullptr, Instance(), this);
        UpdateWindow(m_window);
        if (!m_handler)
            NavigateWith(m_window);
    }
    ~TestWindow()
    {
        m_handler = {};
        DestroyWindow(m_window);
    }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    [[nodiscard]] HWND Get() const { return m_window; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l)
    {
        if (message == WM_NCCREATE) {
            const auto* create = reinterpret_cast<const CREATESTRUCTW*>(l);
            SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
        }
        const auto* self = reinterpret_cast<const TestWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        const auto answer = self && self->m_handler ? self->m_handler(window, message, w, l) : std::nullopt;
        return answer ? *answer : DefaultAnswer(window, message, w, l);
    }

    Handler m_handler;
    HWND m_window;
};

// Serves the thread's messages as the program's loop does, until none is left.
inline void Pump()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (Navigate(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// Serves messages until the condition holds; false when that has not come to be in time.
inline bool WaitFor(const std::function<bool()>& condition, unsigned milliseconds = 20'000)
{
    for (const ULONGLONG end = GetTickCount64() + milliseconds; !condition(); Pump()) {
        if (GetTickCount64() >= end)
            return false;
        static_cast<void>(WaitServingWindows(nullptr, 10));
    }
    return true;
}

// Takes the quit message, if there is one.
inline std::optional<int> QuitCode()
{
    MSG message;
    const bool quit = PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != FALSE;
    return quit ? std::optional(static_cast<int>(message.wParam)) : std::nullopt;
}

// Presses a key in the window that has the focus, with VK_CONTROL or VK_SHIFT held down, and serves what follows.
inline void Press(WORD key, WORD modifier = 0, WORD secondModifier = 0)
{
    std::array<BYTE, 256> before{};
    GetKeyboardState(before.data());
    std::array<BYTE, 256> during = before;
    during[modifier] = during[secondModifier] = 0x80; // the place 0 is no key's
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 0);
    SetKeyboardState(during.data());
    Pump();
    SetKeyboardState(before.data());
}

// Clicks there in the window, by its client coordinates, and serves what follows.
inline void ClickAt(HWND window, int x, int y)
{
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP})
        PostMessageW(window, message, 0, MAKELPARAM(x, y));
    Pump();
}

// Turns to a page as the user does, by a click on its tab, and serves what follows.
inline void ClickTab(HWND tab, int index)
{
    RECT caption{};
    TabCtrl_GetItemRect(tab, index, &caption);
    ClickAt(tab, caption.left + 5, caption.top + 5);
}

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

// A control as a screen reader finds it: a button by its text, a field by the label right before it. Null for none.
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
