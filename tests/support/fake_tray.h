#pragma once

#include "ui/window_class.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

namespace voltaro {

// One call to the notification area, as the shell receives it.
struct TrayCall {
    ULONG_PTR what; // NIM_ADD, NIM_MODIFY, NIM_DELETE
    DWORD window;
    UINT id;
    UINT callback;
    std::wstring tooltip;
    std::string icon; // its pixels
};

// Receives every program's calls in the place of the shell's notification area. Under Wine alone.
class FakeTray {
public:
    FakeTray()
    {
        static_cast<void>(RegisterWindow(L"Shell_TrayWnd", &Procedure, 0)); // at the first time
        m_window = CreateWindowExW(
            WS_EX_TOPMOST, L"Shell_TrayWnd", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, Instance(), nullptr);
        SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    ~FakeTray() { DestroyWindow(m_window); }
    FakeTray(const FakeTray&) = delete;
    FakeTray& operator=(const FakeTray&) = delete;

    // From then on the shell takes no new icon, or takes them again.
    void RefuseIcons(bool refuse) { m_refuses = refuse; }
    [[nodiscard]] const std::vector<TrayCall>& Calls() const { return m_calls; }
    void ForgetCalls() { std::vector<TrayCall>().swap(m_calls); }
    [[nodiscard]] const TrayCall& Last() const { return m_calls.back(); }

private:
    // How a call comes: this head, then the icon's pixels.
    struct WireCall {
        DWORD window;
        UINT id, flags, callback;
        wchar_t tooltip[128];
        std::byte rest[8 + 512 + 4 + 128 + 4 + 16 + 16]; // state, balloon, identifier, the icon's size
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l)
    {
        auto* self = reinterpret_cast<FakeTray*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message != WM_COPYDATA || self == nullptr)
            return DefWindowProcW(window, message, w, l);
        const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(l);
        WireCall call{};
        if (data->cbData < sizeof call || (self->m_refuses && data->dwData == NIM_ADD))
            return FALSE;
        std::memcpy(&call, data->lpData, sizeof call);
        const auto* bytes = static_cast<const char*>(data->lpData);
        self->m_calls.push_back({data->dwData, call.window, call.id, call.callback, call.tooltip,
            std::string(bytes + sizeof call, bytes + data->cbData)});
        return TRUE;
    }

    std::vector<TrayCall> m_calls;
    HWND m_window;
    bool m_refuses = false;
};

} // namespace voltaro
