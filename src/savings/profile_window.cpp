// The power consumption profile: what the agent has saved stands in the list, the fields below change it. Opened from
// the savings report.
#include "savings/profile_window.h"

#include "base/text.h"
#include "console/activation.h"
#include "console/agent.h"
#include "console/agent_lost.h"
#include "console/agent_state.h"
#include "console/help.h"
#include "console/state.h"
#include "savings/monitor_table.h"
#include "savings/page_looks.h"
#include "savings/profile_record.h"
#include "savings/savings_window.h"
#include "ui/boxes.h"
#include "ui/commands.h"
#include "ui/controls.h"
#include "ui/list_view.h"
#include "ui/navigation.h"
#include "ui/theme.h"
#include "ui/window_class.h"

#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace voltaro {
namespace {

enum Id : int {
    kSaved = 101,
    kInbuilt,
    kBranded,
    kOthers,
    kNote,
    kType,
    kSize,
    kMonitorOn,
    kMonitorOff,
    kCpuMax,
    kCpuIdle,
    kCpuStandby,
    kCpuOff,
    kManual,
    kAuto,
    kEdit,
    kSave,
    kCancel,
};

// clang-format off
constexpr Control kControls[] = {
    {Kind::GroupBox, kNoId,       L"Power Consumption Details",   8,   4, 478, 202},
    {Kind::ListView, kSaved,      L"Events Graph Settings List1", 18, 26, 458, 170, kPlain, L"Power Consumption Details"},
    {Kind::GroupBox, kNoId,       L"Monitor Power Consumption :", 8, 214, 478, 150},
    {Kind::Radio,    kInbuilt,    L"Inbuilt",                    20, 236,  90,  22, kGroup},
    {Kind::Radio,    kBranded,    L"Branded",                   126, 236,  90,  22},
    {Kind::Radio,    kOthers,     L"others",                    232, 236,  90,  22},
    {Kind::Label,    kNote,       L"Monitor Power Consumption included in CPU Power Values .", 20, 264, 455, 18, kHidden},
    {Kind::Label,    kNoId,       L"Monitor Type",               20, 296,  96,  18},
    {Kind::Combo,    kType,       L"",                          126, 292, 100, 160},
    {Kind::Label,    kNoId,       L"Monitor Size",              262, 296,  96,  18},
    {Kind::Combo,    kSize,       L"",                          362, 292, 100, 220},
    {Kind::Label,    kNoId,       L"Powered ON",                 20, 331,  96,  18},
    {Kind::Edit,     kMonitorOn,  L"",                          126, 328,  60,  24},
    {Kind::Label,    kNoId,       L"Watts",                     192, 331,  45,  18},
    {Kind::Label,    kNoId,       L"Powered OFF",               262, 331,  96,  18},
    {Kind::Edit,     kMonitorOff, L"",                          362, 328,  60,  24},
    {Kind::Label,    kNoId,       L"Watts",                     428, 331,  45,  18},
    {Kind::GroupBox, kNoId,       L"CPU Power Consumption :",     8, 372, 478,  94},
    {Kind::Label,    kNoId,       L"Maximum",                    20, 398,  96,  18},
    {Kind::Edit,     kCpuMax,     L"",                          126, 395,  60,  24},
    {Kind::Label,    kNoId,       L"Watts",                     192, 398,  45,  18},
    {Kind::Label,    kNoId,       L"Idle",                      262, 398,  96,  18},
    {Kind::Edit,     kCpuIdle,    L"",                          362, 395,  60,  24},
    {Kind::Label,    kNoId,       L"Watts",                     428, 398,  45,  18},
    {Kind::Label,    kNoId,       L"Standby",                    20, 432,  96,  18},
    {Kind::Edit,     kCpuStandby, L"",                          126, 429,  60,  24},
    {Kind::Label,    kNoId,       L"Watts",                     192, 432,  45,  18},
    {Kind::Label,    kNoId,       L"Powered OFF",               262, 432,  96,  18},
    {Kind::Edit,     kCpuOff,     L"",                          362, 429,  60,  24},
    {Kind::Label,    kNoId,       L"Watts",                     428, 432,  45,  18},
    {Kind::Push,     kManual,     L"Manual Entry",                8, 481,  98,  25},
    {Kind::Push,     kAuto,       L"Auto Generate",             113, 481,  98,  25},
    {Kind::Push,     kEdit,       L"Edit Settings",             218, 481,  98,  25},
    {Kind::Push,     kSave,       L"Save",                      331, 481,  74,  25},
    {Kind::Push,     kCancel,     L"Cancel",                    412, 481,  74,  25},
};
constexpr Column kColumns[] = {{L"Description", 270}, {L"Value", 165}};

// In the order of kWattSlots; the first two are the monitor's.
constexpr int kWattFields[] = {kMonitorOn, kMonitorOff, kCpuMax, kCpuIdle, kCpuStandby, kCpuOff};
constexpr int kMonitorFields[] = {kType, kSize, kMonitorOn, kMonitorOff};
constexpr int kOtherFields[] = {kInbuilt, kBranded, kOthers, kCpuMax, kCpuIdle, kCpuStandby, kCpuOff};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 494, 521));
static_assert(std::size(kWattFields) == std::size(kWattSlots));

