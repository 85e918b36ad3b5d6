#pragma once

#include "console/state.h"

namespace voltaro {

// Asks the refresh worker for one background refresh of that kind.
inline void RequestBackgroundRefresh(RefreshKind kind)
{
    state.refreshKind = kind;
    SetEvent(state.refreshEvent);
}

} // namespace voltaro
