#pragma once

#include "console/agent.h"
#include "console/state.h"

namespace voltaro {

// Reads of the agent's state that more than one window or worker makes. Each sends its request, and on an answer puts
// what it holds into the process-wide state, on the user-interface thread, whatever thread it was called on. An answer
// that cannot be read empties nothing. False only when the agent is lost; what to do then is the caller's.
bool ReadPowerSchemes(); // names, in the order received; also fills the main window's scheme list
bool ReadPolicies();
bool ReadCurrentPowerSettings(); // also selects the scheme in the main window's list
bool ReadBatteryInfo();          // shows the charge; repaints the main window when the status text changed
bool ReadHostSettings();
bool ReadProxySettings();
bool ReadCurrentConsumption();
bool ReadPatchDetails();

} // namespace voltaro
