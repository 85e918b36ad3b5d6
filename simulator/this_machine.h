#pragma once

#include "simulator/machine.h"

namespace voltaro::simulator {

// The battery, the system details and the name of the computer this program runs on, asked of the platform at every
// call. What it does not tell is left out.
[[nodiscard]] const LiveMachine& ThisMachine();

} // namespace voltaro::simulator
