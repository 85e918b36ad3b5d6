#include "shell/console_hold.h"

#include "console/state.h"
#include "shell/main_window.h"
#include "ui/window_class.h"

#include <algorithm>
#include <vector>

namespace voltaro {
namespace {

std::vector<HWND> holders;

void DropHolder(HWND window)
{
    std::erase_if(holders, [window](HWND holder) { return holder == window || !IsWindow(holder); });
}

} // namespace

void HoldConsole(HWND window)
{
    const HWND main = WindowOf(WindowId::Main);
    DropHolder(window);
    holders.push_back(window);
    ShowWindow(window, SW_SHOW);
    SetForegroundWindow(window);
    UpdateWindow(window);
    EnableWindow(main, FALSE);
    state.consoleReady = false;
    ShowNormalControls(main);
}

void ReleaseConsole(HWND window)
{
    const HWND main = WindowOf(WindowId::Main);
    DropHolder(window);
    state.consoleReady = holders.empty();
    // The system information disables the main window for itself.
    const bool frees = holders.empty() && !IsWindowVisible(WindowOf(WindowId::SystemInfo));
    if (frees)
        EnableWindow(main, TRUE); // before the window goes, else another program's would come to the front
    ShowWindow(window, SW_HIDE);
    if (!frees)
        return;
    if (IsWindowVisible(main))
        SetForegroundWindow(main);
    Repaint(main);
}

void ReleaseAllHolds()
{
    holders.clear();
    EnableWindow(WindowOf(WindowId::Main), TRUE);
    state.consoleReady = true;
}

} // namespace voltaro
