#pragma once

#include "link/element.h"
#include "simulator/scenario.h"

namespace voltaro::simulator {

// `details` with the six sections that describe the machine: CPUInfo, OSInfo, PowerCapabilities, NetworkInfo with its
// adapters, PhysicalDiskInfo and LogicalDiskInfo with their disks. Names have at most 49 units, values 119. The large
// variant fills the rows of the last three sections (100, 100 and 500 with the separators).
[[nodiscard]] Element SystemDetails(const Scenario& scenario);

} // namespace voltaro::simulator
