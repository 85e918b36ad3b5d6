#pragma once

#include "base/text.h"
#include "savings/event_lines.h"

#include <vector>

namespace voltaro::bench {

inline constexpr LocalTime kLongDay{2026, 11, 20}, kLongDayNow{2026, 11, 21, 12};

// So many changes of state, evenly over a day.
inline std::vector<EventLine> LongDay(std::size_t count = kMaxEventLines)
{
    constexpr const wchar_t* kCodes[] = {L"Istime", L"Dstime", L"Detime", L"Mstime", L"Metime", L"Ietime"};
    std::vector<EventLine> lines;
    for (std::size_t i = 0; i < count; ++i) {
        const int second = static_cast<int>(i * 86'400 / count);
        lines.emplace_back(
            Format(L"%ls # 2026/11/20 %02d:%02d:%02d", kCodes[i % 6], second / 3600, second / 60 % 60, second % 60));
    }
    return lines;
}

} // namespace voltaro::bench
