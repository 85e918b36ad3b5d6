#pragma once

#include "base/waiting.h"

namespace voltaro {

// The user-interface thread's wait: serves painting and sent messages meanwhile; input stays queued. Ending once
// EndWaits was called.
[[nodiscard]] Waited WaitServingWindows(HANDLE handle, DWORD milliseconds);

// The same for the end of the program: sent messages alone are served, and EndWaits does not end it.
[[nodiscard]] Waited WaitServingSentMessages(HANDLE handle, DWORD milliseconds);

// The wait cursor for the guard's life; nested guards restore the first cursor once, also when a box was shown between.
class WaitCursor {
public:
    WaitCursor();
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    HCURSOR m_old;
};

} // namespace voltaro
