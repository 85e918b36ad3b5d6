#pragma once

#include "ui/navigation.h"
#include "ui/waiting.h"
#include "ui/window_class.h"

#include <array>
#include <functional>
#include <optional>

namespace voltaro {

// A top-level window for tests, shown and destroyed with the object. Messages go to `handler` first; what it leaves
// gets the answers that all windows of the program give.
class TestWindow {
public:
    using Handler = std::function<std::optional<LRESULT>(HWND window, UINT message, WPARAM w, LPARAM l)>;

    explicit TestWindow(Handler handler = {})
        : m_handler(std::move(handler))
    {
        constexpr wchar_t kName[] = L"VoltaroTestWindow";
        static_cast<void>(RegisterWindow(kName, &Procedure, 0)); // at the first time
        m_window = CreateWindowExW(WS_EX_CONTROLPARENT, kName, L"Test", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 600,
            500, nullptr, nullptr, Instance(), this);
        UpdateWindow(m_window);
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
        NavigateWith(window);
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

} // namespace voltaro
