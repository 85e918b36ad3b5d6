#pragma once

#include "base/calendar.h"
#include "base/windows_api.h"

namespace voltaro {

// Local times in the platform's form, and the local clock. A day of the week is not set.
[[nodiscard]] LocalTime LocalTimeOf(const SYSTEMTIME& time);
[[nodiscard]] SYSTEMTIME SystemTimeOf(const LocalTime& time);
[[nodiscard]] LocalTime LocalNow();

} // namespace voltaro
