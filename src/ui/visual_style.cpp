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
    struct Sample {
        HTHEME theme;
        COLORREF colour;
    } sample{theme, GetSysColor(COLOR_3DFACE)};
    const auto paint = [](HDC dc, void* context) {
        static const auto draw = ThemeProcedure<decltype(::DrawThemeBackground)>("DrawThemeBackground");
        auto& [style, colour] = *static_cast<Sample*>(context);
        const RECT whole{0, 0, kSample, kSample};
        if (draw != nullptr && SUCCEEDED(draw(style, dc, TABP_BODY, 0, &whole, nullptr)))
            colour = GetPixel(dc, kSample / 2, kSample / 2);
    };
    static_cast<void>(RenderBitmap(kSample, kSample, paint, &sample));
    return sample.colour;
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
