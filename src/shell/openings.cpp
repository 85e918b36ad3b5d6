#include "shell/openings.h"

#include "console/state.h"
#include "shell/activation_window.h"
#include "shell/main_commands.h"
#include "shell/update_window.h"

namespace voltaro {
namespace {

template <WindowId Id>
void ShowEmpty(HWND)
{
    ShowWindow(WindowOf(Id), SW_SHOW);
}

struct Opening {
    int command;
    void (*open)(HWND main);
};

// clang-format off
constexpr Opening kOpenings[] = {
    {kPowerScheme,   ShowEmpty<WindowId::Scheme>},
    {kPorts,         ShowEmpty<WindowId::AccessControl>},
    {kProxy,         ShowEmpty<WindowId::Proxy>},
    {kSecurity,      ShowEmpty<WindowId::DeviceControl>},
    {kJobScheduler,  ShowEmpty<WindowId::JobList>},
    {kSnooze,        ShowEmpty<WindowId::Snooze>},
    {kSystemInfo,    ShowEmpty<WindowId::SystemInfo>},
    {kBatteryInfo,   ShowEmpty<WindowId::Battery>},
    {kSavingsReport, ShowEmpty<WindowId::Savings>},
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
