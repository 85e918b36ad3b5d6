#pragma once

#include "link/members.h"

#include <cstddef>
#include <cstdint>

namespace voltaro {

// Everything the console can ask of the agent. Where one name is sent through two members there are two rows.
enum class Operation : std::uint8_t {
    GetSystemStatus,
    GetSystemDetails,
    GetBatteryInfo,
    GetActivationStatus,
    GetVoltaroInfo,
    GetLicenseInfo,
    ActivateLicense,
    GetPatchDetails,
    CheckForUpdates,
    GetPowerSchemes,
    GetPolicies,
    GetCurrentPowerSettings,
    QueryPowerScheme,
    ApplyPowerScheme,
    ApplyPowerSettings,
    CreateScheme,
    DeleteScheme,
    QueryPolicy,
    SetPolicySettings,
    CreatePolicy,
    DeletePolicy,
    GetHostSettings,
    ApplyHostSettings,
    GetProxySettings,
    ApplyProxySettings,
    GetSnoozeSettings,
    ApplySnoozeSettings,
    GetDeviceSettings,
    ApplyDeviceSettings,
    GetCurrentConsumption,
    GetManualConsumption,
    GetAutoConsumption,
    ApplyConsumption,
    GetSchedulerSettings,
    ApplySchedulerSettings,
    GetEvents,
    GetSavingsTillDate,
    Pause,
    Resume,
    PauseStatus,
    Standby,
    Hibernate,
    Shutdown,
    Restart,
    LogOff,
    LockScreen,
    GoOnWithAction, // tells the agent to go on with a pending quick action
    DropAction,     // tells it to drop it
    Count,
};

// One operation. `name` as the agent spells it; `requestUnits`: the size of its request buffer in UTF-16 units, NUL
// included. The texts of a `secret` request are wiped from memory after the exchange.
struct OperationRow {
    Operation operation;
    const wchar_t* name;
    Member member;
    std::size_t requestUnits;
    bool secret = false;
};

[[nodiscard]] const OperationRow& RowOf(Operation operation);

} // namespace voltaro
