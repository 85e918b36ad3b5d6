#include "ui/tooltip.h"

#include "base/error_log.h"
#include <algorithm>
#include <iterator>
#include <memory>

namespace voltaro {
namespace {

constexpr wchar_t kTipsProperty[] = L"VoltaroTooltips";       // of a top-level window: its tooltip window
constexpr wchar_t kThumbTipsProperty[] = L"VoltaroThumbTips"; // of a top-level window: that of its sliders' thumbs
constexpr wchar_t kTipProperty[] = L"VoltaroTip";             // of a control: its Tip
constexpr int kTipWidth = 400;                                // pixels; longer texts wrap
constexpr int kThumbTipRise = 24;                             // pixels from the thumb's top up to the tip's

// The tip of one control, kept until the control dies.
struct Tip {
    HWND tips; // the tooltip window
    std::wstring text;
};

// A tooltip window that belongs to a top-level window: owned by it, so it dies with it.
HWND MakeTips(HWND root)
{
    const HWND tips
        = Checked(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                      CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, root, nullptr, nullptr, nullptr),
            "CreateWindowExW");
    SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, kTipWidth);
    return tips;
}

HWND TipsOf(HWND control)
{
    const HWND root = GetAncestor(control, GA_ROOT);
    if (const auto made = static_cast<HWND>(GetPropW(root, kTipsProperty)))
        return made;
    const HWND tips = MakeTips(root);
    Checked(SetPropW(root, kTipsProperty, tips), "SetPropW");
    return tips;
}

TTTOOLINFOW ToolOf(HWND control, const Tip& tip)
{
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_SUBCLASS | TTF_IDISHWND;
    tool.hwnd = GetParent(control);
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = const_cast<wchar_t*>(tip.text.c_str());
    return tool;
}

// Over a disabled control the mouse speaks to the parent: a second tool covers the control's place there, as long as
// the control is visible.
TTTOOLINFOW PlaceToolOf(HWND control, const Tip& tip)
{
    TTTOOLINFOW tool = ToolOf(control, tip);
    tool.uFlags = TTF_SUBCLASS;
    ++tool.uId; // window handles are even
    if ((GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE) != 0) {
        GetWindowRect(control, &tool.rect);
        MapWindowPoints(nullptr, tool.hwnd, reinterpret_cast<POINT*>(&tool.rect), 2);
    }
    return tool;
}

void Send(HWND control, const Tip& tip, UINT message)
{
    TTTOOLINFOW tool = ToolOf(control, tip);
    SendMessageW(tip.tips, message, 0, reinterpret_cast<LPARAM>(&tool));
    tool = PlaceToolOf(control, tip);
    SendMessageW(tip.tips, message, 0, reinterpret_cast<LPARAM>(&tool));
}

Tip* TipOf(HWND control)
{
    return static_cast<Tip*>(GetPropW(control, kTipProperty));
}

void Drop(HWND control)
{
    if (const std::unique_ptr<Tip> tip{static_cast<Tip*>(RemovePropW(control, kTipProperty))})
        Send(control, *tip, TTM_DELTOOLW);
}

// The tool of the part with that number.
TTTOOLINFOW AreaToolOf(HWND window, std::size_t number, const RECT& area, wchar_t* text)
{
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = window;
    tool.uId = number + 1;
    tool.rect = area;
    tool.lpszText = text;
    return tool;
}

LRESULT CALLBACK TooltipSubclassProc(HWND control, UINT message, WPARAM w, LPARAM l, UINT_PTR id, DWORD_PTR)
{
    const Tip* tip = TipOf(control);
    if (message == WM_WINDOWPOSCHANGED && tip != nullptr) {
        TTTOOLINFOW tool = PlaceToolOf(control, *tip);
        SendMessageW(tip->tips, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&tool));
    } else if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(control, &TooltipSubclassProc, id);
        Drop(control);
    }
    return DefSubclassProc(control, message, w, l);
}

} // namespace

void SetTooltip(HWND control, std::wstring_view text)
{
    if (text.empty())
        return Drop(control);
    if (Tip* tip = TipOf(control)) {
        tip->text = text;
        return Send(control, *tip, TTM_UPDATETIPTEXTW);
    }
    if (!Checked(SetWindowSubclass(control, &TooltipSubclassProc, 0, 0), "SetWindowSubclass"))
        return;
    auto made = std::make_unique<Tip>(Tip{TipsOf(control), std::wstring(text)});
    if (!Checked(SetPropW(control, kTipProperty, made.get()), "SetPropW"))
        return;
    Send(control, *made, TTM_ADDTOOLW);
    [[maybe_unused]] const Tip* kept = made.release(); // freed by Drop
}

void SetThumbTip(HWND slider, std::wstring_view text)
{
    const HWND root = GetAncestor(slider, GA_ROOT);
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE;
    tool.hwnd = root;
    auto tips = static_cast<HWND>(GetPropW(root, kThumbTipsProperty));
    if (tips == nullptr) { // one of its own: the other one follows the mouse
        tips = MakeTips(root);
        Checked(SetPropW(root, kThumbTipsProperty, tips), "SetPropW");
        SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
    std::wstring shown(text);
    tool.lpszText = shown.data();
    RECT thumb{};
    SendMessageW(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
    MapWindowPoints(slider, nullptr, reinterpret_cast<POINT*>(&thumb), 2);
    SendMessageW(tips, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(tips, TTM_TRACKPOSITION, 0, MAKELPARAM(thumb.left, thumb.top - kThumbTipRise));
    SendMessageW(tips, TTM_TRACKACTIVATE, !text.empty(), reinterpret_cast<LPARAM>(&tool));
    SendMessageW(TipsOf(slider), TTM_ACTIVATE, text.empty(), 0); // it would come up too while the mouse rests
}

const wchar_t* TooltipOf(HWND control)
{
    const Tip* tip = TipOf(control);
    return tip != nullptr ? tip->text.c_str() : L"";
}

void SetAreaTips(HWND window, std::span<const AreaTip> tips)
{
    const HWND tooltips = TipsOf(window);
    for (std::size_t i = 0; i < kMaxAreaTips; ++i) {
        TTTOOLINFOW tool = AreaToolOf(window, i, {}, nullptr);
        SendMessageW(tooltips, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool)); // nothing where there is none
    }
    for (std::size_t i = 0; i < std::min(tips.size(), kMaxAreaTips); ++i) {
        TTTOOLINFOW tool = AreaToolOf(window, i, tips[i].area, const_cast<wchar_t*>(tips[i].text.c_str()));
        SendMessageW(tooltips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)); // keeps a copy of the text
    }
}

std::wstring AreaTipAt(HWND window, POINT point)
{
    wchar_t text[256] = L"";
    TTHITTESTINFOW hit{};
    hit.hwnd = window;
    hit.pt = point;
    hit.ti = AreaToolOf(window, 0, {}, text);
    if (!SendMessageW(TipsOf(window), TTM_HITTESTW, 0, reinterpret_cast<LPARAM>(&hit)))
        return {};
    TTTOOLINFOW tool = hit.ti;
    tool.lpszText = text;
    SendMessageW(TipsOf(window), TTM_GETTEXTW, std::size(text), reinterpret_cast<LPARAM>(&tool));
    return text;
}

} // namespace voltaro
