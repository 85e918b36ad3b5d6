#pragma once

#include "base/calendar.h"

#include <string>

namespace voltaro {

// The day as a request for its events carries it: month, day, four-digit year, without separators ("02292024").
[[nodiscard]] std::wstring RequestDate(const LocalTime& day);

// The day as the headings of the report show it: "February 29, 2024".
[[nodiscard]] std::wstring HeadingDate(const LocalTime& day);

// The day as the date picker shows it, for messages: "29/02/2024", a one-digit day without a zero.
[[nodiscard]] std::wstring PickerDate(const LocalTime& day);

} // namespace voltaro
