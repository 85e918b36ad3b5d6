#pragma once

#include "base/windows_api.h"

#include <array>
#include <cstdint>

namespace voltaro {

// Every window of the program; created once at start-up, alive until exit.
enum class WindowId : std::uint8_t {
    Main,
    SystemInfo,
    Scheme,
    SchemeDisplay,
    SchemePowerOff,
    SchemeProcessor,
    Policy,
    Rule,
    JobList,
    JobEditor,
    JobActions,
    JobTasks,
    DeviceControl,
    AccessControl,
    Snooze,
    Proxy,
    Battery,
    SystemInfoCpu,
    SystemInfoPower,
    SystemInfoOs,
    SystemInfoNetwork,
    SystemInfoDisks,
    Savings,
    SavingsTotals,
    SavingsEstimates,
    SavingsGraph,
    Profile,
    Activation,
    Update,
    Count,
};

inline std::array<HWND, static_cast<std::size_t>(WindowId::Count)> windowHandles{};

[[nodiscard]] inline HWND WindowOf(WindowId id)
{
    return windowHandles[static_cast<std::size_t>(id)];
}

} // namespace voltaro
