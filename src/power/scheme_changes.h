#pragma once

#include "base/windows_api.h"
#include "link/records.h"

#include <string>

namespace voltaro {

// What the scheme editor asks the agent to change. Each tells the user, in boxes over `editor`, what stands against it.
// True when the state must be read again.

// Makes a scheme the active one.
[[nodiscard]] bool ApplyScheme(HWND editor, const std::wstring& scheme);

// Stores settings into the scheme that they name, or as a new scheme.
[[nodiscard]] bool SaveScheme(HWND editor, const PowerSchemeSettings& settings);
[[nodiscard]] bool CreateScheme(HWND editor, const PowerSchemeSettings& settings);

// Asks first; the active scheme is not deleted.
[[nodiscard]] bool DeleteScheme(HWND editor, const std::wstring& scheme);

} // namespace voltaro
