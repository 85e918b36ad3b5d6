#pragma once

#include "scheduler/job.h"
#include "ui/controls.h"
#include "ui/list_view.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace voltaro {

// How the values of a job stand in the controls of its windows.

// Time and date pickers. A text that is no time shows as midnight, one that is no date as today.
void ShowTime(HWND window, int id, std::wstring_view text);
[[nodiscard]] std::wstring TimeShown(HWND window, int id);
void ShowDate(HWND window, int id, std::wstring_view text);
[[nodiscard]] std::wstring DateShown(HWND window, int id);

// Fills a list with entries and selects the one that equals the text. A stored text that is no entry becomes one, so
// that the screen says what is stored; an empty text selects the first entry.
void ShowAmong(HWND window, int id, std::span<const std::wstring> entries, std::wstring_view text);

// The same for a list of numbers; read it with ChosenNumber(choices, SelectedIndex, stored).
void ShowNumber(HWND window, int id, Choices choices, std::int32_t number);

// Fills a list view with one row a record; `cells` gives the cells of a record.
template <class Record, class Cells>
void FillRows(HWND list, const std::vector<Record>& records, Cells cells)
{
    std::vector<std::vector<std::wstring>> rows;
    for (const Record& record : records) {
        const auto row = cells(record);
        rows.emplace_back(row.begin(), row.end());
    }
    FillList(list, rows);
}

} // namespace voltaro
