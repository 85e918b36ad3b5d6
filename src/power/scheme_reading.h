#pragma once

#include "console/agent_state.h"

#include <span>

namespace voltaro {

// What the scheme editor reads of the agent's state, in this order: on opening and refreshing, after its changes. The
// current settings are the last.
inline constexpr Reader kReload[] = {ReadPowerSchemes, ReadPolicies, ReadCurrentPowerSettings};
inline constexpr auto kAfterSaving = std::span(kReload).last<2>();
inline constexpr auto kAfterApplying = std::span(kReload).last<1>();

} // namespace voltaro
