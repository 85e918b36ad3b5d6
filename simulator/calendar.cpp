#include "simulator/calendar.h"

#include "base/text.h"

#include <algorithm>
#include <ctime>

namespace voltaro::simulator {
namespace {

std::chrono::year_month_day AsChrono(const DateTime& date)
{
    return {std::chrono::year(date.year), std::chrono::month(static_cast<unsigned>(date.month)),
        std::chrono::day(static_cast<unsigned>(date.day))};
}

} // namespace

DateTime LocalClock()
{
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
#ifdef _WIN32
    localtime_s(&parts, &now);
#else
    localtime_r(&now, &parts);
#endif
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
        parts.tm_hour * 3600 + parts.tm_min * 60 + std::min(parts.tm_sec, 59)};
}

std::chrono::sys_days DayOf(const DateTime& date)
{
    return AsChrono(date);
}

std::int64_t SecondNumber(const DateTime& time)
{
    return (std::chrono::sys_seconds(DayOf(time)) + std::chrono::seconds(time.second)).time_since_epoch().count();
}

std::optional<DateTime> ParseMonthDayYear(std::wstring_view text)
{
    const auto isDigit = [](wchar_t unit) { return unit >= L'0' && unit <= L'9'; };
    if (text.size() != 8 || !std::all_of(text.begin(), text.end(), isDigit))
        return std::nullopt;
    const DateTime date{
        LeadingNumber(text.substr(4)), LeadingNumber(text.substr(0, 2)), LeadingNumber(text.substr(2, 2)), 0};
    return AsChrono(date).ok() ? std::optional(date) : std::nullopt;
}

} // namespace voltaro::simulator
