#pragma once

#include "simulator/calendar.h"

#include <string>
#include <vector>

namespace voltaro::simulator {

// The power events of a day as the agent records them: about 20 to 60 lines that make a working day or a quieter
// weekend, made from the date alone and so always the same, the power lines last. Of `now`'s own day only what has
// happened; of a later day nothing at all.
[[nodiscard]] std::vector<std::wstring> EventsOf(const DateTime& date, const DateTime& now);

} // namespace voltaro::simulator
