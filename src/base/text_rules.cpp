#include "base/text_rules.h"

#include <algorithm>

namespace voltaro {

const Refusal* FirstBroken(std::span<const TextRule> rules, std::wstring_view text)
{
    const auto row = std::ranges::find_if(rules, [text](const TextRule& rule) { return rule.broken(text); });
    return row == rules.end() ? nullptr : &row->refusal;
}

std::wstring RefusalText(const Refusal& refusal, std::wstring_view input)
{
    return WithName(refusal.text, input);
}

bool IsEmpty(std::wstring_view text)
{
    return text.empty();
}

bool BeginsWithBlank(std::wstring_view text)
{
    return text.starts_with(L' ');
}

bool EndsWithBlank(std::wstring_view text)
{
    return text.ends_with(L' ');
}

bool BeginsWithUnderscore(std::wstring_view text)
{
    return text.starts_with(L'_');
}

bool EndsWithUnderscore(std::wstring_view text)
{
    return text.ends_with(L'_');
}

} // namespace voltaro
