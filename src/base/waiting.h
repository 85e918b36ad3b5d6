#pragma once

#include "base/windows_api.h"

#include <cstdint>

namespace voltaro {

// How a wait ended. Ending: the program, or the thread that waits, is to end.
enum class Waited : std::uint8_t { Signalled, TimedOut, Ending };

// Waits until the handle is signalled, at most that many milliseconds (INFINITE: as long as it takes). With a null
// handle the time alone is waited for.
using WaitFunction = Waited (*)(HANDLE handle, DWORD milliseconds);

// The wait of a thread that serves nothing else meanwhile and is never asked to end.
[[nodiscard]] inline Waited WaitPlainly(HANDLE handle, DWORD milliseconds)
{
    if (handle)
        return WaitForSingleObject(handle, milliseconds) == WAIT_OBJECT_0 ? Waited::Signalled : Waited::TimedOut;
    Sleep(milliseconds);
    return Waited::TimedOut;
}

// The calling thread's wait. The user-interface thread and the workers set theirs at their start.
inline thread_local WaitFunction threadWait = WaitPlainly;

// What is left of a wait that began at `start` (GetTickCount64); INFINITE stays so.
[[nodiscard]] inline DWORD RestOfWait(ULONGLONG start, DWORD milliseconds)
{
    const ULONGLONG passed = GetTickCount64() - start;
    if (milliseconds == INFINITE)
        return INFINITE;
    return passed < milliseconds ? static_cast<DWORD>(milliseconds - passed) : 0;
}

} // namespace voltaro
