#include "support/fake_tray.h"

#include "ui/window_class.h"

#include <cstddef>
#include <cstring>

namespace voltaro {
namespace {

// How a call comes: this head, then the icon's pixels.
struct WireCall {
    DWORD window;
    UINT id;
    UINT flags;
    UINT callback;
    wchar_t tooltip[128];
    std::byte rest[8 + 512 + 4 + 128 + 4 + 16 + 16]; // state, balloon, identifier, the icon's size
};

} // namespace

FakeTray::FakeTray()
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &Procedure;
    windowClass.hInstance = Instance();
    windowClass.lpszClassName = L"Shell_TrayWnd";
    RegisterClassW(&windowClass);
    m_window = CreateWindowExW(
        WS_EX_TOPMOST, L"Shell_TrayWnd", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, Instance(), nullptr);
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

FakeTray::~FakeTray()
{
    DestroyWindow(m_window);
}

LRESULT CALLBACK FakeTray::Procedure(HWND window, UINT message, WPARAM w, LPARAM l)
{
    auto* self = reinterpret_cast<FakeTray*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != WM_COPYDATA || self == nullptr)
        return DefWindowProcW(window, message, w, l);
    const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(l);
    WireCall call{};
    if (data->cbData < sizeof call)
        return FALSE;
    if (self->m_refuses && data->dwData == NIM_ADD)
        return FALSE;
    std::memcpy(&call, data->lpData, sizeof call);
    const auto* bytes = static_cast<const char*>(data->lpData);
    self->m_calls.push_back({data->dwData, call.window, call.id, call.callback, call.tooltip,
        std::string(bytes + sizeof call, bytes + data->cbData)});
    return TRUE;
}

} // namespace voltaro
