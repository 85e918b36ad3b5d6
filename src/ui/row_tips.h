#pragma once

#include "base/windows_api.h"

#include <string>

namespace voltaro {

// The text for the row that is pointed at; empty for none.
using RowTip = std::wstring (*)(int row);

// Gives the rows of a list tooltips of their own. A cell that is cut off stands above the row's text, so that the
// list's own tooltips for such cells, which would cover it, are switched off.
void SetRowTips(HWND list, RowTip tip);

} // namespace voltaro
