#include "ui/tabs.h"

#include "base/error_log.h"
#include "ui/controls.h"
#include "ui/theme.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace voltaro {
namespace {

using Pages = std::vector<HWND>;
constexpr wchar_t kPagesProperty[] = L"VoltaroPages";

Pages* Remembered(HWND tab)
{
    return static_cast<Pages*>(GetPropW(tab, kPagesProperty));
}

LRESULT CALLBACK TabSubclassProc(HWND tab, UINT message, WPARAM w, LPARAM l, UINT_PTR id, DWORD_PTR)
{
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(tab, &TabSubclassProc, id);
        const std::unique_ptr<Pages> pages(static_cast<Pages*>(RemovePropW(tab, kPagesProperty)));
    }
    return DefSubclassProc(tab, message, w, l);
}

// The text that names the tab control to screen readers and must stay right before it; without one the tab control.
HWND FirstOf(HWND tab)
{
    const HWND previous = GetWindow(tab, GW_HWNDPREV);
    return previous != nullptr && (SendMessageW(previous, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) != 0 ? previous : tab;
}

// A page that lies beside its tab control must lie above it, or the control would paint over it. The Tab key goes to
// the tab control first all the same (ui/navigation.h).
void PlaceAboveTab(HWND page, HWND tab)
{
    SetTabPage(page);
    const LONG_PTR style = GetWindowLongPtrW(page, GWL_EXSTYLE);
    SetWindowLongPtrW(page, GWL_EXSTYLE, style | WS_EX_CONTROLPARENT);
    if (GetParent(page) != GetParent(tab))
        return;
    const HWND above = GetWindow(FirstOf(tab), GW_HWNDPREV);
    if (above != page)
        SetWindowPos(page, above != nullptr ? above : HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

bool HoldsFocus(HWND page)
{
    const HWND focus = GetFocus();
    return focus != nullptr && (focus == page || IsChild(page, focus));
}

} // namespace

std::span<const HWND> PagesOf(HWND tab)
{
    const Pages* pages = Remembered(tab);
    return pages != nullptr ? std::span<const HWND>(*pages) : std::span<const HWND>();
}

void SetTabs(HWND tab, std::span<const TabPage> pages)
{
    TabCtrl_DeleteAllItems(tab);
    Pages* remembered = Remembered(tab);
    if (remembered == nullptr) {
        auto made = std::make_unique<Pages>();
        if (!Checked(SetWindowSubclass(tab, &TabSubclassProc, 0, 0), "SetWindowSubclass")
            || !Checked(SetPropW(tab, kPagesProperty, made.get()), "SetPropW"))
            return;
        remembered = made.release(); // freed by TabSubclassProc
    }
    remembered->clear();
    for (const TabPage& page : pages) {
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(page.caption);
        SendMessageW(tab, TCM_INSERTITEMW, remembered->size(), reinterpret_cast<LPARAM>(&item));
        remembered->push_back(page.page);
        PlaceAboveTab(page.page, tab);
    }
    SelectTab(tab, 0);
}

void SelectTab(HWND tab, int index)
{
    const Pages* pages = Remembered(tab);
    if (pages == nullptr || index < 0 || static_cast<std::size_t>(index) >= pages->size())
        return;
    if (TabCtrl_GetCurSel(tab) != index)
        TabCtrl_SetCurSel(tab, index);
    const HWND shown = (*pages)[static_cast<std::size_t>(index)];
    const bool focusLeaves
        = std::any_of(pages->begin(), pages->end(), [=](HWND page) { return page != shown && HoldsFocus(page); });
    ShowWindow(shown, SW_SHOWNA);
    if (focusLeaves) {
        const HWND first = GetNextDlgTabItem(shown, nullptr, FALSE);
        GiveFocus(first != nullptr ? first : tab);
    }
    for (const HWND page : *pages) {
        if (page != shown)
            ShowWindow(page, SW_HIDE);
    }
}

void ShowSelectedPage(HWND tab)
{
    SelectTab(tab, SelectedTab(tab));
}

void MoveTabBy(HWND tab, int step)
{
    const int count = TabCtrl_GetItemCount(tab);
    if (count > 0)
        SelectTab(tab, ((SelectedTab(tab) + step) % count + count) % count);
}

int SelectedTab(HWND tab)
{
    return TabCtrl_GetCurSel(tab);
}

} // namespace voltaro
