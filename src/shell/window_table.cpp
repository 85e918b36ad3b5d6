#include "shell/window_table.h"

#include "base/error_log.h"
#include "power/policy_window.h"
#include "power/processor_strip.h"
#include "power/rule_window.h"
#include "power/scheme_pages.h"
#include "power/scheme_window.h"
#include "resources/resource_ids.h"
#include "savings/graph_view.h"
#include "savings/profile_window.h"
#include "savings/report_pages.h"
#include "savings/savings_window.h"
#include "scheduler/job_actions_page.h"
#include "scheduler/job_editor_window.h"
#include "scheduler/job_list_window.h"
#include "scheduler/job_tasks_page.h"
#include "settings/access_control_window.h"
#include "settings/battery_window.h"
#include "settings/device_control_window.h"
#include "settings/proxy_window.h"
#include "settings/snooze_window.h"
#include "settings/system_info_pages.h"
#include "settings/system_info_window.h"
#include "shell/activation_window.h"
#include "shell/main_window.h"
#include "shell/update_window.h"
#include "ui/boxes.h"
#include "ui/window_class.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace voltaro {
namespace {

struct ClassRow {
    const wchar_t* name;
    int menu; // resource, 0 for none
    WNDPROC procedure;
    const wchar_t* registrationFailure;
};

// clang-format off
constexpr ClassRow kClasses[] = {
    {L"VLTConsoleMainWClass",   0,                  MainWindowProc,  L"Main Window Registration Failed"},
    {L"SysInfoWClass",          IDM_SYSTEM_INFO,    SystemInfoWindowProc, L"SystemInfo Window Registration Failed"},
    {L"AdvancedWClass",         0,                  SchemeWindowProc, L"Advanced Window Registration Failed"},
    {L"AdvDisBrtClass",         0,                  SchemeDisplayProc, L"AdvDispBrtTab Window Registration Failed"},
    {L"AdvPowOptClass",         0,                  SchemePowerOffProc, L"AdvPowOptTab Window Registration Failed"},
    {L"AdvProSpdClass",         0,                  SchemeProcessorProc, L"AdvProSpdTab Window Registration Failed"},
    {L"AdvAppCtrlClass",        0,                  PolicyWindowProc, L"AdvAppCtrl Window Registration Failed"},
    {L"AdvAppCtrlSetClass",     IDM_RULE,           RuleWindowProc, L"AdvAppCtrlSettings Window Registration Failed"},
    {L"SchedulerMClass",        0,                  JobListWindowProc, L"Scheduler Window Registration Failed"},
    {L"SchedulerJobClass",      0,                  JobEditorWindowProc, L"Scheduler Job window Registration Failed"},
    {L"SchdJobTab1Class",       0,                  JobActionsPageProc, L"Scheduler Job Tab1 Window Registration Failed"},
    {L"SchdJobTab2Class",       0,                  JobTasksPageProc, L"Scheduler Job Tab2 Window Registration Failed"},
    {L"DeviceControlWClass",    0,                  DeviceControlWindowProc, L"Voltaro System Security Window Registration Failed"},
    {L"ConfigWClass",           IDM_ACCESS_CONTROL, AccessControlWindowProc, L"Config Window Registration Failed"},
    {L"BatteryWClass",          IDM_BATTERY,        BatteryWindowProc, L"Battery Window Registration Failed"},
    {L"SysInfoCPUClass",        0,                  SystemInfoPageProc<WindowId::SystemInfoCpu>, L"SysinfoTabCPU Window Registration Failed"},
    {L"SysInfoPowerClass",      0,                  SystemInfoPageProc<WindowId::SystemInfoPower>, L"SysinfoTabPower Window Registration Failed"},
    {L"SysInfoOSClass",         0,                  SystemInfoPageProc<WindowId::SystemInfoOs>, L"SysinfoTabOS Window Registration Failed"},
    {L"SysInfoNetworkClass",    0,                  SystemInfoPageProc<WindowId::SystemInfoNetwork>, L"SysinfoTabNetwork Window Registration Failed"},
    {L"SysInfoDiskInfoClass",   0,                  SystemInfoPageProc<WindowId::SystemInfoDisks>, L"SysinfoTabDiskInfo Window Registration Failed"},
    {L"EventGraphClass",        0,                  SavingsWindowProc, L"Event Graph Window Registration Failed"},
    {L"EveGraphTab0Class",      0,                  TotalsPageProc, L"EveGraphTab0 Window Registration Failed"},
    {L"EveGraphTab1Class",      0,                  EstimatesPageProc, L"EveGraphTab1 Window Registration Failed"},
    {L"EveGraphTab2Class",      0,                  GraphPageProc, L"EveGraphTab2 Window Registration Failed"},
    {L"EveGraphSettingsWClass", 0,                  ProfileWindowProc, L"Event Graph Settings Window Registration Failed"},
    {L"ActivateWClass",         0,                  ActivationWindowProc, L"Voltaro Activation Window Registration Failed"},
    {L"CheckUpdateWClass",      0,                  UpdateWindowProc, L"Voltaro Update Check Window Registration Failed"},
    {L"ProxySetWClass",         IDM_PROXY,          ProxyWindowProc, L"Voltaro Proxy Settings Window Registration Failed"},
    {L"PSnoozeSetWClass",       0,                  SnoozeWindowProc, L"Voltaro Snooze Settings Window Registration Failed"},
};

constexpr DWORD kControlParent = WS_EX_CONTROLPARENT;
constexpr DWORD kTitled = WS_CAPTION | WS_SYSMENU;
constexpr DWORD kPage = WS_CHILD | WS_VISIBLE;
constexpr int kDefault = CW_USEDEFAULT;
constexpr WindowId kNone = WindowId::Count;

constexpr WindowRow kWindows[] = {
    {WindowId::Main,              L"VLTConsoleMainWClass",   L"Voltaro Console - Standard Edition", WS_EX_WINDOWEDGE,                 kTitled | WS_MINIMIZEBOX, kDefault, kDefault, 510, 565, kNone,                L"Main Window Creation Failed"},
    {WindowId::SystemInfo,        L"SysInfoWClass",          L"System Information",                 kControlParent,                   kTitled,                  kDefault, kDefault, 660, 505, kNone,                L"SysInfo Window Creation Failed"},
    {WindowId::Scheme,            L"AdvancedWClass",         L"Power Scheme Settings",              kControlParent,                   kTitled,                  kDefault, kDefault, 565, 590, kNone,                L"Advanced Window Creation Failed"},
    {WindowId::SchemeDisplay,     L"AdvDisBrtClass",         L"Display Brt Tab",                    kControlParent,                   kPage,                    13,       120,      532, 365, WindowId::Scheme,     L"Advanced Display Brightness Window Creation Failed"},
    {WindowId::SchemePowerOff,    L"AdvPowOptClass",         L"Pwr Opts Tab",                       kControlParent,                   kPage,                    13,       120,      532, 365, WindowId::Scheme,     L"Advanced Power Options Window Creation Failed"},
    {WindowId::SchemeProcessor,   L"AdvProSpdClass",         L"Processor Speed Tab",                kControlParent,                   kPage,                    13,       120,      532, 365, WindowId::Scheme,     L"Advanced Processor Speed Window Creation Failed"},
    {WindowId::Policy,            L"AdvAppCtrlClass",        L"Application Sensor Policy Settings", kControlParent,                   kTitled,                  15,       80,       750, 520, WindowId::Scheme,     L"Application Sensor Policy Settings Window Creation Failed"},
    {WindowId::Rule,              L"AdvAppCtrlSetClass",     L"Application Control Settings",       kControlParent,                   kTitled,                  kDefault, kDefault, 470, 485, WindowId::Policy,     L"AdvApCtrlSet Window Creation Failed"},
    {WindowId::JobList,           L"SchedulerMClass",        L"Job Scheduler",                      kControlParent | WS_EX_APPWINDOW, kTitled,                  kDefault, kDefault, 750, 550, kNone,                L"Job Scheduler Window Creation Failed"},
    {WindowId::JobEditor,         L"SchedulerJobClass",      L"Job Settings",                       WS_EX_APPWINDOW,                  kTitled,                  kDefault, kDefault, 750, 585, WindowId::JobList,    L"Scheduler Job Window Creation Failed"},
    {WindowId::JobActions,        L"SchdJobTab1Class",       L"Scheduler Job Tab1",                 kControlParent,                   kPage,                    13,       275,      717, 236, WindowId::JobEditor,  L"Scheduler Job Tab1 Window Creation Failed"},
    {WindowId::JobTasks,          L"SchdJobTab2Class",       L"Scheduler Job Tab2",                 kControlParent,                   kPage,                    13,       275,      717, 236, WindowId::JobEditor,  L"Scheduler Job Tab2 Window Creation Failed"},
    {WindowId::DeviceControl,     L"DeviceControlWClass",    L"System Security Settings",           kControlParent,                   kTitled,                  kDefault, kDefault, 400, 490, kNone,                L"System Security Setting Window Creation Failed"},
    {WindowId::AccessControl,     L"ConfigWClass",           L"Communication Ports",                kControlParent,                   kTitled,                  kDefault, kDefault, 340, 210, kNone,                L"Config Window Creation Failed"},
    {WindowId::Snooze,            L"PSnoozeSetWClass",       L"Snooze Settings",                    kControlParent,                   kTitled,                  kDefault, kDefault, 480, 470, kNone,                L"Snooze Settings Window Creation Failed"},
    {WindowId::Proxy,             L"ProxySetWClass",         L"Proxy Connection Settings",          kControlParent,                   kTitled,                  kDefault, kDefault, 400, 455, kNone,                L"Proxy Settings Window Creation Failed"},
    {WindowId::Battery,           L"BatteryWClass",          L"Battery Information",                kControlParent,                   kTitled,                  kDefault, kDefault, 525, 345, kNone,                L"Battery Window Creation Failed"},
    {WindowId::SystemInfoCpu,     L"SysInfoCPUClass",        L"CPU Tab",                            kControlParent,                   kPage,                    5,        25,       645, 380, WindowId::SystemInfo, L"SysInfo TAB CPU Window Creation Failed"},
    {WindowId::SystemInfoPower,   L"SysInfoPowerClass",      L"Power Tab",                          kControlParent,                   kPage,                    5,        25,       645, 380, WindowId::SystemInfo, L"SysInfo TAB Power Window Creation Failed"},
    {WindowId::SystemInfoOs,      L"SysInfoOSClass",         L"OS Tab",                             kControlParent,                   kPage,                    5,        25,       645, 380, WindowId::SystemInfo, L"SysInfo TAB OS Window Creation Failed"},
    {WindowId::SystemInfoNetwork, L"SysInfoNetworkClass",    L"Network Tab",                        kControlParent,                   kPage,                    5,        25,       645, 380, WindowId::SystemInfo, L"SysInfo TAB Network Window Creation Failed"},
    {WindowId::SystemInfoDisks,   L"SysInfoDiskInfoClass",   L"DiskInfo Tab",                       kControlParent,                   kPage,                    5,        25,       645, 380, WindowId::SystemInfo, L"SysInfo TAB DiskInfo Window Creation Failed"},
    {WindowId::Savings,           L"EventGraphClass",        L"Power Savings Report",               kControlParent,                   kTitled | WS_MINIMIZEBOX, kDefault, kDefault, 800, 570, kNone,                L"Events Graphs Window Creation Failed"},
    {WindowId::SavingsTotals,     L"EveGraphTab0Class",      L"Event Graph Tab0",                   kControlParent,                   kPage,                    5,        24,       670, 497, WindowId::Savings,    L"Event Graph Tab0 Window Creation Failed"},
    {WindowId::SavingsEstimates,  L"EveGraphTab1Class",      L"Event Graph Tab1",                   kControlParent,                   kPage,                    5,        24,       670, 497, WindowId::Savings,    L"Event Graph Tab1 Window Creation Failed"},
    {WindowId::SavingsGraph,      L"EveGraphTab2Class",      L"Event Graph Tab2",                   kControlParent,                   kPage,                    5,        24,       670, 497, WindowId::Savings,    L"Event Graph Tab2 Window Creation Failed"},
    {WindowId::Profile,           L"EveGraphSettingsWClass", L"Power Consumption Settings",         kControlParent,                   kTitled,                  kDefault, kDefault, 500, 550, kNone,                L"Event Graph Settings Window Creation Failed"},
    {WindowId::Activation,        L"ActivateWClass",         L"Voltaro Activation Window",          kControlParent,                   kTitled,                  kDefault, kDefault, 580, 470, kNone,                L"Voltaro Activation Window Creation Failed"},
    {WindowId::Update,            L"CheckUpdateWClass",      L"Voltaro Update",                     kControlParent,                   kTitled,                  kDefault, kDefault, 580, 380, kNone,                L"Voltaro Check Update Window Creation Failed"},
};
// clang-format on
static_assert(std::size(kClasses) == kWindowCount && std::size(kWindows) == kWindowCount);

consteval bool EveryWindowStandsOnceAndInOrder()
{
    for (std::size_t i = 0; i < kWindowCount; ++i) {
        if (kWindows[i].id != static_cast<WindowId>(i))
            return false;
    }
    return true;
}
static_assert(EveryWindowStandsOnceAndInOrder());

// Each is created with its owner's handle.
consteval bool OwnersStandBeforeTheirWindows()
{
    for (const WindowRow& row : kWindows) {
        if (row.owner != kNone && row.owner >= row.id)
            return false;
    }
    return true;
}
static_assert(OwnersStandBeforeTheirWindows());

consteval bool EveryClassIsRegisteredOnce()
{
    for (const WindowRow& row : kWindows) {
        int rows = 0;
        for (const ClassRow& other : kClasses)
            rows += std::wstring_view(other.name) == row.className ? 1 : 0;
        if (rows != 1)
            return false;
    }
    return true;
}
static_assert(EveryClassIsRegisteredOnce());

void ReportFailure(const wchar_t* text)
{
    ShowMessage(nullptr, {L"Error", text});
}

// The places of the controls assume a frame of 3 pixels, a caption of 23 and a menu of 20. Where the user has
// larger ones the window grows by the difference, or its lower controls would be cut.
void KeepClientSize(HWND window, const WindowRow& row)
{
    constexpr int kFrames = 6;
    constexpr int kCaption = 23;
    constexpr int kMenu = 20;
    RECT client;
    GetClientRect(window, &client);
    const LONG missingWidth = row.width - kFrames - client.right;
    const LONG missingHeight
        = row.height - kFrames - kCaption - (GetMenu(window) != nullptr ? kMenu : 0) - client.bottom;
    if (missingWidth > 0 || missingHeight > 0)
        SetWindowPos(window, nullptr, 0, 0, row.width + static_cast<int>(std::max(missingWidth, 0L)),
            row.height + static_cast<int>(std::max(missingHeight, 0L)), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace

bool RegisterClasses()
{
    for (const ClassRow& row : kClasses) {
        if (!RegisterWindow(row.name, row.procedure, row.menu)) {
            ReportFailure(row.registrationFailure);
            return false;
        }
    }
    return true;
}

bool CreateWindows()
{
    for (const WindowRow& row : kWindows) {
        const HWND owner = row.owner == kNone ? nullptr : WindowOf(row.owner);
        HWND& window = windowHandles[static_cast<std::size_t>(row.id)];
        window = Checked(CreateWindowExW(row.extendedStyle, row.className, row.title, row.style, row.x, row.y,
                             row.width, row.height, owner, nullptr, Instance(), nullptr),
            "CreateWindowExW");
        if (!window) {
            ReportFailure(row.creationFailure);
            return false;
        }
        if ((row.style & WS_CHILD) == 0)
            KeepClientSize(window, row);
    }
    return true;
}

const WindowRow& WindowRowOf(std::size_t position)
{
    return kWindows[position];
}

} // namespace voltaro
