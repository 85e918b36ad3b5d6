#pragma once

#include "base/choices.h"
#include "base/windows_api.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace voltaro {

// Combo boxes. Filling keeps nothing of the old content; the index is -1 where nothing is selected or found.
void FillCombo(HWND window, int id, std::span<const std::wstring> entries);
// Fills with choices and selects the one at that index.
void FillChoices(HWND window, int id, Choices choices, std::size_t selected);
[[nodiscard]] std::wstring SelectedText(HWND window, int id);
[[nodiscard]] int SelectedIndex(HWND window, int id);
void SelectIndex(HWND window, int id, int index);
// Selects the entry that equals the text exactly (case counts as the combo box's own search does not: compared here).
// Returns the index, or -1 with the selection cleared.
int SelectExact(HWND window, int id, std::wstring_view text);
// The same for names, which letter case does not tell apart; an entry that equals the name exactly comes first.
int SelectName(HWND window, int id, std::wstring_view name);

} // namespace voltaro