constexpr const wchar_t* kRefusalCaption = L"Unable to Set";
constexpr Box kRefusedWatts = {kWattRefusalCaption.data(), L""};
constexpr Box kApplied
    = {L"Power Consumption Settings", L"Power consumption settings have been set successfully.", BoxIcon::Information};
constexpr Box kFailed = {L"Error", L"Unable to Set"};

// What the fields were filled from, and what the user may do with them.
struct Entry {
    PowerConsumptionData read;
    bool manual = false;   // figures that the user keeps himself
    bool editable = false; // else the fields only show
    bool unsaved = false;  // there is something to save
};
Entry entry;

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
    Enable(window, kEdit, !entry.editable);
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

void ChooseMonitor(HWND window, std::wstring_view type, std::wstring_view size)
{
    SelectExact(window, kType, type);
    FillSizes(window);
    SelectExact(window, kSize, size);
}

void ShowWatts(HWND window, std::wstring_view on, std::wstring_view off)
{
    SetText(window, kMonitorOn, on);
    SetText(window, kMonitorOff, off);
}

void OnSize(HWND window)
{
    const MonitorRow* row = FindMonitor(SelectedText(window, kType), SelectedText(window, kSize));
    if (row)
        ShowWatts(window, row->onWatts, row->offWatts);
}

// The size stays where the other type has it too.
void OnType(HWND window)
{
    const std::wstring size = SelectedText(window, kSize);
    FillSizes(window);
    if (SelectExact(window, kSize, size) < 0)
        SelectIndex(window, kSize, 0);
    OnSize(window);
}

void OnNoMonitor(HWND window)
{
    ShowWatts(window, kNoWatts, kNoWatts);
    EnableFields(window);
}

void OnOthers(HWND window)
{
    if (IsWindowEnabled(ControlOf(window, kType)))
        return; // chosen before: the user's own figures stay
    if (SelectedIndex(window, kType) < 0)
        ChooseMonitor(window, kDefaultMonitor.type, kDefaultMonitor.size);
    OnSize(window);
    EnableFields(window);
}

// Fills the fields from a record and says what may be done with it.
void ShowEntry(HWND window, const Entry& shown)
{
    entry = shown;
    entry.read = WithMonitor(entry.read);
    const MonitorKind kind = MonitorKindOf(entry.read.monitorType);
    SetChecked(window, kInbuilt, kind == MonitorKind::Inbuilt);
    SetChecked(window, kBranded, kind == MonitorKind::Branded);
    SetChecked(window, kOthers, HasTypeAndSize(kind));
    const std::wstring_view type = kMonitorTypes[kind == MonitorKind::Crt ? 0 : kind == MonitorKind::Led ? 2 : 1];
    ChooseMonitor(window, HasTypeAndSize(kind) ? type : L"", entry.read.monitorSize);
    for (std::size_t i = 0; i < std::size(kWattFields); ++i)
        SetText(window, kWattFields[i], entry.read.*kWattSlots[i]);
    EnableFields(window);
}

void ShowSaved(HWND window)
{
    FillList(ControlOf(window, kSaved), ProfileRows(state.consumption));
    ShowEntry(window, {.read = state.consumption});
}

// What the agent keeps under another operation; nothing when it is lost or has nothing.
void FetchEntry(HWND window, Operation operation, bool manual)
{
    std::optional<PowerConsumptionData> record;
    {
        Reply reply = SendOrLose(Plain(operation));
        record = reply.Read<PowerConsumptionData>();
    }
    if (record)
        ShowEntry(window, {*record, manual, manual, true});
}

