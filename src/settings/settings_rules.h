#pragma once

#include "link/records.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace voltaro {

// Switches of a record: "Yes" or "No"; letter case does not count when they are read.
[[nodiscard]] bool IsYes(std::wstring_view flag);
[[nodiscard]] const wchar_t* YesNo(bool yes);

// A check completes an edited record to what is sent and gives the number of its first fault; 0 stands for none.
inline constexpr std::size_t kNoFault = 0;

enum HostFault : std::size_t { kTcpPortBlank = 1, kTcpPortOutOfRange, kUdpPortBlank, kUdpPortOutOfRange };
// Both ports become the number that their leading digits make, from 1 to 65535.
[[nodiscard]] std::size_t CheckHostSettings(HostSettings& edited);

enum ProxyFault : std::size_t { kServerBlank = 1, kProxyPortBlank, kProxyPortOutOfRange, kUserNameBlank };
// Without the use of a proxy nothing is checked and the port stays as it is.
[[nodiscard]] std::size_t CheckProxySettings(ProxySettings& edited);

// The choices of the three snooze lists.
inline constexpr std::array kNotificationTimes = {L"1 Min", L"2 Mins", L"3 Mins", L"4 Mins", L"5 Mins"};
inline constexpr std::array kSnoozeAlertTimes = {L"5 Mins", L"10 Mins", L"15 Mins", L"20 Mins", L"30 Mins"};
inline constexpr std::array kSnoozeDurations = {L"10 Mins", L"20 Mins", L"30 Mins", L"45 Mins", L"1 Hour"};

// Minutes of a choice, such as "20" for "20 Mins" and "60" for "1 Hour"; empty for a text that is no choice.
[[nodiscard]] std::wstring_view MinutesOf(std::wstring_view choice);

// With an alert off, its times are the fixed ones whatever the lists show. Never a fault.
[[nodiscard]] std::size_t CompleteSnoozeSettings(SnoozeSettings& edited);

// A feature's value after its check box; "NA" stays what it is.
[[nodiscard]] bool IsControllable(std::wstring_view feature);
[[nodiscard]] FieldText FeatureValue(const FieldText& current, bool disabled);
[[nodiscard]] bool IsFeatureDisabled(std::wstring_view feature);

// A dotted IPv4 address as its four bytes, the first one highest; nothing for any other text.
[[nodiscard]] std::optional<std::uint32_t> AddressOf(std::wstring_view dotted);
[[nodiscard]] FieldText DottedAddress(std::uint32_t address);

} // namespace voltaro
