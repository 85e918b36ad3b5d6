// The "Actions" page of the job editor: what the job does to the machine.
#include "scheduler/job_actions_page.h"

#include "console/agent_records.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "scheduler/job_controls.h"
#include "ui/combo_box.h"
#include "ui/commands.h"
#include "ui/theme.h"
#include "ui/window_class.h"

#include <algorithm>
#include <iterator>

namespace voltaro {
namespace {

enum Id : int { kWakeUp = 101, kApplyScheme, kScheme, kPowerOff, kPowerOffType, kIdleness, kSensor };

// clang-format off
constexpr Control kControls[] = {
    // kind            id             text                                      x    y    w    h
    {Kind::GroupBox,    kNoId,         L"General Actions",                       8,   2, 700, 168},
    {Kind::CheckBox,    kWakeUp,       L"Wake Up from Standby",                 24,  24, 230,  22},
    {Kind::CheckBox,    kApplyScheme,  L"Select Power Scheme",                  24,  52, 230,  22},
    {Kind::SortedCombo, kScheme,       L"",                                    262,  51, 300, 180, kPlain, L"Power scheme"},
    {Kind::CheckBox,    kPowerOff,     L"Enable Power Off **",                  24,  81, 230,  22},
    {Kind::Combo,       kPowerOffType, L"",                                    262,  80, 150, 180, kPlain, L"Kind of power off"},
    {Kind::Label,       kNoId,         L"Upon Idleness Of :",                   42, 113, 212,  18},
    {Kind::Combo,       kIdleness,     L"",                                    262, 109, 150, 240},
    {Kind::CheckBox,    kSensor,       L"Enable Application Sensor Policy ",    42, 139, 300,  22},
    {Kind::Label,       kNoId,         L"**  Power Off option will be tried after specified idleness duration, in case the system is not idle at the scheduled time", 10, 177, 700, 18},
    {Kind::Label,       kNoId,         L"and also this condition is applicable only on systems where snooze settings is not set.", 10, 196, 700, 18},
};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 717, 236));

constexpr int kPowerOffFields[] = {kPowerOffType, kIdleness, kSensor};

std::int32_t storedIdleness = 0; // minutes; survives as long as the entry that shows it stays selected

HWND Page()
{
    return WindowOf(WindowId::JobActions);
}

void EnableFields(HWND page)
{
    const bool schemes = ComboBox_GetCount(ControlOf(page, kScheme)) > 0;
    Enable(page, kApplyScheme, schemes);
    Enable(page, kScheme, schemes && IsChecked(page, kApplyScheme));
    Enable(page, kPowerOffFields, IsChecked(page, kPowerOff));
}

constexpr Command kCommands[] = {{kApplyScheme, EnableFields}, {kPowerOff, EnableFields}};

constexpr WindowTables kTables = {kControls, kCommands, nullptr};

} // namespace

void ShowActions(const ScheduledJob& job)
{
    const HWND page = Page();
    SetChecked(page, kWakeUp, job.powerOn);
    SetChecked(page, kApplyScheme, job.applyScheme);
    const std::wstring_view current = agentRecords.currentScheme.powerScheme;
    ShowAmong(page, kScheme, agentRecords.schemes, job.applyScheme ? std::wstring_view(job.schemeName) : current);
    SetChecked(page, kPowerOff, job.powerOff);
    const std::vector<std::wstring> types(std::begin(kPowerOffTypes), std::end(kPowerOffTypes));
    ShowAmong(page, kPowerOffType, types, job.powerOffType);
    storedIdleness = job.powerOff ? job.idleMinutes : kIdlenessChoices[0].number;
    ShowNumber(page, kIdleness, kIdlenessChoices, storedIdleness);
    SetChecked(page, kSensor, job.useAppSensor);
    EnableFields(page);
}

void CollectActions(ScheduledJob& job)
{
    const HWND page = Page();
    job.powerOn = IsChecked(page, kWakeUp);
    job.applyScheme = IsChecked(page, kApplyScheme);
    job.schemeName = job.applyScheme ? SelectedText(page, kScheme) : std::wstring();
    job.powerOff = IsChecked(page, kPowerOff);
    job.powerOffType = job.powerOff ? SelectedText(page, kPowerOffType) : std::wstring();
    const auto selected = static_cast<std::size_t>(SelectedIndex(page, kIdleness));
    job.idleMinutes = job.powerOff ? ChosenNumber(kIdlenessChoices, selected, storedIdleness) : 0;
    job.useAppSensor = job.powerOff && IsChecked(page, kSensor);
}

LRESULT CALLBACK JobActionsPageProc(HWND page, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, page, message, w, l);
}

} // namespace voltaro
