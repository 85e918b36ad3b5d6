#pragma once

#include "base/text_rules.h"
#include "link/records.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace voltaro {

// The columns of the rule list, left to right.
inline constexpr FieldText ApplicationRule::*kRuleColumns[] = {
    &ApplicationRule::applicationName,
    &ApplicationRule::description,
    &ApplicationRule::ruleStatus,
    &ApplicationRule::dimMonitor,
    &ApplicationRule::monitorOff,
    &ApplicationRule::lockScreen,
    &ApplicationRule::hardDisk,
    &ApplicationRule::logOff,
    &ApplicationRule::standby,
    &ApplicationRule::hibernate,
    &ApplicationRule::shutdown,
};
inline constexpr std::size_t kRuleColumnCount = std::size(kRuleColumns); // 11

// Each check returns a refusal, or null. Show it with RefusalText(*refusal, name).

// "Add Rule..": whether there is room for one more.
[[nodiscard]] const Refusal* CheckRoomForRule(std::span<const ApplicationRule> rules);

// "Save" of the rule dialog for a new rule. The name of a stored rule cannot be edited, so it is not checked.
[[nodiscard]] const Refusal* CheckRuleName(std::wstring_view name, std::span<const ApplicationRule> rules);

// "Save" of the policy window: one to kMaxRules rules. The texts for a new policy spell "cann't"; users know them so.
[[nodiscard]] const Refusal* CheckRules(std::span<const ApplicationRule> rules, EditMode mode);

} // namespace voltaro
