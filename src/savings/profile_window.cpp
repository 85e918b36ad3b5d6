// The power consumption profile: what the agent has saved stands in the list, the fields below change it. Opened from
// the savings report.
#include "savings/profile_window.h"

#include "base/text.h"
#include "console/agent.h"
#include "console/change.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "savings/profile_form.h"
#include "savings/profile_record.h"
#include "savings/report_style.h"
#include "savings/saved_profile.h"
#include "savings/savings_window.h"
#include "ui/boxes.h"
#include "ui/list_view.h"

#include <optional>
#include <string>

namespace voltaro {
namespace {

constexpr const wchar_t* kSavedCaption = L"Power Consumption Details";
constexpr const wchar_t* kInbuiltNote = L"Monitor Power Consumption included in CPU Power Values .";

// clang-format off
constexpr Control kControls[] = {
    {Kind::GroupBox, kNoId,       kSavedCaption,                  8,   4, 478, 202},
    {Kind::ListView, kSaved,      L"Events Graph Settings List1", 18, 26, 458, 170, kPlain, kSavedCaption},
    {Kind::GroupBox, kNoId,       L"Monitor Power Consumption :", 8, 214, 478, 150},
    {Kind::Radio,    kInbuilt,    L"Inbuilt",                    20, 236,  90,  22, kGroup},
    {Kind::Radio,    kBranded,    L"Branded",                   126, 236,  90,  22},
    {Kind::Radio,    kOthers,     L"others",                    232, 236,  90,  22},
    {Kind::Label,    kNote,       kInbuiltNote,                  20, 264, 455,  18, kHidden},
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
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 494, 521));

constexpr const wchar_t* kRefusalCaption = L"Unable to Set";
constexpr Box kApplied
    = {L"Power Consumption Settings", L"Power consumption settings have been set successfully.", BoxIcon::Information};
constexpr Box kFailed = {L"Error", L"Unable to Set"};
constexpr Box kReadFailed = {L"Power Consumption Settings", L"Unable to read the power consumption settings."};

struct ProfileAnswer {
    bool answered; // else the agent is lost, which the user has been told
    std::optional<PowerConsumptionData> record;
};

ProfileAnswer AskForProfile(Operation operation)
{
    Reply reply = SendOrLose(Plain(operation));
    if (!reply.Answered())
        return {false, std::nullopt};
    return {true, reply.Read<PowerConsumptionData>()};
}

// Reads the saved profile and shows it. An answer without a record leaves the last one on the screen, which cannot be
// edited then: it may not be the agent's any more. False when the agent is lost.
bool ShowSaved(HWND window)
{
    const ProfileAnswer answer = AskForProfile(Operation::GetCurrentConsumption);
    if (!answer.answered)
        return false;
    savedProfile = answer.record.value_or(savedProfile);
    FillList(ControlOf(window, kSaved), ProfileRows(savedProfile));
    ShowEntry(window, {.read = savedProfile, .known = answer.record.has_value()});
    RecomputeSavings();
    return true;
}

// What the agent keeps under another operation. False when it has nothing or is lost; either is told.
bool FetchEntry(HWND window, Operation operation, bool manual)
{
    const auto [answered, record] = AskForProfile(operation);
    if (!answered)
        return false;
    if (record)
        ShowEntry(window, {.read = *record, .manual = manual, .editable = manual, .unsaved = true});
    else
        ShowMessage(window, kReadFailed);
    return record.has_value();
}

void OnManual(HWND window)
{
    if (FetchEntry(window, Operation::GetManualConsumption, true))
        FocusOnPowers(window);
}

void OnAuto(HWND window)
{
    FetchEntry(window, Operation::GetAutoConsumption, false);
}

void OnEdit(HWND window)
{
    EditEntry(window);
    FocusOnPowers(window);
}

void OnSave(HWND window)
{
    const std::optional<PowerConsumptionData> record = EnteredRecord(window);
    if (!record)
        return;
    if (SubmitChange(window, {kRefusalCaption, kFailed}, WithRecord(Operation::ApplyConsumption, *record))
        != ChangeResult::Done)
        return;
    ShowMessage(window, kApplied);
    static_cast<void>(ShowSaved(window));
}

void OnRefreshKey(HWND window)
{
    if (!IsEntryEdited(window) || AskQuestion(window, kDiscardChanges))
        static_cast<void>(ShowSaved(window));
}

constexpr Command kCommands[] = {
    {kInbuilt, OnKindWithoutSize},
    {kBranded, OnKindWithoutSize},
    {kOthers, OnKindWithSize},
    {kType, OnMonitorType, CBN_SELCHANGE},
    {kSize, OnMonitorSize, CBN_SELCHANGE},
    {kManual, OnManual},
    {kAuto, OnAuto},
    {kEdit, OnEdit},
    {kSave, OnSave},
    {kCancel, HideWindow},
    {kRefreshKey, OnRefreshKey},
    {IDOK, OnSave},
    {IDCANCEL, HideWindow},
};

void OnCreate(HWND window)
{
    PrepareReportList(ControlOf(window, kSaved), kColumns);
    PrepareProfileFields(window);
}

constexpr WindowTables kTables = {kControls, kCommands, L"powercalculations.htm", OnCreate};

} // namespace

void OpenProfileWindow(HWND)
{
    const HWND window = WindowOf(WindowId::Profile);
    if (!IsWindowVisible(window)) { // else it keeps what the user typed
        if (!ShowSaved(window))
            return;
        FocusOn(window, IsWindowEnabled(ControlOf(window, kEdit)) ? kEdit : kManual);
    }
    ShowWindow(window, SW_SHOWNORMAL);
    SetForegroundWindow(window);
}

LRESULT CALLBACK ProfileWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

} // namespace voltaro
