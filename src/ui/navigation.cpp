#include "ui/navigation.h"

#include "ui/controls.h"
#include "ui/tabs.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace voltaro {
namespace {

HWND current = nullptr;
// Every window that ever named itself; a message that only passes by a hidden window must not take the keyboard away
// from the one in front.
std::vector<HWND> known;

bool IsKey(const MSG& message)
{
    return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
}

// The window whose navigation a message is offered to.
HWND NavigatorOf(const MSG& message)
{
    if (!IsKey(message) || message.hwnd == current || IsChild(current, message.hwnd))
        return current;
    const HWND root = GetAncestor(message.hwnd, GA_ROOT);
    return std::find(known.begin(), known.end(), root) != known.end() ? root : current;
}

bool IsDown(int key)
{
    return GetKeyState(key) < 0;
}

HWND VisibleTabOf(HWND window)
{
    HWND tab = nullptr;
    do
        tab = FindWindowExW(window, tab, WC_TABCONTROLW, nullptr);
    while (tab != nullptr && !IsWindowVisible(tab));
    return tab;
}

bool TurnPage(HWND window)
{
    const HWND tab = VisibleTabOf(window);
    if (tab == nullptr)
        return false;
    MoveTabBy(tab, IsDown(VK_SHIFT) ? -1 : 1);
    const NMHDR changed{tab, static_cast<UINT_PTR>(GetDlgCtrlID(tab)), static_cast<UINT>(TCN_SELCHANGE)};
    SendMessageW(window, WM_NOTIFY, changed.idFrom, reinterpret_cast<LPARAM>(&changed));
    return true;
}

// Enter pushes the button that has the focus. Windows itself does so for default buttons only, and tells the top-level
// window instead of the page that holds the button.
bool PushFocused(HWND window)
{
    const HWND focus = GetFocus();
    if (focus == nullptr || !IsChild(window, focus))
        return false;
    const LRESULT code = SendMessageW(focus, WM_GETDLGCODE, 0, 0);
    if ((code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) == 0)
        return false;
    SendMessageW(
        GetParent(focus), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(focus), BN_CLICKED), reinterpret_cast<LPARAM>(focus));
    return true;
}

bool TakesTab(HWND control)
{
    constexpr LONG kStop = WS_TABSTOP | WS_VISIBLE;
    return (GetWindowLongW(control, GWL_STYLE) & (kStop | WS_DISABLED)) == kStop;
}

// The controls that Tab stops at, in order: a tab control stands before its pages.
void AddTabStops(HWND window, std::vector<HWND>& stops)
{
    std::vector<HWND> children;
    std::vector<HWND> pages;
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        children.push_back(child);
        std::ranges::copy(PagesOf(child), std::back_inserter(pages));
    }
    const auto add = [&](HWND child) {
        constexpr LONG kShown = WS_VISIBLE;
        const bool holds = (GetWindowLongW(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0;
        if (holds && (GetWindowLongW(child, GWL_STYLE) & (kShown | WS_DISABLED)) == kShown)
            AddTabStops(child, stops);
        else if (!holds && TakesTab(child))
            stops.push_back(child);
    };
    for (const HWND child : children) {
        if (std::ranges::find(pages, child) == pages.end())
            add(child);
        std::ranges::for_each(PagesOf(child), add);
    }
}

// Where Tab leads from the control that has the focus; null where Windows knows it as well. Windows goes by the order
// in which controls cover each other, and a page covers its tab control.
HWND NextStop(HWND window, bool back)
{
    std::vector<HWND> stops;
    AddTabStops(window, stops);
    const HWND focus = GetFocus();
    const auto holds = [focus](HWND stop) { return stop == focus || IsChild(stop, focus); };
    const auto at = std::ranges::find_if(stops, holds);
    if (at == stops.end() || (SendMessageW(focus, WM_GETDLGCODE, 0, 0) & (DLGC_WANTTAB | DLGC_WANTALLKEYS)) != 0)
        return nullptr;
    const auto count = static_cast<std::ptrdiff_t>(stops.size());
    const std::ptrdiff_t next = (at - stops.begin() + (back ? count - 1 : 1)) % count;
    const HWND stop = stops[static_cast<std::size_t>(next)];
    return stop != GetNextDlgTabItem(window, *at, back) ? stop : nullptr;
}

bool GoToNextStop(HWND window)
{
    const HWND stop = NextStop(window, IsDown(VK_SHIFT));
    if (stop == nullptr)
        return false;
    FocusOn(GetParent(stop), GetDlgCtrlID(stop));
    return true;
}

} // namespace

void NavigateWith(HWND window)
{
    if (window == current)
        return;
    current = window;
    if (std::find(known.begin(), known.end(), window) != known.end())
        return;
    std::erase_if(known, [](HWND old) { return !IsWindow(old); });
    known.push_back(window);
}

HWND NavigationWindow()
{
    return current;
}

bool Navigate(MSG& message)
{
    const HWND window = NavigatorOf(message);
    if (!IsWindow(window))
        return false;
    if (message.message == WM_KEYDOWN && IsWindowEnabled(window)) {
        if (message.wParam == VK_TAB && IsDown(VK_CONTROL) && TurnPage(window))
            return true;
        if (message.wParam == VK_TAB && !IsDown(VK_CONTROL) && GoToNextStop(window))
            return true;
        if (message.wParam == VK_RETURN && PushFocused(window))
            return true;
        if (message.wParam == VK_F5) {
            SendMessageW(window, WM_COMMAND, kRefreshKey, 0);
            return true;
        }
    }
    return IsDialogMessageW(window, &message) != FALSE;
}

int RunMessageLoop()
{
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (Navigate(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

} // namespace voltaro
