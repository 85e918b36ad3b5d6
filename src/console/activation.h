#pragma once

#include "base/windows_api.h"
#include "console/agent_state.h"

#include <string_view>

namespace voltaro {

enum class License : std::uint8_t { Active, NotActivated, Expired };

// What a status word of the agent means: two words refuse, everything else is active.
[[nodiscard]] License LicenseOf(std::wstring_view status);

// Reads the activation status and shows it on the main window.
ReadResult ReadActivationStatus();

// The check before every apply, save, create and delete and before the savings report: asks the agent, and refuses with
// a box of that caption when the product is not active. False also when the agent is lost.
[[nodiscard]] bool CheckLicense(HWND owner, const wchar_t* caption);

// True when the answer to a change is a license refusal: the same box was shown and the status read again.
[[nodiscard]] bool IsLicenseRefusal(HWND owner, const wchar_t* caption, std::wstring_view status);

// "Localhost" for this machine, else the agent's host; how texts name it.
[[nodiscard]] std::wstring HostName();

} // namespace voltaro
