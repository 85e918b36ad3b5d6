#pragma once

#include "base/refusal.h"
#include "base/text.h"

#include <span>
#include <string>
#include <string_view>

namespace voltaro {

// One row of an input check: a text of which `broken` holds is refused with `refusal`. Checks are tables of such rows,
// in the order in which they are tried.
struct TextRule {
    bool (*broken)(std::wstring_view text);
    Refusal refusal;
};

// The refusal of the first broken rule, or null when the text passes them all.
[[nodiscard]] const Refusal* FirstBroken(std::span<const TextRule> rules, std::wstring_view text);

// The text to show: with the refused input in its place where the refusal names it.
[[nodiscard]] std::wstring RefusalText(const Refusal& refusal, std::wstring_view input);

// Whether an editor adds a record or changes one that is in the list. Only an added one is compared with the others: a
// changed record must not be refused for its own name.
enum class EditMode { Add, Update };

// Conditions shared by the tables. A blank is U+0020 alone.
[[nodiscard]] bool IsEmpty(std::wstring_view text);
[[nodiscard]] bool BeginsWithBlank(std::wstring_view text);
[[nodiscard]] bool EndsWithBlank(std::wstring_view text);
[[nodiscard]] bool BeginsWithUnderscore(std::wstring_view text);
[[nodiscard]] bool EndsWithUnderscore(std::wstring_view text);

// A predicate for the standard algorithms: the same name, without regard to letter case.
[[nodiscard]] inline auto SameNameAs(std::wstring_view name)
{
    return [name](std::wstring_view other) { return EqualsIgnoreCase(other, name); };
}

} // namespace voltaro
