#include "ui/liveness.h"

#include <algorithm>

namespace voltaro {
namespace {

// Dispatches waiting paint and, as every look into the queue does, sent messages. False when a window asks for paint
// again as soon as it has painted: then painting must not be waited for, or the wait would spin.
bool ServeOnce()
{
    constexpr int kMost = 64;
    HWND last = nullptr;
    MSG message;
    for (int i = 0; i < kMost; ++i) {
        if (!PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE | PM_QS_PAINT | PM_QS_SENDMESSAGE))
            return true;
        if (message.message == WM_QUIT) { // passes every filter; it is for the message loop
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        DispatchMessageW(&message);
        if (message.hwnd == last)
            return false;
        last = message.hwnd;
    }
    return false;
}

} // namespace

void ServePaintAndSent()
{
    ServeOnce();
}

bool WaitAlive(unsigned milliseconds, bool (*ended)())
{
    constexpr ULONGLONG kSlice = 10; // milliseconds between two looks at `ended`
    const ULONGLONG deadline = GetTickCount64() + milliseconds;
    for (;;) {
        const bool settled = ServeOnce();
        if (ended != nullptr && ended())
            return false;
        const ULONGLONG now = GetTickCount64();
        if (now >= deadline)
            return true;
        const DWORD slice = static_cast<DWORD>(std::min(deadline - now, kSlice));
        const DWORD wakers = settled ? QS_SENDMESSAGE | QS_PAINT : QS_SENDMESSAGE;
        MsgWaitForMultipleObjectsEx(0, nullptr, slice, wakers, 0);
    }
}

WaitCursor::WaitCursor()
    : m_old(SetCursor(LoadCursorW(nullptr, IDC_WAIT)))
{
}

WaitCursor::~WaitCursor()
{
    SetCursor(m_old);
}

} // namespace voltaro
