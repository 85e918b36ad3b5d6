#include "settings/machine_texts.h"

#include "base/text.h"

#include <algorithm>
#include <iterator>

namespace voltaro {
namespace {

constexpr struct {
    DetailSection section;
    const wchar_t* heading;
} kHeadings[] = {
    {DetailSection::Processor, L"CPU"},
    {DetailSection::OperatingSystem, L"Operating System"},
    {DetailSection::PowerCapabilities, L"Power Capabilities"},
    {DetailSection::Network, L"Network"},
    {DetailSection::PhysicalDisks, L"Physical Disks"},
    {DetailSection::LogicalDisks, L"Logical Disks"},
};
static_assert(std::size(kHeadings) == kDetailSections);

constexpr const wchar_t* kBatteryLabels[] = {L"Power Source", L"Battery Status", L"Battery Charge", L"Remaining Time"};

constexpr const wchar_t* kLineEnd = L"\r\n";

bool Contains(std::wstring_view text, std::wstring_view part)
{
    return text.find(part) != std::wstring_view::npos;
}

std::wstring RowText(const NamedValue& row)
{
    if (row.name == L" " && row.value == L" ")
        return kLineEnd;
    return OneLine(row.name) + L"\t" + OneLine(row.value) + kLineEnd;
}

} // namespace

bool IsMachineOn(std::wstring_view state)
{
    return EqualsIgnoreCase(state, L"On");
}

SystemLogo LogoOf(std::wstring_view systemName)
{
    if (Contains(systemName, L"Microsoft") && Contains(systemName, L"Windows"))
        return SystemLogo::Panes;
    if (Contains(systemName, L"Ubuntu") || Contains(systemName, L"ubuntu"))
        return SystemLogo::Ring;
    return Contains(systemName, L"Linux") ? SystemLogo::Prompt : SystemLogo::None;
}

std::wstring_view SystemName(const SystemDetails& details)
{
    return details.Row(DetailSection::OperatingSystem, 0).value;
}

std::wstring DetailsText(const SystemDetails& details)
{
    std::wstring text;
    for (const auto& row : kHeadings) {
        text.append(row.heading).append(kLineEnd).append(L"Description\tValue").append(kLineEnd);
        for (std::size_t i = 0; i < details.RowCount(row.section); ++i)
            text += RowText(details.Row(row.section, i));
        text += kLineEnd;
    }
    return text;
}

int ChargePercent(const BatteryInfo& battery)
{
    return std::clamp<int>(LeadingNumber(battery.Charge()), 0, 100);
}

std::wstring BatteryStatusLine(const BatteryInfo& battery)
{
    std::wstring line(battery.Status());
    const std::wstring_view time = battery.RemainingTime();
    if (!line.empty() && !time.empty())
        line += L", remaining time ";
    return line.append(time);
}

const wchar_t* BatteryLabel(const BatteryInfo& battery, std::size_t row)
{
    return row < std::size(kBatteryLabels) ? kBatteryLabels[row] : battery.rows[row].name.c_str();
}

} // namespace voltaro
