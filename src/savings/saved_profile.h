#pragma once

#include "console/agent_state.h"
#include "link/records.h"

namespace voltaro {

// The power consumption profile as the agent holds it: what the figures are computed with. Blank before the first
// readable answer.
inline PowerConsumptionData savedProfile;
ReadResult ReadSavedProfile();

} // namespace voltaro
