#pragma once

#include "console/connection_state.h"
#include "link/replies.h"
#include "link/system_details.h"

#include <string>
#include <vector>

namespace voltaro {

// What the agent said last, as far as more than one folder shows it. Written on the user-interface thread alone:
// workers hand over what they read (console/ui_calls.h).
struct AgentRecords {
    SystemDetails details;
    BatteryInfo battery;
    SharedFlag noBattery; // the machine has none; the status poller asks
    std::vector<std::wstring> schemes;
    std::vector<std::wstring> policies;
    PowerSchemeSettings currentScheme;
    FieldText activationStatus;
};
inline AgentRecords agentRecords;

} // namespace voltaro
