#pragma once

#include "base/windows_api.h"

namespace voltaro {

// The platform's own counter is always 0 under Wine, so every handle answers for itself.
inline int OpenHandles()
{
    int count = 0;
    DWORD flags = 0;
    for (ULONG_PTR handle = 4; handle < 0x2000; handle += 4)
        count += GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags);
    return count;
}

} // namespace voltaro
