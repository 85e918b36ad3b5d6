#include "ui/row_tips.h"

#include "base/error_log.h"
#include "ui/list_view.h"
#include "ui/tooltip.h"

namespace voltaro {
namespace {

// Pixels that a list leaves free on the sides of a cell's text.
constexpr int kCellMargins = 12;

bool IsCutOff(HWND list, const std::wstring& cell, int column)
{
    return ListView_GetStringWidth(list, cell.c_str()) + kCellMargins > ListView_GetColumnWidth(list, column);
}

std::wstring TipAt(HWND list, LPARAM place, RowTip tip)
{
    LVHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(place), GET_Y_LPARAM(place)};
    if (ListView_SubItemHitTest(list, &hit) < 0)
        return {};
    std::wstring text = tip(list, hit.iItem);
    const std::wstring cell = CellOf(list, hit.iItem, hit.iSubItem);
    if (!IsCutOff(list, cell, hit.iSubItem))
        return text;
    return text.empty() ? cell : cell + L"\r\n" + text;
}

LRESULT CALLBACK RowTipSubclassProc(HWND list, UINT message, WPARAM w, LPARAM l, UINT_PTR id, DWORD_PTR data)
{
    if (message == WM_MOUSEMOVE) {
        const std::wstring text = TipAt(list, l, reinterpret_cast<RowTip>(data));
        if (text != TooltipOf(list)) {
            SetTooltip(list, {}); // what shows belongs to another row
            SetTooltip(list, text);
        }
    } else if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(list, &RowTipSubclassProc, id);
    }
    return DefSubclassProc(list, message, w, l);
}

} // namespace

void SetRowTips(HWND list, RowTip tip)
{
    ListView_SetExtendedListViewStyleEx(list, LVS_EX_INFOTIP | LVS_EX_LABELTIP, 0);
    Checked(SetWindowSubclass(list, &RowTipSubclassProc, 0, reinterpret_cast<DWORD_PTR>(tip)), "SetWindowSubclass");
}

} // namespace voltaro
