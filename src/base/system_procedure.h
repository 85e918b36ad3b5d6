#pragma once

#include "base/windows_api.h"

namespace voltaro {

[[nodiscard]] FARPROC SystemProcedureAddress(const wchar_t* library, const char* name);

// A procedure of a library of the system folder, which is loaded at the first use and stays; null where the system has
// none. For libraries that the loader, as with imports, would look for beside the program first, and for procedures
// that not every Windows has.
template <class Procedure>
[[nodiscard]] Procedure* SystemProcedure(const wchar_t* library, const char* name)
{
    // Compilers tell of a direct cast between types of functions; there is no other way from one to the other.
    // NOLINTNEXTLINE(bugprone-casting-through-void)
    return reinterpret_cast<Procedure*>(reinterpret_cast<void*>(SystemProcedureAddress(library, name)));
}

} // namespace voltaro
