#pragma once

#include "base/installation.h"
#include "base/windows_api.h"
#include "link/replies.h"
#include "link/system_details.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

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

// A flag that windows and workers share: a single byte, stored and read whole. A worker may act on it one cycle late.
class SharedFlag {
public:
    SharedFlag() = default;
    operator bool() const { return m_value.load(std::memory_order_relaxed) != 0; }
    SharedFlag& operator=(bool value)
    {
        m_value.store(value ? 1 : 0, std::memory_order_relaxed);
        return *this;
    }
    // Clears the flag; true for the one caller that found it set.
    bool TestAndClear() { return m_value.exchange(0) != 0; }

private:
    std::atomic<std::uint8_t> m_value{0};
};

// The state of the process. The records are written on the user-interface thread alone: workers hand over what they
// read (console/ui_calls.h).
struct ConsoleState {
    std::array<HWND, static_cast<std::size_t>(WindowId::Count)> windows{};

    InstallDirectory installDirectory{};
    FixedText<512> binDirectory;   // 1,024 bytes
    FixedText<100> versionCaption; // for the about and update windows
    FixedText<100> trayTooltip;

    SharedFlag connected;          // a complete load has run and nothing was lost since
    SharedFlag trayRestoreAllowed; // set for good by the first complete load
    SharedFlag detailsAnswered;    // the agent answered, the load may not have finished
    SharedFlag notPaused;
    SharedFlag noBattery; // the agent said that the machine has none
    SharedFlag updateBusy;
    std::atomic<std::int32_t> busyAnimation{0};

    SystemDetails details;
    BatteryInfo battery;
    std::vector<std::wstring> schemes;
    std::vector<std::wstring> policies;
    PowerSchemeSettings currentScheme;
    HostSettings host;
    ProxySettings proxy;
    PowerConsumptionData consumption;
    FieldText activationStatus;
};
inline ConsoleState state;

[[nodiscard]] inline HWND WindowOf(WindowId id)
{
    return state.windows[static_cast<std::size_t>(id)];
}

} // namespace voltaro
