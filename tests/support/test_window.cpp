#include "support/test_window.h"

#include "ui/navigation.h"
#include "ui/waiting.h"
#include "ui/window_class.h"

#include <array>

namespace voltaro {

TestWindow::TestWindow(Handler handler, HWND parent)
    : m_handler(std::move(handler))
{
    constexpr wchar_t kName[] = L"VoltaroTestWindow";
    static const bool registered = RegisterWindow(kName, &Procedure, 0);
    static_cast<void>(registered);
    const DWORD style = parent != nullptr ? WS_CHILD | WS_VISIBLE : WS_OVERLAPPEDWINDOW | WS_VISIBLE;
    m_window = CreateWindowExW(
        WS_EX_CONTROLPARENT, kName, L"Test", style, 10, 10, 600, 500, parent, nullptr, Instance(), this);
    UpdateWindow(m_window);
}

TestWindow::~TestWindow()
{
    m_handler = {};
    if (IsWindow(m_window))
        DestroyWindow(m_window);
}

LRESULT CALLBACK TestWindow::Procedure(HWND window, UINT message, WPARAM w, LPARAM l)
{
    if (message == WM_NCCREATE) {
        const auto* create = reinterpret_cast<const CREATESTRUCTW*>(l);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    if ((GetWindowLongW(window, GWL_STYLE) & WS_CHILD) == 0)
        NavigateWith(window);
    const auto* self = reinterpret_cast<const TestWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr && self->m_handler) {
        if (const auto answer = self->m_handler(window, message, w, l))
            return *answer;
    }
    return DefaultAnswer(window, message, w, l);
}

void Pump()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (Navigate(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool WaitFor(const std::function<bool()>& condition, unsigned milliseconds)
{
    for (const ULONGLONG end = GetTickCount64() + milliseconds; !condition(); Pump()) {
        if (GetTickCount64() >= end)
            return false;
        static_cast<void>(WaitServingWindows(nullptr, 10));
    }
    return true;
}

void Press(WORD key, WORD modifier, WORD secondModifier)
{
    std::array<BYTE, 256> before{};
    GetKeyboardState(before.data());
    std::array<BYTE, 256> during = before;
    constexpr BYTE kDown = 0x80;
    for (const WORD held : {modifier, secondModifier}) {
        if (held != 0)
            during[held] = kDown;
    }
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 0);
    SetKeyboardState(during.data());
    Pump();
    SetKeyboardState(before.data());
}

void ClickTab(HWND tab, int index)
{
    RECT caption{};
    TabCtrl_GetItemRect(tab, index, &caption);
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP})
        PostMessageW(tab, message, 0, MAKELPARAM(caption.left + 5, caption.top + 5));
    Pump();
}

} // namespace voltaro
