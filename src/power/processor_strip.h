#pragma once

#include "base/windows_api.h"

#include <string_view>

namespace voltaro {

// The strip's buttons; its lists are SchemeControls.
enum StripControl : int { kNewPolicy = 4151, kEditPolicy, kDeletePolicy };

// The strip's messages.
LRESULT CALLBACK SchemeProcessorProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Refills the policy list from the state and selects that policy. Without one, or when it is not in the list, what was
// selected stays so; a policy that is gone gives way to "(None)".
void ShowPolicies(std::wstring_view selected = {});

// Enables or greys the policy buttons; "Edit" and "Delete" need a policy.
void EnablePolicyButtons(bool enabled);

} // namespace voltaro
