#pragma once

#include "base/windows_api.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace voltaro {

struct Column {
    const wchar_t* title;
    int width; // pixels
};

// Adds the columns of a report view.
void SetColumns(HWND list, std::span<const Column> columns);

// The text of a cell; valid until the next call.
using CellText = std::function<const wchar_t*(std::size_t row, std::size_t column)>;

// Refills a list with `rows` rows, redraw off and on around it. The selected row (by index), the focus and the scroll
// position are kept where they still exist.
void FillList(HWND list, std::size_t rows, const CellText& cell);

// The same for rows of texts.
void FillList(HWND list, std::span<const std::vector<std::wstring>> rows);

void ClearList(HWND list);
// Index of the first selected row, -1 for none. OnlySelectedRow gives -1 for several too, which can be chosen for a
// copy: for what is done to a row.
[[nodiscard]] int SelectedRow(HWND list);
[[nodiscard]] int OnlySelectedRow(HWND list);
void SelectRow(HWND list, int row);
[[nodiscard]] int RowCount(HWND list);
[[nodiscard]] std::wstring CellOf(HWND list, int row, int column);

// Rows as tab-separated text, lines ended by CR LF; all rows or the selected ones. The first line holds the column
// titles when all rows are copied.
[[nodiscard]] std::wstring ListText(HWND list, bool selectedOnly);

// Ctrl+C, Ctrl+A and the context menu (Copy, Copy all, Select all) for a list, and tooltips on cut-off cells. Every
// list that CreateControls makes has them.
void AddListSubclass(HWND list);

} // namespace voltaro
