#pragma once

#include "base/choices.h"
#include "link/records.h"

#include <cstddef>

namespace voltaro {

// A check completes an edited record to what is sent and gives the number of its first fault; 0 stands for none. What
// equals the text as it was read stays so.
inline constexpr std::size_t kNoFault = 0;

enum HostFault : std::size_t { kTcpPortBlank = 1, kTcpPortOutOfRange, kUdpPortBlank, kUdpPortOutOfRange };
// A changed port becomes the number that its leading digits make, from 1 to 65535.
[[nodiscard]] std::size_t CheckHostSettings(HostSettings& edited, const HostSettings& asRead);

enum ProxyFault : std::size_t { kServerBlank = 1, kProxyPortBlank, kProxyPortOutOfRange, kUserNameBlank };
// Without the use of a proxy nothing is checked and the port stays as it is. A password that is not to be saved is not
// sent.
[[nodiscard]] std::size_t CheckProxySettings(ProxySettings& edited, const ProxySettings& asRead);

// The choices of the three snooze lists.
inline constexpr Choice kNotificationTimes[]
    = {{L"1 Min", 1}, {L"2 Mins", 2}, {L"3 Mins", 3}, {L"4 Mins", 4}, {L"5 Mins", 5}};
inline constexpr Choice kSnoozeAlertTimes[]
    = {{L"5 Mins", 5}, {L"10 Mins", 10}, {L"15 Mins", 15}, {L"20 Mins", 20}, {L"30 Mins", 30}};
inline constexpr Choice kSnoozeDurations[]
    = {{L"10 Mins", 10}, {L"20 Mins", 20}, {L"30 Mins", 30}, {L"45 Mins", 45}, {L"1 Hour", 60}};

// With an alert off, its times are the fixed ones that the agent expects then, whatever the lists show. Never a fault.
[[nodiscard]] std::size_t CompleteSnoozeSettings(SnoozeSettings& edited, const SnoozeSettings& asRead);

} // namespace voltaro
