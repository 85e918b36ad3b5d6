#include "scheduler/job.h"

#include "base/text.h"

#include <chrono>

namespace voltaro {
namespace {

// Three runs of digits, parted by the separator.
std::optional<std::array<int, 3>> ThreeNumbers(std::wstring_view text, wchar_t separator)
{
    std::array<int, 3> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::size_t end = text.find(separator);
        const std::wstring_view digits = text.substr(0, end);
        const bool last = i + 1 == numbers.size();
        if (digits.empty() || digits.find_first_not_of(L"0123456789") != digits.npos || (end == text.npos) != last)
            return std::nullopt;
        numbers[i] = LeadingNumber(digits);
        text.remove_prefix(last ? text.size() : end + 1);
    }
    return numbers;
}

} // namespace

std::wstring TimeText(TimeOfDay time)
{
    return Format(L"%02d:%02d:%02d", time.hour, time.minute, time.second);
}

std::optional<TimeOfDay> ParseTime(std::wstring_view text)
{
    const auto numbers = ThreeNumbers(text, L':');
    if (!numbers || (*numbers)[0] > 23 || (*numbers)[1] > 59 || (*numbers)[2] > 59)
        return std::nullopt;
    return TimeOfDay{(*numbers)[0], (*numbers)[1], (*numbers)[2]};
}

std::wstring DateText(CalendarDate date)
{
    return Format(L"%04d-%02d-%02d", date.year, date.month, date.day);
}

std::optional<CalendarDate> ParseDate(std::wstring_view text)
{
    const auto numbers = ThreeNumbers(text, L'-');
    if (!numbers || (*numbers)[0] > 9999 || (*numbers)[1] > 12 || (*numbers)[2] > 31)
        return std::nullopt;
    const CalendarDate date{(*numbers)[0], (*numbers)[1], (*numbers)[2]};
    const std::chrono::year_month_day day{std::chrono::year(date.year),
        std::chrono::month(static_cast<unsigned>(date.month)), std::chrono::day(static_cast<unsigned>(date.day))};
    return day.ok() ? std::optional(date) : std::nullopt;
}

} // namespace voltaro