void OnManual(HWND window)
{
    FetchEntry(window, Operation::GetManualConsumption, true);
    if (entry.editable)
        FocusOn(window, HasTypeAndSize(ChosenKind(window)) ? kMonitorOn : kCpuMax);
}

void OnAuto(HWND window)
{
    FetchEntry(window, Operation::GetAutoConsumption, false);
}

void OnEdit(HWND window)
{
    entry.editable = true;
    entry.unsaved = true;
    EnableFields(window);
    FocusOn(window, HasTypeAndSize(ChosenKind(window)) ? kMonitorOn : kCpuMax);
}

PowerConsumptionData FieldsShown(HWND window)
{
    PowerConsumptionData shown = entry.read;
    const MonitorKind kind = ChosenKind(window);
    if (!HasTypeAndSize(kind)) {
        shown.monitorType = kind == MonitorKind::Inbuilt ? kInbuiltMonitor : kBrandedMonitor;
        shown.monitorSize.Clear();
    } else {
        shown.monitorType = SelectedText(window, kType);
        if (SelectedIndex(window, kSize) >= 0)
            shown.monitorSize = SelectedText(window, kSize);
    }
    for (std::size_t i = 0; i < std::size(kWattFields); ++i)
        shown.*kWattSlots[i] = TextOf(window, kWattFields[i]);
    return shown;
}

// Tells of the first field that is no power, and empties it.
bool AreWattsRefused(HWND window)
{
    for (const int id : kWattFields) {
        const WattCheck check = CheckWatts(TextOf(window, id));
        if (check == WattCheck::Accepted)
            continue;
        Tell(window, kRefusedWatts, std::wstring(WattRefusal(check)));
        SetText(window, id, L"");
        FocusOn(window, id);
        return true;
    }
    return false;
}

void OnSave(HWND window)
{
    if (!entry.unsaved || AreWattsRefused(window) || !OpenGate(window, kRefusalCaption))
        return;
    const PowerConsumptionData record = RecordToSend(entry.read, FieldsShown(window), entry.manual);
    std::wstring status;
    {
        Reply reply = SendOrLose(WithRecord(Operation::ApplyConsumption, record));
        if (!reply.Answered())
            return;
        status = reply.Status();
    }
    if (IsLicenceRefusal(window, kRefusalCaption, status))
        return;
    if (!IsWord(status, kSuccess))
        return Tell(window, kFailed);
    Tell(window, kApplied);
    if (!ReadCurrentConsumption())
        return OnAgentLost();
    ShowSaved(window);
    RecomputeSavings();
}

void OnCancel(HWND window)
{
    ShowWindow(window, SW_HIDE);
}

constexpr Command kCommands[] = {
    {kInbuilt, OnNoMonitor},
    {kBranded, OnNoMonitor},
    {kOthers, OnOthers},
    {kType, OnType, CBN_SELCHANGE},
    {kSize, OnSize, CBN_SELCHANGE},
    {kManual, OnManual},
    {kAuto, OnAuto},
    {kEdit, OnEdit},
    {kSave, OnSave},
    {kCancel, OnCancel},
    {IDOK, OnSave},
    {IDCANCEL, OnCancel},
};

LRESULT OnCreate(HWND window)
{
    CreateControls(window, kControls, WindowFont());
    PrepareReportList(ControlOf(window, kSaved), kColumns);
    FillCombo(window, kType, std::vector<std::wstring>(std::begin(kMonitorTypes), std::end(kMonitorTypes)));
    for (const int id : kWattFields)
        SendMessageW(ControlOf(window, id), EM_SETLIMITTEXT, FieldText::kCapacity, 0);
    return 0;
}

} // namespace

void OpenProfileWindow(HWND)
{
    const HWND window = WindowOf(WindowId::Profile);
    if (!IsWindowVisible(window)) { // else it keeps what the user typed
        if (!ReadCurrentConsumption())
            return OnAgentLost();
        ShowSaved(window);
        FocusOn(window, kEdit);
    }
    ShowWindow(window, SW_SHOWNORMAL);
    SetForegroundWindow(window);
}

LRESULT CALLBACK ProfileWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    NavigateWith(window);
    switch (message) {
    case WM_CREATE: return OnCreate(window);
    case WM_COMMAND:
        if (Dispatch(kCommands, window, w))
            return 0;
        break;
    case WM_CLOSE: OnCancel(window); return 0;
    case WM_HELP: OpenHelp(window, L"powercalculations.htm"); return TRUE;
    default: break;
    }
    return DefaultAnswer(window, message, w, l);
}

} // namespace voltaro
