#include "ui/window_class.h"

#include "ui/theme.h"

namespace voltaro {
namespace {

constexpr int kProgramIcon = 1001;

LRESULT FaceBehindText(HDC dc)
{
    SetBkMode(dc, TRANSPARENT);
    SetBkColor(dc, GetSysColor(COLOR_3DFACE));
    return reinterpret_cast<LRESULT>(FaceBrush());
}

// Themed check boxes and frames ask their parent for the background behind them.
void FillWithFace(HWND window, HDC dc)
{
    RECT client;
    GetClientRect(window, &client);
    FillRect(dc, &client, FaceBrush());
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
        SetPropW(window, kFocusProperty, focus);
    if (!active)
        return;
    const HWND left = static_cast<HWND>(GetPropW(window, kFocusProperty));
    const HWND field = TakesFocus(window, left) ? left : GetNextDlgTabItem(window, nullptr, FALSE);
    SetFocus(TakesFocus(window, field) ? field : window);
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
    return RegisterClassExW(&windowClass) != 0;
}

LRESULT DefaultAnswer(HWND window, UINT message, WPARAM w, LPARAM l)
{
    switch (message) {
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: return FaceBehindText(reinterpret_cast<HDC>(w));
    case WM_ACTIVATE:
        if (HIWORD(w) == 0) // not minimised
            KeepFocus(window, LOWORD(w) != WA_INACTIVE);
        return 0;
    case WM_PRINTCLIENT: FillWithFace(window, reinterpret_cast<HDC>(w)); return 0;
    case WM_HELP:
        if (!IsChildWindow(window))
            return TRUE; // else Windows hands it on to the owner, whose help would open
        break;
    default: break;
    }
    return DefWindowProcW(window, message, w, l);
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
