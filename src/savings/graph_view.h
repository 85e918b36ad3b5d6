#pragma once

#include "base/windows_api.h"
#include "savings/graph_layout.h"

namespace voltaro {

// The third page of the savings window: the graph of the day with the list of its durations.
LRESULT CALLBACK GraphPageProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Shows the chosen day, or that there is none.
void RefreshGraphPage();

// Paints a graph as it was laid out.
void DrawGraph(HDC dc, const GraphLayout& layout);

} // namespace voltaro
