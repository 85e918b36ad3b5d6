#pragma once

#include "support/test_window.h"

#include <cstring>
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

    std::optional<LRESULT> Receive(const COPYDATASTRUCT& data)
    {
        WireCall call{};
        if (data.cbData < sizeof call || (m_refuses && data.dwData == NIM_ADD))
            return FALSE;
        std::memcpy(&call, data.lpData, sizeof call);
        const auto* bytes = static_cast<const char*>(data.lpData);
        m_calls.push_back({data.dwData, call.window, call.id, call.callback, call.tooltip,
            std::string(bytes + sizeof call, bytes + data.cbData)});
        return TRUE;
    }

    std::vector<TrayCall> m_calls;
    bool m_refuses = false;
    TestWindow m_window{[this](HWND, UINT message, WPARAM, LPARAM l) {
                            return message == WM_COPYDATA ? Receive(*reinterpret_cast<const COPYDATASTRUCT*>(l))
                                                          : std::nullopt;
                        },
        L"Shell_TrayWnd", WS_EX_TOPMOST, WS_POPUP};
};

} // namespace voltaro
