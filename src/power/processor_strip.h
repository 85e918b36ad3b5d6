#pragma once

#include "base/windows_api.h"

#include <string_view>

namespace voltaro {

enum StripControl : int { kNewPolicy = 4151, kEditPolicy, kDeletePolicy };

LRESULT CALLBACK SchemeProcessorProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Refills the policy list from the state. What was selected stays so; a policy that is gone gives way to "(None)".
void ShowPolicies();
// The same, then selects that policy.
void ShowPolicies(std::wstring_view selected);

// Enables or greys the policy buttons; "Edit" and "Delete" need a policy.
void EnablePolicyButtons(bool enabled);

} // namespace voltaro
