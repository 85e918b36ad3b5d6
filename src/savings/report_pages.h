#pragma once

#include "base/windows_api.h"

namespace voltaro {

// The first two pages of the savings window: consumption and carbon dioxide; estimates and the idle pattern.
LRESULT CALLBACK TotalsPageProc(HWND window, UINT message, WPARAM w, LPARAM l);
LRESULT CALLBACK EstimatesPageProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Shows the chosen day on both, or that there is none.
void RefreshReportPages();

} // namespace voltaro
