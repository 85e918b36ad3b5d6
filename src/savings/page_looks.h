#pragma once

#include "base/windows_api.h"
#include "savings/graph_layout.h"
#include "ui/list_view.h"

#include <span>

namespace voltaro {

// What the pages of the savings window have in common.

// Paints one text of the layout.
void DrawGraphText(HDC dc, const GraphText& text);

// Paints what a page shows until a day is chosen.
void DrawNoDay(HDC dc);

// Columns and colours of a list.
void PrepareReportList(HWND list, std::span<const Column> columns);

} // namespace voltaro
