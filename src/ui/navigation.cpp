#include "ui/navigation.h"

#include "ui/tabs.h"

#include <algorithm>
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
    TurnBy(tab, IsDown(VK_SHIFT) ? -1 : 1);
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
