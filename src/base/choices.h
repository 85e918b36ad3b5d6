#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace voltaro {

// One entry of a drop-down list that stands for a number: minutes, percent, a brightness step. "Never" and "Disabled"
// stand for 0 and come last in their lists.
struct Choice {
    const wchar_t* text;
    std::int32_t number;
};

// A list of choices, not empty, numbers ascending but for a closing "Never".
using Choices = std::span<const Choice>;

// The entry that shows a stored number: the one that has it, else the next longer one, else the last.
[[nodiscard]] std::size_t ShownChoice(Choices choices, std::int32_t stored);

// The entry of that text; the list's size when there is none.
[[nodiscard]] std::size_t ChoiceIndex(Choices choices, std::wstring_view text);

// The number to store for the selected entry. A stored number that no entry has survives as long as the entry that
// shows it stays selected; so it does when nothing is selected (an index outside the list).
[[nodiscard]] std::int32_t ChosenNumber(Choices choices, std::size_t selected, std::int32_t stored);

// For records that keep the number as decimal text: the entry that shows it, and the number of the entry that the user
// chose. `choices` is the whole list of the control even where the control holds a part of it; a text outside the list
// ("Disabled") stands for "0".
[[nodiscard]] const wchar_t* ShownText(Choices choices, std::wstring_view stored);
[[nodiscard]] std::wstring ChosenText(Choices choices, std::wstring_view shown);

} // namespace voltaro
