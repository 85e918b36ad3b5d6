#include "base/choices.h"

#include "base/text.h"

#include <algorithm>

namespace voltaro {

std::size_t ShownChoice(Choices choices, std::int32_t stored)
{
    // Equality first: 0 is "Never", the last entry, and not the shortest time.
    auto found = std::ranges::find(choices, stored, &Choice::number);
    if (found == choices.end())
        found = std::ranges::find_if(choices, [stored](const Choice& choice) { return choice.number > stored; });
    if (found == choices.end())
        --found;
    return static_cast<std::size_t>(found - choices.begin());
}

std::size_t ChoiceIndex(Choices choices, std::wstring_view text)
{
    const auto found = std::ranges::find_if(choices, [text](const Choice& choice) { return choice.text == text; });
    return static_cast<std::size_t>(found - choices.begin());
}

std::int32_t ChosenNumber(Choices choices, std::size_t selected, std::int32_t stored)
{
    return selected >= choices.size() || selected == ShownChoice(choices, stored) ? stored : choices[selected].number;
}

const wchar_t* ShownText(Choices choices, std::wstring_view stored)
{
    return choices[ShownChoice(choices, LeadingNumber(stored))].text;
}

std::wstring ChosenText(Choices choices, std::wstring_view shown)
{
    const std::size_t selected = ChoiceIndex(choices, shown);
    return NumberText(selected < choices.size() ? choices[selected].number : 0);
}

} // namespace voltaro
