#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace voltaro {

// How a monitor's consumption is counted: as part of the machine's, not at all, or by its type.
enum class MonitorKind : std::uint8_t { Inbuilt, Branded, Crt, Lcd, Led };

// The kind of a record's monitor type, without regard to letter case; the default type for any other text.
[[nodiscard]] MonitorKind MonitorKindOf(std::wstring_view type);

// The profile's own texts for the two kinds without a type and size.
inline constexpr std::wstring_view kInbuiltMonitor = L"Inbuilt";
inline constexpr std::wstring_view kBrandedMonitor = L"Branded";

// True for the kinds that have a size and figures of their own. The others draw nothing of their own.
[[nodiscard]] constexpr bool HasTypeAndSize(MonitorKind kind)
{
    return kind != MonitorKind::Inbuilt && kind != MonitorKind::Branded;
}

// The types of the type list, in its order.
inline constexpr std::wstring_view kMonitorTypes[] = {L"CRT", L"LCD", L"LED"};

// What both monitor fields show once a kind without figures of its own is chosen.
inline constexpr std::wstring_view kNoWatts = L"0.00";

// Watts of a monitor of that type and size in inches. All are texts, shown and sent as they stand.
struct MonitorRow {
    std::wstring_view type;
    std::wstring_view size;
    std::wstring_view onWatts;
    std::wstring_view offWatts;
};

// The monitor of a fresh profile.
inline constexpr MonitorRow kDefaultMonitor = {L"LCD", L"17.00", L"21.23", L"0.49"};

// The rows of one type, in the order of the size list; none for an unknown type.
[[nodiscard]] std::span<const MonitorRow> MonitorsOfType(std::wstring_view type);

// The row of a type and size, or null.
[[nodiscard]] const MonitorRow* FindMonitor(std::wstring_view type, std::wstring_view size);

// What becomes of a text in a watt field.
enum class WattCheck : std::uint8_t { Accepted, NotANumber, TooHigh };

// Accepted: digits, with a point and decimals or without, up to 999.99.
[[nodiscard]] WattCheck CheckWatts(std::wstring_view text);

inline constexpr std::wstring_view kWattRefusalCaption = L"Invalid Input";
// The message for a refused text; empty for an accepted one.
[[nodiscard]] std::wstring_view WattRefusal(WattCheck check);

} // namespace voltaro
