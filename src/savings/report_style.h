#pragma once

#include "base/windows_api.h"
#include "savings/graph_layout.h"
#include "ui/list_view.h"

#include <span>

namespace voltaro {

// What the pages of the savings window have in common.

// Paints one text of the layout.
void DrawGraphText(HDC dc, const GraphText& text);

// Paints a page without a report: until a day is chosen what to do, after that nothing.
void DrawNoDay(HDC dc);

// Columns and colours of a list.
void PrepareReportList(HWND list, std::span<const Column> columns);

} // namespace voltaro
