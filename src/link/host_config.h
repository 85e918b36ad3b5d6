#pragma once

#include "link/host_config_text.h"

#include <string>

namespace voltaro {

// The agent's port. The compiled-in value only lasts until start-up has read the host configuration: without a readable
// port there it becomes 0, with no fall-back: a wrong file must show, not reach another program on that port.
inline int servicePort = 4916;

// Reads the agent's host configuration: the port and a second text, chosen by position. False when the installation
// directory could not be read; the reading then went on with an empty one. Every other failure is only logged and
// leaves both texts as they were.
[[nodiscard]] bool TcpPortGetter(HostConfigText& port, HostConfigText& second);

// The configuration file below an installation directory (8-bit, ending in a separator), cut to 256 units.
[[nodiscard]] std::wstring HostConfigPath(const char* installDirectory);

} // namespace voltaro
