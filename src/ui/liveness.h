#pragma once

#include "base/windows_api.h"

namespace voltaro {

// Serves what must not wait while this thread waits for something else: sent messages and painting. Input stays queued.
void ServePaintAndSent();

// Waits that long, serving paint and sent messages; ends early, with false, when `ended` says so (may be null).
bool WaitAlive(unsigned milliseconds, bool (*ended)() = nullptr);

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
