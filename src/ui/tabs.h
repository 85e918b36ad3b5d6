#pragma once

#include "base/windows_api.h"

#include <span>

namespace voltaro {

// One page of a tab control: its caption and the child window (or windows) that belong to it.
struct TabPage {
    const wchar_t* caption;
    HWND page;
};

// Adds the pages' captions to a tab control and shows the first page. The tab control must be made before its pages are
// turned; the pages are remembered with the control (copied).
void SetTabs(HWND tab, std::span<const TabPage> pages);

// The pages in their order; none for a control that is no tab control.
[[nodiscard]] std::span<const HWND> PagesOf(HWND tab);

// Shows the page at `index`, hides the others, selects its caption. Also called on TCN_SELCHANGE: ShowSelectedPage.
void SelectTab(HWND tab, int index);
void ShowSelectedPage(HWND tab);
// One page on or back, wrapping; what Ctrl+Tab does. The page's first field gets the focus when the focus was on a
// page.
void MoveTabBy(HWND tab, int step);
[[nodiscard]] int SelectedTab(HWND tab);

} // namespace voltaro
