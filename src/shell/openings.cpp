#include "shell/openings.h"

#include "power/scheme_window.h"
#include "savings/savings_window.h"
#include "scheduler/job_list_window.h"
#include "settings/access_control_window.h"
#include "settings/battery_window.h"
#include "settings/device_control_window.h"
#include "settings/proxy_window.h"
#include "settings/snooze_window.h"
#include "settings/system_info_window.h"
#include "shell/activation_window.h"
#include "shell/main_commands.h"
#include "shell/update_window.h"

namespace voltaro {
namespace {

struct Opening {
    int command;
    void (*open)(HWND main);
};

// clang-format off
constexpr Opening kOpenings[] = {
    {kPowerScheme,   OpenSchemeWindow},
    {kPorts,         OpenAccessControlWindow},
    {kProxy,         OpenProxyWindow},
    {kSecurity,      OpenDeviceControlWindow},
    {kJobScheduler,  OpenJobListWindow},
    {kSnooze,        OpenSnoozeWindow},
    {kSystemInfo,    OpenSystemInfoWindow},
    {kBatteryInfo,   OpenBatteryWindow},
    {kSavingsReport, OpenSavingsWindow},
    {kUpdate,        StartUpdateCheck},
    {kActivate,      OpenActivationWindow},
};
// clang-format on

} // namespace

void OpenByCommand(HWND main, int command)
{
    for (const Opening& row : kOpenings) {
        if (row.command == command)
            return row.open(main);
    }
}

} // namespace voltaro
