#pragma once

#include "base/windows_api.h"

#include <string>

namespace voltaro {

// The text for the row of the list that is pointed at; empty for none.
using RowTip = std::wstring (*)(HWND list, int row);

// Gives the rows of a list tooltips of their own: a cell that is cut off, and below it the row's text. The list's own
// tooltips for such cells, which would cover them and know the first column alone, are switched off.
void SetRowTips(
    HWND list, RowTip tip = [](HWND, int) { return std::wstring(); });

} // namespace voltaro
