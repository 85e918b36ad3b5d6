#include "ui/visual_style.h"

#include "base/system_procedure.h"
#include "ui/canvas.h"
#include "ui/theme.h"

#include <uxtheme.h>

#include <vssym32.h>

#include <iterator>

namespace voltaro {
namespace {

constexpr int kSample = 64; // pixels; large enough that its middle lies inside the frame

template <class Procedure>
Procedure* ThemeProcedure(const char* name)
{
    return SystemProcedure<Procedure>(L"uxtheme.dll", name);
}

COLORREF MiddleOf(HTHEME theme)
{
    static const auto draw = ThemeProcedure<decltype(::DrawThemeBackground)>("DrawThemeBackground");
    COLORREF colour = GetSysColor(COLOR_3DFACE);
    const UniqueMemoryDc memory(CreateCompatibleDC(nullptr));
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, kSample, kSample, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const UniqueBitmap bitmap(CreateDIBSection(memory.Get(), &info, DIB_RGB_COLORS, nullptr, nullptr, 0));
    const SelectGuard selected(memory.Get(), bitmap.Get());
    const RECT whole{0, 0, kSample, kSample};
    FillRect(memory.Get(), &whole, FaceBrush());
    if (draw != nullptr && SUCCEEDED(draw(theme, memory.Get(), TABP_BODY, 0, &whole, nullptr)))
        colour = GetPixel(memory.Get(), kSample / 2, kSample / 2);
    return colour;
}

void SetStyle(HWND control, const wchar_t* name)
{
    static const auto set = ThemeProcedure<decltype(::SetWindowTheme)>("SetWindowTheme");
    if (set != nullptr)
        set(control, name, name);
}

} // namespace

void LeaveVisualStyle(HWND control)
{
    SetStyle(control, L" "); // names no style; empty texts would mean the usual one
}

void ReturnToVisualStyle(HWND control)
{
    SetStyle(control, nullptr);
}

bool IsGroupBox(HWND control)
{
    wchar_t name[16] = L"";
    GetClassNameW(control, name, static_cast<int>(std::size(name)));
    return CompareStringOrdinal(name, -1, WC_BUTTONW, -1, TRUE) == CSTR_EQUAL
        && (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

std::optional<COLORREF> TabBodyColour()
{
    static const auto active = ThemeProcedure<decltype(::IsAppThemed)>("IsAppThemed");
    static const auto open = ThemeProcedure<decltype(::OpenThemeData)>("OpenThemeData");
    static const auto close = ThemeProcedure<decltype(::CloseThemeData)>("CloseThemeData");
    if (active == nullptr || open == nullptr || close == nullptr || !active())
        return std::nullopt;
    const HTHEME theme = open(nullptr, L"TAB");
    if (theme == nullptr)
        return std::nullopt;
    const COLORREF colour = MiddleOf(theme);
    close(theme);
    return colour;
}

} // namespace voltaro
