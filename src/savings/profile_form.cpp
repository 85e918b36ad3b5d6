#include "savings/profile_form.h"

#include "savings/monitor_table.h"
#include "savings/profile_record.h"
#include "ui/binding.h"
#include "ui/boxes.h"
#include "ui/combo_box.h"
#include "ui/controls.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace voltaro {
namespace {

// The choice of monitor is not in it: radios and the list of types share one text.
// clang-format off
constexpr Binding<PowerConsumptionData> kBindings[] = {
    {kMonitorOn,  Shown::Text, &PowerConsumptionData::monitorOnPower},
    {kMonitorOff, Shown::Text, &PowerConsumptionData::monitorOffPower},
    {kCpuMax,     Shown::Text, &PowerConsumptionData::cpuMaxPower},
    {kCpuIdle,    Shown::Text, &PowerConsumptionData::cpuIdlePower},
    {kCpuStandby, Shown::Text, &PowerConsumptionData::cpuStandbyPower},
    {kCpuOff,     Shown::Text, &PowerConsumptionData::cpuOffPower},
    {kSize,       Shown::Name, &PowerConsumptionData::monitorSize},
};
// clang-format on
constexpr auto kWattBindings = std::span(kBindings).first<6>();

constexpr int kMonitorFields[] = {kType, kSize, kMonitorOn, kMonitorOff};
constexpr int kOtherFields[] = {kInbuilt, kBranded, kOthers, kCpuMax, kCpuIdle, kCpuStandby, kCpuOff};

constexpr Box kRefusedWatts = {kWattRefusalCaption.data(), L""};

ProfileEntry entry;               // in the fields
ShownTexts shownTexts;            // how they show the agent's record
PowerConsumptionData shownFields; // as they were filled

MonitorKind ChosenKind(HWND window)
{
    if (IsChecked(window, kInbuilt))
        return MonitorKind::Inbuilt;
    return IsChecked(window, kBranded) ? MonitorKind::Branded : MonitorKindOf(SelectedText(window, kType));
}

void EnableFields(HWND window)
{
    const MonitorKind kind = ChosenKind(window);
    Enable(window, kOtherFields, entry.editable);
    Enable(window, kMonitorFields, entry.editable && HasTypeAndSize(kind));
    Enable(window, kEdit, entry.known && !entry.editable);
    Enable(window, kSave, entry.unsaved);
    Show(window, kNote, kind == MonitorKind::Inbuilt);
}

// The sizes of the chosen type.
void FillSizes(HWND window)
{
    std::vector<std::wstring> sizes;
    for (const MonitorRow& row : MonitorsOfType(SelectedText(window, kType)))
        sizes.emplace_back(row.size);
    FillCombo(window, kSize, sizes);
}

void ChooseType(HWND window, std::wstring_view type)
{
    SelectExact(window, kType, type);
    FillSizes(window);
}

void ShowMonitorWatts(HWND window, std::wstring_view on, std::wstring_view off)
{
    SetText(window, kMonitorOn, on);
    SetText(window, kMonitorOff, off);
}

PowerConsumptionData FieldsShown(HWND window)
{
    PowerConsumptionData fields = WithEntered(window, kBindings, WithMonitor(entry.read), shownTexts);
    const MonitorKind kind = ChosenKind(window);
    if (HasTypeAndSize(kind)) {
        fields.monitorType = SelectedText(window, kType);
    } else {
        fields.monitorType = kind == MonitorKind::Inbuilt ? kInbuiltMonitor : kBrandedMonitor;
        fields.monitorSize.Clear();
    }
    return fields;
}

// Tells of the first field that is no power, and empties it. What was read and not touched goes back as it is.
bool AreWattsRefused(HWND window)
{
    const PowerConsumptionData fields = FieldsShown(window);
    for (const auto& [id, shown, slot, choices] : kWattBindings) {
        const WattCheck check = CheckWatts(fields.*slot);
        if (check == WattCheck::Accepted || (!entry.manual && entry.read.*slot == fields.*slot))
            continue;
        ShowMessage(window, kRefusedWatts, std::wstring(WattRefusal(check)));
        SetText(window, id, L"");
        FocusOn(window, id);
        return true;
    }
    return false;
}

} // namespace

void PrepareProfileFields(HWND window)
{
    FillCombo(window, kType, std::vector<std::wstring>(std::begin(kMonitorTypes), std::end(kMonitorTypes)));
}

void ShowEntry(HWND window, const ProfileEntry& shown)
{
    entry = shown;
    const PowerConsumptionData record = WithMonitor(entry.read);
    const MonitorKind kind = MonitorKindOf(record.monitorType);
    SetChecked(window, kInbuilt, kind == MonitorKind::Inbuilt);
    SetChecked(window, kBranded, kind == MonitorKind::Branded);
    SetChecked(window, kOthers, HasTypeAndSize(kind));
    const std::wstring_view type = kMonitorTypes[kind == MonitorKind::Crt ? 0 : kind == MonitorKind::Led ? 2 : 1];
    ChooseType(window, HasTypeAndSize(kind) ? type : L"");
    ShowFields(window, kBindings, record);
    shownTexts = EnteredTexts(window, kBindings);
    if (!HasTypeAndSize(kind)) // its fields are grey, so whatever the record holds must not be refused there
        ShowMonitorWatts(window, kNoWatts, kNoWatts);
    EnableFields(window);
    shownFields = FieldsShown(window);
}

bool IsEntryEdited(HWND window)
{
    return entry.editable && FieldsShown(window) != shownFields;
}

void EditEntry(HWND window)
{
    entry.editable = true;
    entry.unsaved = true;
    EnableFields(window);
}

void FocusOnPowers(HWND window)
{
    FocusOn(window, HasTypeAndSize(ChosenKind(window)) ? kMonitorOn : kCpuMax);
}

std::optional<PowerConsumptionData> EnteredRecord(HWND window)
{
    if (!entry.unsaved || AreWattsRefused(window))
        return std::nullopt;
    return RecordToSend(entry.read, FieldsShown(window), entry.manual);
}

void OnKindWithoutSize(HWND window)
{
    ShowMonitorWatts(window, kNoWatts, kNoWatts);
    EnableFields(window);
}

void OnKindWithSize(HWND window)
{
    if (IsWindowEnabled(ControlOf(window, kType)))
        return; // chosen before: the user's own figures stay
    if (SelectedIndex(window, kType) < 0) {
        ChooseType(window, kDefaultMonitor.type);
        SelectExact(window, kSize, kDefaultMonitor.size);
    }
    OnMonitorType(window);
    EnableFields(window);
}

void OnMonitorType(HWND window)
{
    const std::wstring size = SelectedText(window, kSize);
    FillSizes(window);
    if (SelectExact(window, kSize, size) < 0) // the size stays where the other type has it too
        SelectIndex(window, kSize, 0);
    OnMonitorSize(window);
}

void OnMonitorSize(HWND window)
{
    const MonitorRow* row = FindMonitor(SelectedText(window, kType), SelectedText(window, kSize));
    if (row)
        ShowMonitorWatts(window, row->onWatts, row->offWatts);
}

} // namespace voltaro
