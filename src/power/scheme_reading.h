#pragma once

#include "console/agent_state.h"

#include <span>

namespace voltaro {

// What the scheme editor reads of the agent's state, in this order: on opening and refreshing, after its changes.
using Reader = bool (*)();
inline constexpr Reader kReload[] = {ReadPowerSchemes, ReadPolicies, ReadCurrentPowerSettings};
inline constexpr auto kAfterSaving = std::span(kReload).last<2>();
inline constexpr auto kAfterApplying = std::span(kReload).last<1>();

// Reads in order until a reader finds the agent gone, which is reported; false then.
bool ReadInOrder(std::span<const Reader> readers);

// Whether the answer to the last request for the current settings could be read. Read in the background, the request
// is announced first.
void AnnounceCurrentRead();
[[nodiscard]] bool CurrentWasRead();

} // namespace voltaro
