#pragma once

#include "base/windows_api.h"

#include <atomic>
#include <cstdint>

namespace voltaro {

// What the windows ask the refresh worker for, each asker its own bit: a request that comes during a run stays for the
// next.
enum RefreshKind : std::uint32_t { kRefreshSystemDetails = 1, kRefreshPowerData = 2 };
inline std::atomic<std::uint32_t> refreshRequests{0};
inline HANDLE refreshEvent = nullptr; // the worker's, which owns it

// Asks for one background refresh of that kind.
inline void RequestBackgroundRefresh(RefreshKind kind)
{
    refreshRequests |= kind;
    SetEvent(refreshEvent);
}

} // namespace voltaro
