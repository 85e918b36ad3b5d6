#include "savings/monitor_table.h"

#include "base/text.h"

#include <algorithm>
#include <iterator>

namespace voltaro {
namespace {

// Figures as measured: not monotonic in size, and the last row with its own number of digits.
// clang-format off
constexpr MonitorRow kMonitors[] = {
    {L"CRT", L"15.00", L"65.20",  L"4.20"},
    {L"CRT", L"17.00", L"67.80",  L"3.80"},
    {L"CRT", L"19.00", L"87.80",  L"1.76"},
    {L"CRT", L"21.00", L"113.20", L"2.50"},
    {L"CRT", L"22.00", L"141.00", L"3.50"},
    {L"LCD", L"14.00", L"8.40",   L"0.73"},
    {L"LCD", L"15.00", L"18.98",  L"0.43"},
    {L"LCD", L"15.60", L"14.10",  L"0.45"},
    {L"LCD", L"16.00", L"18.90",  L"0.73"},
    {L"LCD", L"17.00", L"21.23",  L"0.49"},
    {L"LCD", L"18.50", L"16.50",  L"0.45"},
    {L"LCD", L"19.00", L"21.90",  L"0.74"},
    {L"LCD", L"20.00", L"23.43",  L"0.23"},
    {L"LCD", L"21.50", L"29.28",  L"0.42"},
    {L"LCD", L"22.00", L"28.77",  L"0.63"},
    {L"LCD", L"23.00", L"32.47",  L"0.59"},
    {L"LCD", L"23.60", L"32.63",  L"0.48"},
    {L"LCD", L"24.00", L"36.57",  L"0.51"},
    {L"LCD", L"25.00", L"33.53",  L"0.72"},
    {L"LCD", L"26.00", L"30.90",  L"0.72"},
    {L"LCD", L"27.00", L"36.91",  L"0.51"},
    {L"LED", L"15.60", L"14.00",  L"0.41"},
    {L"LED", L"18.50", L"15.10",  L"0.32"},
    {L"LED", L"20.00", L"20.60",  L"0.31"},
    {L"LED", L"21.50", L"22.40",  L"0.29"},
    {L"LED", L"22.00", L"21.20",  L"0.65"},
    {L"LED", L"23.00", L"29.33",  L"0.58"},
    {L"LED", L"23.60", L"23.30",  L"0.65"},
    {L"LED", L"24.00", L"18.9",   L"0.09"},
};

constexpr struct {
    std::wstring_view type;
    MonitorKind kind;
} kKinds[] = {
    {kInbuiltMonitor, MonitorKind::Inbuilt},
    {kBrandedMonitor, MonitorKind::Branded},
    {L"CRT",          MonitorKind::Crt},
    {L"LCD",          MonitorKind::Lcd},
    {L"LED",          MonitorKind::Led},
};

constexpr std::wstring_view kWattRefusals[] = {
    L"",
    L"Please enter valid decimal values only\n\n Hint : Please keep the value in 0.00 to 999.99 range.",
    L"Value entered is too high.\n\n Hint : Please keep the value in 0.00 to 999.99 range.",
};
// clang-format on

constexpr std::wstring_view kDigits = L"0123456789";

} // namespace

MonitorKind MonitorKindOf(std::wstring_view type)
{
    const auto row = std::find_if(std::begin(kKinds), std::end(kKinds),
        [type](const auto& candidate) { return EqualsIgnoreCase(candidate.type, type); });
    return row == std::end(kKinds) ? MonitorKind::Lcd : row->kind;
}

std::span<const MonitorRow> MonitorsOfType(std::wstring_view type)
{
    const auto isOfType = [type](const MonitorRow& row) { return EqualsIgnoreCase(row.type, type); };
    const auto first = std::find_if(std::begin(kMonitors), std::end(kMonitors), isOfType);
    return {first, std::find_if_not(first, std::end(kMonitors), isOfType)};
}

const MonitorRow* FindMonitor(std::wstring_view type, std::wstring_view size)
{
    for (const MonitorRow& row : MonitorsOfType(type)) {
        if (row.size == size)
            return &row;
    }
    return nullptr;
}

WattCheck CheckWatts(std::wstring_view text)
{
    const std::size_t point = std::min(text.find(L'.'), text.size());
    std::wstring_view whole = text.substr(0, point);
    const std::wstring_view decimals = point < text.size() ? text.substr(point + 1) : L"0";
    const auto isNumber = [](std::wstring_view part) {
        return !part.empty() && part.find_first_not_of(kDigits) == std::wstring_view::npos;
    };
    if (!isNumber(whole) || !isNumber(decimals))
        return WattCheck::NotANumber;

    whole.remove_prefix(std::min(whole.find_first_not_of(L'0'), whole.size()));
    const bool above = whole == L"999" && decimals.starts_with(L"99")
        && decimals.find_first_not_of(L'0', 2) != std::wstring_view::npos;
    return whole.size() > 3 || above ? WattCheck::TooHigh : WattCheck::Accepted;
}

std::wstring_view WattRefusal(WattCheck check)
{
    return kWattRefusals[static_cast<std::size_t>(check)];
}

} // namespace voltaro
