#pragma once

#include "base/text_rules.h"

#include <span>
#include <string>
#include <string_view>

namespace voltaro {

inline constexpr std::size_t kMaxNameLength = 32; // of a scheme or policy name, in units

// Each check returns the refusal of the first rule that fails, or null. Show it with RefusalText(*refusal, name). Names
// are compared without regard to case.

// On every change of the name edit of a new scheme or policy, typed or pasted.
[[nodiscard]] const Refusal* CheckTypedSchemeName(std::wstring_view name);
[[nodiscard]] const Refusal* CheckTypedPolicyName(std::wstring_view name);

// On "Save" of a new scheme or policy.
[[nodiscard]] const Refusal* CheckNewSchemeName(std::wstring_view name, std::span<const std::wstring> schemes);
[[nodiscard]] const Refusal* CheckNewPolicyName(std::wstring_view name, std::span<const std::wstring> policies);

// On "Save" of the rule dialog, before the name is looked for among the other rules (CheckRuleName).
[[nodiscard]] const Refusal* CheckExecutableName(std::wstring_view name);

} // namespace voltaro
