#include "settings/form_window.h"

#include "console/help.h"
#include "ui/theme.h"
#include "ui/window_class.h"

namespace voltaro {

LRESULT AnswerFromTables(const FormTables& tables, HWND window, UINT message, WPARAM w, LPARAM l)
{
    NavigateWith(window);
    switch (message) {
    case WM_CREATE:
        CreateControls(window, tables.controls, WindowFont());
        if (tables.made)
            tables.made(window);
        return 0;
    case WM_COMMAND:
        if (Dispatch(tables.commands, window, w))
            return 0;
        break;
    case WM_CLOSE: Dispatch(tables.commands, window, IDCANCEL); return 0;
    case WM_HELP: OpenHelp(window, tables.helpPage); return TRUE;
    default: break;
    }
    return DefaultAnswer(window, message, w, l);
}

void BringUp(HWND window)
{
    const bool wasHidden = !IsWindowVisible(window);
    ShowWindow(window, SW_SHOWNORMAL);
    SetForegroundWindow(window);
    const HWND first = GetNextDlgTabItem(window, nullptr, FALSE);
    if (wasHidden && first)
        SetFocus(first);
}

void HideForm(HWND window)
{
    ShowWindow(window, SW_HIDE);
}

void ShowHelp(HWND window)
{
    SendMessageW(window, WM_HELP, 0, 0);
}

} // namespace voltaro
