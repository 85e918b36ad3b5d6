#pragma once

#include "link/replies.h"
#include "link/system_details.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace voltaro {

// What the system information and battery windows make of the agent's answers.

// True when the machine's state text means that it is up.
[[nodiscard]] bool IsMachineOn(std::wstring_view state);

// The logo of the operating-system family that a name belongs to.
enum class SystemLogo : std::uint8_t { None, Panes, Ring, Prompt };
[[nodiscard]] SystemLogo LogoOf(std::wstring_view systemName);
// The operating system's name: the first value of its section; empty without one.
[[nodiscard]] std::wstring_view SystemName(const SystemDetails& details);

// All six sections as text for the clipboard: a heading, a line with the column titles, a line a row (name, tab,
// value), an empty line for a separator row and after each section. Lines end with CR LF.
[[nodiscard]] std::wstring DetailsText(const SystemDetails& details);

// Battery. The charge in per cent, 0 to 100; 0 when there is none.
[[nodiscard]] int ChargePercent(const BatteryInfo& battery);
// Status and remaining time in one line.
[[nodiscard]] std::wstring BatteryStatusLine(const BatteryInfo& battery);
// What the list calls a row: the first four have labels of their own, the others the element's name.
[[nodiscard]] const wchar_t* BatteryLabel(const BatteryInfo& battery, std::size_t row);

} // namespace voltaro
