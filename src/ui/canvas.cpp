#include "ui/canvas.h"

#include "base/error_log.h"
#include "base/system_procedure.h"
#include "ui/theme.h"
#include "ui/visual_style.h"
#include "ui/window_class.h"

#include <algorithm>

namespace voltaro {
namespace {

RECT PlaceIn(HWND window, HWND child)
{
    RECT place;
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// Leaves the visible children out of the copy. The copy goes over the group boxes, which then draw their frames again.
void ExcludeChildren(HWND window, HDC screen, const RECT& painted)
{
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if ((GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE) == 0)
            continue;
        const RECT place = PlaceIn(window, child);
        RECT common;
        if (!IntersectRect(&common, &place, &painted))
            continue;
        if (IsGroupBox(child))
            InvalidateRect(child, nullptr, FALSE);
        else
            ExcludeClipRect(screen, place.left, place.top, place.right, place.bottom);
    }
}

HBITMAP BitmapForClient(HWND window, HDC screen)
{
    RECT client;
    GetClientRect(window, &client);
    return Checked(CreateCompatibleBitmap(screen, std::max(client.right, 1L), std::max(client.bottom, 1L)),
        "CreateCompatibleBitmap");
}

// Copies a bitmap resource into a memory context and lets `copy` bring it to its place.
template <class Copy>
void WithBitmap(HDC dc, int resource, Copy copy)
{
    const HBITMAP bitmap = BitmapOf(resource);
    BITMAP facts;
    if (bitmap == nullptr || Checked(GetObjectW(bitmap, sizeof facts, &facts), "GetObjectW") == 0)
        return;
    const MemoryDc source(dc, bitmap);
    copy(source.Get(), facts.bmWidth, facts.bmHeight);
}

} // namespace

Canvas::Canvas(HWND window)
    : m_window(window)
    , m_screen(Checked(BeginPaint(window, &m_paint), "BeginPaint"))
    , m_bitmap(BitmapForClient(window, m_screen))
    , m_memory(m_screen, m_bitmap.Get())
{
    FillWithGround(window, Dc());
}

Canvas::Canvas(HWND window, HBITMAP picture)
    : m_window(window)
    , m_screen(Checked(BeginPaint(window, &m_paint), "BeginPaint"))
    , m_memory(m_screen, picture)
{
}

Canvas::~Canvas()
{
    const RECT& part = m_paint.rcPaint;
    ExcludeChildren(m_window, m_screen, part);
    BitBlt(m_screen, part.left, part.top, part.right - part.left, part.bottom - part.top, Dc(), part.left, part.top,
        SRCCOPY);
    EndPaint(m_window, &m_paint);
}

UniqueBitmap RenderBitmap(int width, int height, void (*draw)(HDC dc, void* context), void* context, HWND window)
{
    const WindowDc screen(window);
    UniqueBitmap bitmap(Checked(CreateCompatibleBitmap(screen.Get(), width, height), "CreateCompatibleBitmap"));
    const MemoryDc memory(screen.Get(), bitmap.Get());
    const RECT whole{0, 0, width, height};
    FillRect(memory.Get(), &whole, GroundBrush(window));
    draw(memory.Get(), context);
    return bitmap;
}

void DrawBitmap(HDC dc, int resource, int x, int y, int width, int height)
{
    WithBitmap(dc, resource, [=](HDC source, int sourceWidth, int sourceHeight) {
        SetStretchBltMode(dc, HALFTONE);
        SetBrushOrgEx(dc, 0, 0, nullptr);
        StretchBlt(dc, x, y, width, height, source, 0, 0, sourceWidth, sourceHeight, SRCCOPY);
    });
}

void DrawTransparentBitmap(HDC dc, int resource, int x, int y, int width, int height)
{
    static const auto copy = SystemProcedure<decltype(::TransparentBlt)>(L"msimg32.dll", "TransparentBlt");
    if (copy == nullptr || HasHighContrast())
        return DrawBitmap(dc, resource, x, y, width, height);
    WithBitmap(dc, resource, [=](HDC source, int sourceWidth, int sourceHeight) {
        copy(dc, x, y, width, height, source, 0, 0, sourceWidth, sourceHeight, kKeyColour);
    });
}

void DrawTextAt(HDC dc, int x, int y, std::wstring_view text, HFONT font, COLORREF colour)
{
    const SelectGuard selected(dc, font);
    const COLORREF oldColour = SetTextColor(dc, ShownOnFace(colour));
    const int oldMode = SetBkMode(dc, TRANSPARENT);
    TextOutW(dc, x, y, text.data(), static_cast<int>(text.size()));
    SetBkMode(dc, oldMode);
    SetTextColor(dc, oldColour);
}

} // namespace voltaro
