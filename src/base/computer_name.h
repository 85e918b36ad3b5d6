#pragma once

#include <string>

namespace voltaro {

// The name of this machine on the network; empty when Windows does not tell it.
[[nodiscard]] std::wstring ComputerName();

} // namespace voltaro
