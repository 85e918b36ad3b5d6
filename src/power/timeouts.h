#pragma once

#include "base/choices.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace voltaro {

// Every time-out there is, in minutes. Each list below is a run of these rows, then "Never".
// clang-format off
inline constexpr Choice kTimeouts[] = {
    {L"After 1 Min",     1}, {L"After 2 Mins",    2}, {L"After 3 Mins",    3}, {L"After 5 Mins",    5},
    {L"After 10 Mins",  10}, {L"After 15 Mins",  15}, {L"After 20 Mins",  20}, {L"After 25 Mins",  25},
    {L"After 30 Mins",  30}, {L"After 45 Mins",  45}, {L"After 1 Hr",     60}, {L"After 2 Hrs",   120},
    {L"After 3 Hrs",   180}, {L"After 4 Hrs",   240}, {L"After 5 Hrs",   300}, {L"After 6 Hrs",   360},
    {L"After 7 Hrs",   420}, {L"After 8 Hrs",   480}, {L"After 9 Hrs",   540}, {L"After 10 Hrs",  600},
    {L"After 11 Hrs",  660}, {L"After 12 Hrs",  720}, {L"After 13 Hrs",  780}, {L"After 14 Hrs",  840},
    {L"After 15 Hrs",  900},
};
// clang-format on
inline constexpr Choice kNever = {L"Never", 0};
inline constexpr Choice kUnsupported = {L"Disabled", 0}; // the only entry where the machine lacks the capability

// The rows from one number of minutes to another, and "Never".
template <std::int32_t FirstMinutes, std::int32_t LastMinutes>
consteval auto TimeoutList()
{
    constexpr auto kFirst = std::ranges::find(kTimeouts, FirstMinutes, &Choice::number);
    constexpr auto kLast = std::ranges::find(kTimeouts, LastMinutes, &Choice::number);
    std::array<Choice, static_cast<std::size_t>(kLast - kFirst) + 2> list{};
    *std::copy(kFirst, kLast + 1, list.begin()) = kNever;
    return list;
}

// clang-format off
//                                                     from  to, minutes     used by
inline constexpr auto kDimChoices        = TimeoutList< 2,  6 * 60>(); // Dim Monitor Brightness
inline constexpr auto kMonitorOffChoices = TimeoutList< 3,  7 * 60>(); // Turn Off Monitor
inline constexpr auto kLockChoices       = TimeoutList< 1,      30>(); // Lock Screen
inline constexpr auto kHardDiskChoices   = TimeoutList< 3,  5 * 60>(); // Turn Off Hard Disk
inline constexpr auto kLogOffChoices     = TimeoutList< 3, 13 * 60>(); // Log Off
inline constexpr auto kStandbyChoices    = TimeoutList< 5, 14 * 60>(); // Standby, Shutdown
inline constexpr auto kHibernateChoices  = TimeoutList<10, 15 * 60>(); // Hibernate
// clang-format on

// The linked lists below rely on these: a later stage has as many entries and starts one step later.
static_assert(kDimChoices.size() == kMonitorOffChoices.size());
static_assert(kStandbyChoices.size() == kHibernateChoices.size());

inline constexpr std::size_t kInitialLogOff = 13; // "After 6 Hrs"
static_assert(kLogOffChoices[kInitialLogOff].number == 6 * 60);

// What a linked combo holds: a part of its whole list, and the entry that is selected.
struct ComboList {
    Choices choices;
    std::size_t selected;
};

// Each gives the second combo of a pair from the texts on screen, to be applied when the first changes and after
// loading. The text that the second showed stays selected where the new list has it, else the first entry is.
// To store what a combo shows, ask ChosenText with the whole list of the control, not the part.

// From the dim entry's place on; all for "Never".
[[nodiscard]] ComboList MonitorOffList(std::wstring_view dim, std::wstring_view monitorOff);
// "Never" alone while the monitor is never turned off, else all.
[[nodiscard]] ComboList LockList(std::wstring_view monitorOff, std::wstring_view lock);
// All, or "Disabled" alone on a machine without standby.
[[nodiscard]] ComboList StandbyList(bool supported, std::wstring_view standby);
// From the standby entry's place on; all for "Never" and "Disabled"; "Disabled" alone on a machine without hibernate.
[[nodiscard]] ComboList HibernateList(bool supported, std::wstring_view standby, std::wstring_view hibernate);

} // namespace voltaro
