#pragma once

#include "simulator/machine.h"

namespace voltaro::simulator {

// Fills a fresh machine beyond every count of the contract, in answers that stay just within the console's buffers: 52
// rules, 12 jobs, 9 tasks, 30 battery rows, more than 200 schemes and policies.
void Crowd(MachineState& state);

// Gives a fresh machine names in every script, words that nobody knows, texts longer than any field, and records that
// break off.
void MakeOdd(MachineState& state);

} // namespace voltaro::simulator
