#include "shell/openings.h"

#include "console/state.h"
#include "power/scheme_window.h"
#include "shell/main_commands.h"

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
    {kPowerScheme,   OpenSchemeWindow},
    {kPorts,         ShowEmpty<WindowId::AccessControl>},
    {kProxy,         ShowEmpty<WindowId::Proxy>},
    {kSecurity,      ShowEmpty<WindowId::DeviceControl>},
    {kJobScheduler,  ShowEmpty<WindowId::JobList>},
    {kSnooze,        ShowEmpty<WindowId::Snooze>},
    {kSystemInfo,    ShowEmpty<WindowId::SystemInfo>},
    {kBatteryInfo,   ShowEmpty<WindowId::Battery>},
    {kSavingsReport, ShowEmpty<WindowId::Savings>},
    {kUpdate,        ShowEmpty<WindowId::Update>},
    {kActivate,      ShowEmpty<WindowId::Activation>},
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
