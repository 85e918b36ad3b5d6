#pragma once

#include "base/windows_api.h"
#include "link/records.h"

#include <optional>
#include <span>

namespace voltaro {

// The dialog's controls.
enum RuleWindowControl : int {
    kRuleName = 4301, // of a new rule
    kRuleFile,
    kModifiedName,
    kRuleDescription,
    kFirstRuleCheck = 4311, // the check boxes follow each other
    kSaveRule = 4321,
};

// The dialog's messages.
LRESULT CALLBACK RuleWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Opens the dialog over the policy window, for a new rule or for the one at `place` of the rules, which must stay until
// it is closed. "Save" hands over the rule once it has passed the checks.
using AcceptedRule = void (*)(const ApplicationRule& rule, std::optional<std::size_t> place);
void OpenRuleWindow(std::span<const ApplicationRule> rules, std::optional<std::size_t> place, AcceptedRule accepted);

} // namespace voltaro
