#include "savings/profile_record.h"

#include "savings/decimal.h"
#include "savings/monitor_table.h"

#include <algorithm>

namespace voltaro {
namespace {

constexpr int kWattDecimals = 2;

constexpr FieldText PowerConsumptionData::*kMonitorSlots[] = {&PowerConsumptionData::monitorType,
    &PowerConsumptionData::monitorSize, &PowerConsumptionData::monitorOnPower, &PowerConsumptionData::monitorOffPower};

constexpr FieldText PowerConsumptionData::*kWattSlots[] = {&PowerConsumptionData::monitorOnPower,
    &PowerConsumptionData::monitorOffPower, &PowerConsumptionData::cpuMaxPower, &PowerConsumptionData::cpuIdlePower,
    &PowerConsumptionData::cpuStandbyPower, &PowerConsumptionData::cpuOffPower};

struct ProfileRow {
    const wchar_t* label;
    FieldText PowerConsumptionData::*slot;
    const wchar_t* unit;
};

// clang-format off
constexpr ProfileRow kRows[] = {
    {L"Monitor Type",                              &PowerConsumptionData::monitorType,        L""},
    {L"Monitor Size",                              &PowerConsumptionData::monitorSize,        L" Inches"},
    {L"Monitor Power Consumption : Powered ON",    &PowerConsumptionData::monitorOnPower,     L" Watts"},
    {L"Monitor Power Consumption : Powered OFF",   &PowerConsumptionData::monitorOffPower,    L" Watts"},
    {L"CPU Power Consumption : Maximum",           &PowerConsumptionData::cpuMaxPower,        L" Watts"},
    {L"CPU Power Consumption : Idle",              &PowerConsumptionData::cpuIdlePower,       L" Watts"},
    {L"CPU Power Consumption : Standby",           &PowerConsumptionData::cpuStandbyPower,    L" Watts"},
    {L"CPU Power Consumption : Powered OFF",       &PowerConsumptionData::cpuOffPower,        L" Watts"},
    {L"Manual Entry",                              &PowerConsumptionData::manualSetFlag,      L""},
    {L"System Type",                               &PowerConsumptionData::systemType,         L""},
    {L"Processor Type",                            &PowerConsumptionData::processorType,      L""},
    {L"System Manufacturer",                       &PowerConsumptionData::systemManufacturer, L""},
    {L"System Model",                              &PowerConsumptionData::systemModel,        L""},
};
// clang-format on

bool IsFromTable(const PowerConsumptionData& record, const FieldText& watts)
{
    const MonitorRow* row = FindMonitor(record.monitorType, record.monitorSize);
    return row != nullptr && (watts == row->onWatts || watts == row->offWatts);
}

} // namespace

PowerConsumptionData WithMonitor(PowerConsumptionData record)
{
    if (record.monitorType.empty()) {
        record.monitorType = kDefaultMonitor.type;
        record.monitorSize = kDefaultMonitor.size;
        record.monitorOnPower = kDefaultMonitor.onWatts;
        record.monitorOffPower = kDefaultMonitor.offWatts;
    }
    return record;
}

PowerProfile ProfileOf(const PowerConsumptionData& record)
{
    const PowerConsumptionData r = WithMonitor(record);
    return ReadProfile({r.monitorType, r.monitorOnPower, r.monitorOffPower, r.cpuMaxPower, r.cpuIdlePower,
        r.cpuStandbyPower, r.cpuOffPower});
}

ReportRows ProfileRows(const PowerConsumptionData& record)
{
    const PowerConsumptionData shown = WithMonitor(record);
    ReportRows rows;
    for (const ProfileRow& row : kRows) {
        const std::wstring value((shown.*row.slot).view());
        rows.push_back({row.label, value.empty() ? value : value + row.unit});
    }
    return rows;
}

PowerConsumptionData RecordToSend(const PowerConsumptionData& record, PowerConsumptionData entered, bool manualEntry)
{
    const PowerConsumptionData read = WithMonitor(record);
    const MonitorKind kind = MonitorKindOf(entered.monitorType);
    if (kind == MonitorKindOf(read.monitorType)) {
        entered.monitorType = read.monitorType; // perhaps in a spelling of the agent's own
        if (!HasTypeAndSize(kind)) {            // nor can anything of the monitor be changed
            entered.monitorSize = read.monitorSize;
            entered.monitorOnPower = read.monitorOnPower;
            entered.monitorOffPower = read.monitorOffPower;
        }
    }
    const bool changed = !(entered == read);
    for (const auto slot : kWattSlots) {
        FieldText& watts = entered.*slot;
        if (!(watts == read.*slot) && !IsFromTable(entered, watts))
            watts = DecimalText(LeadingDecimal(watts).value_or(0.0F), kWattDecimals);
    }
    if (manualEntry || changed)
        entered.manualSetFlag = L"Yes";
    constexpr auto kSameMonitor = [](const PowerConsumptionData& a, const PowerConsumptionData& b) {
        return std::ranges::all_of(kMonitorSlots, [&](auto slot) { return a.*slot == b.*slot; });
    };
    if (kSameMonitor(entered, read)) { // perhaps the default of a record that names none
        for (const auto slot : kMonitorSlots)
            entered.*slot = record.*slot;
    }
    return entered;
}

} // namespace voltaro
