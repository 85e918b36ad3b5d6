#include "scheduler/job.h"

#include "base/calendar.h"
#include "base/text.h"

namespace voltaro {
namespace {

// Three groups of digits with the separator between them.
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

std::wstring TimeText(std::chrono::seconds time)
{
    const std::chrono::hh_mm_ss parts(time);
    return Format(L"%02d:%02d:%02d", static_cast<int>(parts.hours().count()), static_cast<int>(parts.minutes().count()),
        static_cast<int>(parts.seconds().count()));
}

std::optional<std::chrono::seconds> ParseTime(std::wstring_view text)
{
    const auto numbers = ThreeNumbers(text, L':');
    if (!numbers || (*numbers)[0] > 23 || (*numbers)[1] > 59 || (*numbers)[2] > 59)
        return std::nullopt;
    return std::chrono::hours((*numbers)[0]) + std::chrono::minutes((*numbers)[1])
        + std::chrono::seconds((*numbers)[2]);
}

std::wstring DateText(std::chrono::year_month_day date)
{
    return Format(L"%04d-%02d-%02d", static_cast<int>(date.year()),
        static_cast<int>(static_cast<unsigned>(date.month())), static_cast<int>(static_cast<unsigned>(date.day())));
}

std::optional<std::chrono::year_month_day> ParseDate(std::wstring_view text)
{
    const auto numbers = ThreeNumbers(text, L'-');
    if (!numbers || (*numbers)[0] > 9999)
        return std::nullopt;
    const std::chrono::year_month_day date = DateOf({(*numbers)[0], (*numbers)[1], (*numbers)[2]});
    return date.ok() ? std::optional(date) : std::nullopt;
}

} // namespace voltaro
