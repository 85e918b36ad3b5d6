#pragma once

#include <array>
#include <cstddef>

namespace voltaro {

// The installation root as 8-bit text, NUL-terminated; by convention it ends with a path separator.
using InstallDirectory = std::array<char, 512>;

// Finds the installation directory. The machine-wide registry key wins over the environment variable where it exists,
// and the environment over the default user's key where it does not: installations
// rely on this order. False when nothing is found.
[[nodiscard]] bool ReadInstallPath(InstallDirectory& directory);

} // namespace voltaro
