#include "ui/waiting.h"

#include "ui/ui_thread.h"

#include <algorithm>

namespace voltaro {
namespace {

// Dispatches waiting paint and, as every look into the queue does, sent messages. False when a window asks for paint
// again as soon as it has painted: then painting must not be waited for, or the wait would spin.
bool ServePaintAndSent()
{
    constexpr int kMaxPaints = 64;
    HWND last = nullptr;
    MSG message;
    for (int i = 0; i < kMaxPaints; ++i) {
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

// One wait for the handle or for a message of these kinds.
Waited WaitOnce(HANDLE handle, DWORD milliseconds, DWORD messages)
{
    const DWORD count = handle ? 1 : 0;
    const DWORD result = MsgWaitForMultipleObjectsEx(count, &handle, milliseconds, messages, MWMO_INPUTAVAILABLE);
    return handle && result == WAIT_OBJECT_0 ? Waited::Signalled : Waited::TimedOut;
}

} // namespace

// Windows are served before every look at the handle, so that an agent that sends one byte after the other holds up
// nothing.
Waited WaitServingWindows(HANDLE handle, DWORD milliseconds)
{
    constexpr DWORD kPaintAgainMs = 20;
    const ULONGLONG start = GetTickCount64();
    for (;;) {
        const bool settled = ServePaintAndSent();
        if (WaitsEnded())
            return Waited::Ending;
        const DWORD rest = RestOfWait(start, milliseconds);
        const DWORD messages = settled ? QS_SENDMESSAGE | QS_PAINT : QS_SENDMESSAGE;
        if (WaitOnce(handle, settled ? rest : std::min(rest, kPaintAgainMs), messages) == Waited::Signalled)
            return Waited::Signalled;
        if (RestOfWait(start, milliseconds) == 0)
            return Waited::TimedOut;
    }
}

Waited WaitServingSentMessages(HANDLE handle, DWORD milliseconds)
{
    const ULONGLONG start = GetTickCount64();
    for (;;) {
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
        if (WaitOnce(handle, RestOfWait(start, milliseconds), QS_SENDMESSAGE) == Waited::Signalled)
            return Waited::Signalled;
        if (RestOfWait(start, milliseconds) == 0)
            return Waited::TimedOut;
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
