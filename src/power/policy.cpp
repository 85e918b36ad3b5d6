#include "power/policy.h"

#include "base/text_rules.h"
#include "power/names.h"

#include <algorithm>

namespace voltaro {
namespace {

// clang-format off
constexpr Refusal kNoRoom = {L"Applications list max limit reached ",
    L"Applications limit per policy name is 50 applications ."};
constexpr Refusal kRuleTaken = {L"Application name already in the list ",
    L"Application ' %ls ' already exists, please enter different application name."};

constexpr Refusal kNoRules = {L"Blank Applications List ",
    L"Application's list cannot be blank!\nPlease add some applications to the list using the 'Add Rule' button."};
constexpr Refusal kTooManyRules = {L"Applications List Exceeded Limitation",
    L"Application's list cannot contain more than 50 application names."};
constexpr Refusal kNoRulesInNew = {L"Blank Applications List ",
    L"Application's list cann't be blank!\nPlease add some applications to the list using the 'Add Rule' button."};
constexpr Refusal kTooManyRulesInNew = {L"Applications List Exceeded Limitation",
    L"Application's list cann't contain more than 50 application names."};
// clang-format on

} // namespace

const Refusal* CheckRoomForRule(std::span<const ApplicationRule> rules)
{
    return rules.size() < kMaxRules ? nullptr : &kNoRoom;
}

const Refusal* CheckRuleName(std::wstring_view name, std::span<const ApplicationRule> rules)
{
    if (const Refusal* refusal = CheckExecutableName(name))
        return refusal;
    return std::ranges::any_of(rules, SameNameAs(name), &ApplicationRule::applicationName) ? &kRuleTaken : nullptr;
}

const Refusal* CheckRules(std::span<const ApplicationRule> rules, EditMode mode)
{
    const bool isNew = mode == EditMode::Add;
    if (rules.empty())
        return isNew ? &kNoRulesInNew : &kNoRules;
    if (rules.size() > kMaxRules)
        return isNew ? &kTooManyRulesInNew : &kTooManyRules;
    return nullptr;
}

} // namespace voltaro
