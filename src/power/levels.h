#pragma once

#include "base/choices.h"

#include <array>
#include <cstddef>
#include <utility>

namespace voltaro {

// The brightness sliders' positions 0 to 8. The agent's top step is 128, not 120.
inline constexpr Choice kBrightnessSteps[] = {{L"0", 0}, {L"15", 15}, {L"30", 30}, {L"45", 45}, {L"60", 60},
    {L"75", 75}, {L"90", 90}, {L"105", 105}, {L"128", 128}};

// The processor speeds, in the order of their list.
inline constexpr const wchar_t* kProcessorSpeeds[] = {L"Adaptive", L"Minimum", L"Maximum"};

namespace detail {

template <std::size_t Percent>
inline constexpr wchar_t kPercentText[] = {static_cast<wchar_t>(L'0' + (Percent < 10 ? Percent : Percent / 10)),
    static_cast<wchar_t>(Percent < 10 ? 0 : L'0' + Percent % 10), 0};

template <std::size_t... Percents>
consteval auto PercentChoices(std::index_sequence<Percents...>)
{
    return std::array<Choice, sizeof...(Percents)>{Choice{kPercentText<Percents>, Percents}...};
}

} // namespace detail

// The CPU load threshold in percent: "0" to "99".
inline constexpr auto kCpuLoads = detail::PercentChoices(std::make_index_sequence<100>());

} // namespace voltaro
