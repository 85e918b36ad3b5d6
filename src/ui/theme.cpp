#include "ui/theme.h"

#include "base/error_log.h"
#include "base/handles.h"
#include "base/platform_calls.h"
#include "base/system_procedure.h"
#include "ui/visual_style.h"
#include "ui/window_class.h"

#include <map>
#include <utility>

namespace voltaro {
namespace {

// Made at the first use, kept for the process. `make` is called with the key; what cannot be made is tried again.
template <class Guard, class Key, class Make>
typename Guard::Handle Cached(std::map<Key, Guard>& cache, const Key& key, Make make)
{
    Guard& guard = cache[key];
    if (!guard)
        guard.Reset(make());
    return guard.Get();
}

// The system tells a program that leaves scaling to it the sizes of an unscaled screen, but for the time of a call.
int TrayIconSize()
{
    using Set = DPI_AWARENESS_CONTEXT WINAPI(DPI_AWARENESS_CONTEXT);
    static const auto set = SystemProcedure<Set>(L"user32.dll", "SetThreadDpiAwarenessContext");
    if (set == nullptr)
        return GetSystemMetrics(SM_CXSMICON);
    const DPI_AWARENESS_CONTEXT own = set(DPI_AWARENESS_CONTEXT_SYSTEM_AWARE);
    const int size = GetSystemMetrics(SM_CXSMICON);
    set(own);
    return size;
}

// Read once for each visual style: a page asks for every label.
std::optional<COLORREF> tabBodyShown;
bool tabBodyKnown = false;

// Properties of a control: its own colours, each with a bit that tells a colour from none, and of a page.
constexpr wchar_t kTextProperty[] = L"VoltaroTextColour";
constexpr wchar_t kGroundProperty[] = L"VoltaroGroundColour";
constexpr wchar_t kBarProperty[] = L"VoltaroBarColour";
constexpr wchar_t kPageProperty[] = L"VoltaroPage";
constexpr ULONG_PTR kIsColour = 0x0100'0000;

void KeepColour(HWND control, const wchar_t* property, COLORREF colour)
{
    Checked(SetPropW(control, property, reinterpret_cast<HANDLE>(colour | kIsColour)), "SetPropW");
}

std::optional<COLORREF> KeptColour(HWND control, const wchar_t* property)
{
    const auto kept = reinterpret_cast<ULONG_PTR>(GetPropW(control, property));
    return kept != 0 ? std::optional(static_cast<COLORREF>(kept & ~kIsColour)) : std::nullopt;
}

// A visual style has colours of its own for the captions of groups and the headers of lists; one that was not made for
// high contrast would not show them on the system's colours.
void FollowContrast(HWND control)
{
    const HWND part = IsGroupBox(control) ? control : ListView_GetHeader(control);
    if (part != nullptr)
        (HasHighContrast() ? LeaveVisualStyle : ReturnToVisualStyle)(part);
}

void ApplyColours(HWND control)
{
    if (const auto text = KeptColour(control, kTextProperty))
        ListView_SetTextColor(control, ShownText(*text));
    if (const auto ground = KeptColour(control, kGroundProperty)) {
        ListView_SetBkColor(control, ShownGround(*ground));
        ListView_SetTextBkColor(control, ShownGround(*ground));
    }
    if (const auto bar = KeptColour(control, kBarProperty))
        SendMessageW(control, PBM_SETBARCOLOR, 0, HasHighContrast() ? CLR_DEFAULT : *bar);
}

} // namespace

bool HasHighContrast()
{
    if (platformCalls.hasHighContrast)
        return platformCalls.hasHighContrast();
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0)
        && (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

MONITORINFO ScreenOf(HWND window)
{
    if (platformCalls.screenOf)
        return platformCalls.screenOf(window);
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen);
    return screen;
}

HFONT FontOf(int height, int weight)
{
    static std::map<std::pair<int, int>, UniqueFont> fonts;
    return Cached(fonts, std::pair(height, weight), [=] {
        return Checked(CreateFontW(height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS,
                           CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, VARIABLE_PITCH | FF_SWISS, L"Arial"),
            "CreateFontW");
    });
}

HFONT WindowFont()
{
    return FontOf(15, FW_LIGHT);
}

HBRUSH BrushOf(COLORREF colour)
{
    static std::map<COLORREF, UniqueBrush> brushes;
    return Cached(brushes, colour, [=] { return Checked(CreateSolidBrush(colour), "CreateSolidBrush"); });
}

HPEN PenOf(int style, COLORREF colour)
{
    static std::map<std::pair<int, COLORREF>, UniquePen> pens;
    return Cached(pens, std::pair(style, colour), [=] { return Checked(CreatePen(style, 1, colour), "CreatePen"); });
}

HBRUSH FaceBrush()
{
    return GetSysColorBrush(COLOR_3DFACE);
}

HBRUSH GroundBrush(HWND window)
{
    if (GetPropW(window, kPageProperty) == nullptr || HasHighContrast())
        return FaceBrush();
    if (!std::exchange(tabBodyKnown, true))
        tabBodyShown = (platformCalls.tabBodyColour ? platformCalls.tabBodyColour : TabBodyColour)();
    return tabBodyShown ? BrushOf(*tabBodyShown) : FaceBrush();
}

HBITMAP BitmapOf(int resource)
{
    // As a section of plain colours: a bitmap of the screen's depth could round the key colour.
    static std::map<int, UniqueBitmap> bitmaps;
    return Cached(bitmaps, resource, [=] {
        return static_cast<HBITMAP>(Checked(
            LoadImageW(Instance(), MAKEINTRESOURCEW(resource), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION), "LoadImageW"));
    });
}

// Icons are shared: the system keeps them and destroys them with the process. A program without resources (a test)
// gets the system's own icon.
HICON IconOf(int resource, int size)
{
    const HANDLE icon
        = Checked(LoadImageW(Instance(), MAKEINTRESOURCEW(resource), IMAGE_ICON, size, size, LR_SHARED), "LoadImageW");
    return icon != nullptr ? static_cast<HICON>(icon) : LoadIconW(nullptr, IDI_APPLICATION);
}

HICON SmallIcon(int resource)
{
    constexpr int kCaptionSize = 16;
    return IconOf(resource, kCaptionSize);
}

HICON TrayIcon(int resource)
{
    return IconOf(resource, (platformCalls.trayIconSize ? platformCalls.trayIconSize : TrayIconSize)());
}

HICON LargeIcon(int resource)
{
    const HICON icon = LoadIconW(Instance(), MAKEINTRESOURCEW(resource));
    return icon != nullptr ? icon : LoadIconW(nullptr, IDI_APPLICATION);
}

COLORREF ShownOnFace(COLORREF text)
{
    return HasHighContrast() ? GetSysColor(COLOR_BTNTEXT) : text;
}

COLORREF ShownText(COLORREF text)
{
    return HasHighContrast() ? GetSysColor(COLOR_WINDOWTEXT) : text;
}

COLORREF ShownGround(COLORREF ground)
{
    return HasHighContrast() ? GetSysColor(COLOR_WINDOW) : ground;
}

void SetListColours(HWND list, COLORREF text, COLORREF ground)
{
    KeepColour(list, kTextProperty, text);
    KeepColour(list, kGroundProperty, ground);
    ApplyColours(list);
}

void SetBarColour(HWND bar, COLORREF colour)
{
    LeaveVisualStyle(bar);                                                            // a themed bar ignores colours
    SetWindowLongPtrW(bar, GWL_STYLE, GetWindowLongPtrW(bar, GWL_STYLE) | WS_BORDER); // the style had drawn the frame
    SetWindowPos(bar, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    KeepColour(bar, kBarProperty, colour);
    ApplyColours(bar);
}

void SetTabPage(HWND page)
{
    Checked(SetPropW(page, kPageProperty, page), "SetPropW");
}

void RenewColours(HWND window)
{
    tabBodyKnown = false;
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        SendMessageW(child, WM_SYSCOLORCHANGE, 0, 0); // Windows tells top-level windows alone
        ApplyColours(child);
        FollowContrast(child);
    }
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

} // namespace voltaro
