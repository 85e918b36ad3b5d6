#pragma once

#include "base/windows_api.h"

#include <string>

namespace voltaro {

// The window's controls.
enum PolicyWindowControl : int {
    kPolicyName = 4201, // of a policy that exists
    kNewPolicyName,
    kRuleList,
    kAddRule,
    kModifyRule,
    kDeleteRule,
    kSavePolicy,
};

// The window's messages.
LRESULT CALLBACK PolicyWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Opens the window over the scheme editor: for a new policy, or for one that is read from the agent first. For a policy
// that cannot be read a box says so instead.
void OpenNewPolicy();
void OpenPolicy(const std::wstring& name);

} // namespace voltaro
