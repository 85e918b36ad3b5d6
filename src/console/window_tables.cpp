#include "console/window_tables.h"

#include "console/help.h"
#include "ui/tabs.h"
#include "ui/theme.h"
#include "ui/window_class.h"

namespace voltaro {
namespace {

bool IsSentToDisabled(HWND window, UINT message)
{
    return (message == WM_CLOSE || message == WM_COMMAND || message == WM_NOTIFY)
        && !IsWindowEnabled(GetAncestor(window, GA_ROOT));
}

void OnNotify(const WindowTables& tables, HWND window, const NMHDR& notice)
{
    if (notice.code == TCN_SELCHANGE)
        ShowSelectedPage(notice.hwndFrom);
    else
        Dispatch(tables.commands, window, notice);
}

} // namespace

LRESULT AnswerFromTables(const WindowTables& tables, HWND window, UINT message, WPARAM w, LPARAM l)
{
    if (tables.helpPage)
        NavigateWith(window);
    if (IsSentToDisabled(window, message))
        return 0;
    if (const auto answer = tables.other ? tables.other(window, message, w, l) : std::nullopt)
        return *answer;
    switch (message) {
    case WM_CREATE:
        if (!CreateControls(window, tables.controls, WindowFont()))
            return -1;
        if (tables.created)
            tables.created(window);
        return 0;
    case WM_COMMAND: Dispatch(tables.commands, window, w); return 0;
    case WM_NOTIFY: OnNotify(tables, window, *reinterpret_cast<const NMHDR*>(l)); return 0;
    case WM_CLOSE: Dispatch(tables.commands, window, IDCANCEL); return 0;
    case WM_HELP:
        if (!tables.helpPage)
            break;
        OpenHelp(window, tables.helpPage);
        return TRUE;
    default: break;
    }
    return DefaultAnswer(window, message, w, l);
}

void ShowAndActivate(HWND window)
{
    const bool wasHidden = !IsWindowVisible(window);
    ShowWindow(window, SW_SHOWNORMAL);
    SetForegroundWindow(window);
    const HWND first = GetNextDlgTabItem(window, nullptr, FALSE);
    if (wasHidden && first)
        SetFocus(first);
}

void HideWindow(HWND window)
{
    ShowWindow(window, SW_HIDE);
}

void ShowHelp(HWND window)
{
    SendMessageW(window, WM_HELP, 0, 0);
}

} // namespace voltaro
