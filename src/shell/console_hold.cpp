#include "shell/console_hold.h"

#include "console/windows.h"
#include "shell/main_window.h"
#include "ui/window_class.h"

namespace voltaro {

void ShowHolding(HWND window, HoldReason reason)
{
    ShowWindow(window, SW_SHOW);
    SetForegroundWindow(window);
    UpdateWindow(window);
    HoldMainWindow(reason, window);
    ShowNormalControls(WindowOf(WindowId::Main));
}

void HideHolding(HWND window, HoldReason reason)
{
    const HWND main = WindowOf(WindowId::Main);
    ReleaseMainWindow(reason); // before the window goes, else another program's would come to the front
    const bool freed = IsWindowEnabled(main) != FALSE;
    ShowWindow(window, SW_HIDE);
    if (!freed)
        return;
    if (IsWindowVisible(main))
        SetForegroundWindow(main);
    Repaint(main);
}

} // namespace voltaro
