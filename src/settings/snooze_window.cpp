// Snooze settings: the warnings before a power-off and how long the user may put it off. Opened from the main menu.
#include "settings/snooze_window.h"

#include "console/windows.h"
#include "settings/record_window.h"
#include "settings/settings_rules.h"

namespace voltaro {
namespace {

enum Id : int { kIdleAlert = 101, kIdleMinutes, kSchedulerAlert, kSchedulerMinutes, kSnoozeMinutes, kChange, kCancel };

// The labels keep their padding blanks.
// clang-format off
constexpr Control kControls[] = {
    {Kind::GroupBox,    kNoId,             L"",                                                                     12,   4, 450, 132},
    {Kind::CheckBox,    kIdleAlert,        L"Enable notification alert for Power OFFs done upon idle :",            24,  20, 430,  22},
    {Kind::Label,       kNoId,             L"(This time out is for power off's that happen when system is idle for", 24,  48, 430,  18},
    {Kind::Label,       kNoId,             L"predefined duration of idleness.)",                                    24,  66, 430,  18},
    {Kind::Label,       kNoId,             L"Notification Alert Time :",                                            24, 101, 180,  18},
    {Kind::Combo,       kIdleMinutes,      L"",                                                                    206,  97, 110, 150},
    {Kind::GroupBox,    kNoId,             L"",                                                                     12, 142, 450, 202},
    {Kind::CheckBox,    kSchedulerAlert,   L"Enable snooze alert for Scheduled Power OFFs :",                       24, 158, 430,  22},
    {Kind::Label,       kNoId,             L"(This time out is for power off's that are scheduled to happen on the system.)", 24, 186, 430, 36},
    {Kind::Label,       kNoId,             L"Snooze Alert Time       :",                                            24, 237, 180,  18},
    {Kind::Combo,       kSchedulerMinutes, L"",                                                                    206, 233, 110, 150},
    {Kind::Label,       kNoId,             L"(On alert, user can snooze the power off activity, for configured duration.)", 24, 273, 430, 18},
    {Kind::Label,       kNoId,             L"Snooze Duration         :",                                            24, 308, 180,  18},
    {Kind::Combo,       kSnoozeMinutes,    L"",                                                                    206, 304, 110, 150},
    {Kind::Label,       kNoId,             L"Note : User will get an alert message, for the 'alert time' minutes",   24, 354, 430,  18},
    {Kind::Label,       kNoId,             L"before powering off the system.",                                      24, 372, 430,  18},
    {Kind::DefaultPush, kChange,           L"Change",                                                              284, 402,  85,  25, kDisabled},
    {Kind::Push,        kCancel,           L"Cancel",                                                              377, 402,  85,  25},
};

constexpr Binding<SnoozeSettings> kBindings[] = {
    {kIdleAlert,        Shown::YesNo,  &SnoozeSettings::idleAlert},
    {kSchedulerAlert,   Shown::YesNo,  &SnoozeSettings::schedulerAlert},
    {kIdleMinutes,      Shown::List,  &SnoozeSettings::idleAlertMinutes, kNotificationTimes},
    {kSchedulerMinutes, Shown::List,  &SnoozeSettings::schedulerAlertMinutes, kSnoozeAlertTimes},
    {kSnoozeMinutes,    Shown::List,  &SnoozeSettings::snoozeMinutes, kSnoozeDurations},
};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 474, 441));

SnoozeSettings snooze;

void EnableLists(HWND window)
{
    const bool scheduler = IsChecked(window, kSchedulerAlert);
    Enable(window, kIdleMinutes, IsChecked(window, kIdleAlert));
    Enable(window, kSchedulerMinutes, scheduler);
    Enable(window, kSnoozeMinutes, scheduler);
}

constexpr RecordForm<SnoozeSettings> kForm = {
    .read = Operation::GetSnoozeSettings,
    .apply = Operation::ApplySnoozeSettings,
    .record = &snooze,
    .bindings = kBindings,
    .applyButton = kChange,
    .applied = {L"Snooze Settings", L"Snooze settings have been set successfully.", BoxIcon::Information},
    .failed = {L"Error", L"Unable to Set"},
    .complete = CompleteSnoozeSettings,
    .enable = EnableLists,
};

constexpr Command kCommands[] = {
    {kIdleAlert, EnableLists},
    {kSchedulerAlert, EnableLists},
    {kChange, ApplyRecord<&kForm>},
    {kCancel, HideWindow},
    {kRefreshKey, RefreshRecordByKey<&kForm>},
    {IDOK, ApplyRecord<&kForm>},
    {IDCANCEL, HideWindow},
};

void FillLists(HWND window)
{
    ShowFields(window, kBindings, SnoozeSettings());
    EnableLists(window);
}

constexpr WindowTables kTables = {kControls, kCommands, L"snooze.htm", FillLists};

} // namespace

LRESULT CALLBACK SnoozeWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

void OpenSnoozeWindow(HWND)
{
    OpenRecord<&kForm>(WindowOf(WindowId::Snooze));
}

} // namespace voltaro
