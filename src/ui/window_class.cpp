#include "ui/window_class.h"

#include "base/error_log.h"
#include "ui/controls.h"
#include "ui/theme.h"

#include <algorithm>

namespace voltaro {
namespace {

constexpr int kProgramIcon = 1001;

// Both of a pair: a label that kept the context's black would be lost on a dark face.
LRESULT GroundBehindText(HWND window, HDC dc)
{
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    SetBkMode(dc, TRANSPARENT);
    SetBkColor(dc, GetSysColor(COLOR_3DFACE));
    return reinterpret_cast<LRESULT>(GroundBrush(window));
}

bool IsChildWindow(HWND window)
{
    return (GetWindowLongW(window, GWL_STYLE) & WS_CHILD) != 0;
}

constexpr wchar_t kFocusProperty[] = L"VoltaroFocus";

bool TakesFocus(HWND window, HWND control)
{
    return control != nullptr && IsChild(window, control) && IsWindowVisible(control) && IsWindowEnabled(control);
}

// The keyboard comes back to the field that it left when another window, or a box, was in front; at first to the first
// field. Windows itself would give it to the window, where no key does anything.
void KeepFocus(HWND window, bool active)
{
    const HWND focus = GetFocus();
    if (!active && IsChild(window, focus))
        Checked(SetPropW(window, kFocusProperty, focus), "SetPropW");
    if (!active)
        return;
    const HWND left = static_cast<HWND>(GetPropW(window, kFocusProperty));
    const HWND field = TakesFocus(window, left) ? left : GetNextDlgTabItem(window, nullptr, FALSE);
    GiveFocus(TakesFocus(window, field) ? field : window);
}

// A window opens where Windows or its table puts it, or where it was left, but within the work area of its screen. One
// that is too large for that stands at the area's top and left: its caption can be reached, and moved from there.
void BringOnScreen(HWND window)
{
    if (IsIconic(window))
        return;
    const RECT room = ScreenOf(window).rcWork;
    RECT place;
    GetWindowRect(window, &place);
    const LONG x = std::max(std::min(place.left, room.right - (place.right - place.left)), room.left);
    const LONG y = std::max(std::min(place.top, room.bottom - (place.bottom - place.top)), room.top);
    if (x != place.left || y != place.top)
        SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace

bool RegisterWindow(const wchar_t* name, WNDPROC procedure, int menu)
{
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = Instance();
    windowClass.hIcon = LargeIcon(kProgramIcon);
    windowClass.hIconSm = SmallIcon(kProgramIcon);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = FaceBrush();
    windowClass.lpszMenuName = menu != 0 ? MAKEINTRESOURCEW(menu) : nullptr;
    windowClass.lpszClassName = name;
    return Checked(RegisterClassExW(&windowClass), "RegisterClassExW") != 0;
}

LRESULT DefaultAnswer(HWND window, UINT message, WPARAM w, LPARAM l)
{
    switch (message) {
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: return GroundBehindText(window, reinterpret_cast<HDC>(w));
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED: RenewColours(window); break;
    case WM_SETTINGCHANGE:
        if (w == SPI_SETHIGHCONTRAST)
            RenewColours(window);
        break;
    case WM_SHOWWINDOW:
    case WM_DISPLAYCHANGE:
        if (!IsChildWindow(window))
            BringOnScreen(window);
        break;
    case WM_ERASEBKGND: FillWithGround(window, reinterpret_cast<HDC>(w)); return 1;
    case WM_ACTIVATE:
        if (HIWORD(w) == 0) // not minimised
            KeepFocus(window, LOWORD(w) != WA_INACTIVE);
        return 0;
    case WM_PRINTCLIENT: // themed check boxes and frames ask their parent for the background behind them
        FillWithGround(window, reinterpret_cast<HDC>(w));
        return 0;
    case WM_HELP:
        if (!IsChildWindow(window))
            return TRUE; // else Windows hands it on to the owner, whose help would open
        break;
    default: break;
    }
    return DefWindowProcW(window, message, w, l);
}

void FillWithGround(HWND window, HDC dc)
{
    RECT client;
    GetClientRect(window, &client);
    FillRect(dc, &client, GroundBrush(window));
}

void Repaint(HWND window, bool erase)
{
    RedrawWindow(window, nullptr, nullptr,
        RDW_INVALIDATE | RDW_UPDATENOW | (erase ? RDW_ERASE | RDW_ALLCHILDREN : RDW_NOCHILDREN));
}

void ShowOverOwner(HWND window)
{
    EnableWindow(GetWindow(window, GW_OWNER), FALSE);
    ShowWindow(window, SW_SHOWNORMAL);
    SetForegroundWindow(window);
}

void HideFromOwner(HWND window)
{
    EnableWindow(GetWindow(window, GW_OWNER), TRUE); // first: Windows gives the front to an enabled window alone
    ShowWindow(window, SW_HIDE);
}

HINSTANCE Instance()
{
    return GetModuleHandleW(nullptr);
}

} // namespace voltaro
