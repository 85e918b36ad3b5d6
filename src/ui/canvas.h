#pragma once

#include "base/error_log.h"
#include "base/handles.h"

#include <string_view>

namespace voltaro {

// The device context of a window, or of the screen without one.
class WindowDc {
public:
    explicit WindowDc(HWND window)
        : m_window(window)
        , m_dc(Checked(GetDC(window), "GetDC"))
    {
    }
    ~WindowDc() { ReleaseDC(m_window, m_dc); }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    [[nodiscard]] HDC Get() const { return m_dc; }

private:
    HWND m_window;
    HDC m_dc;
};

// Selects an object into a device context and restores the old one.
class SelectGuard {
public:
    SelectGuard(HDC dc, HGDIOBJ object)
        : m_dc(dc)
        , m_old(dc && object ? Checked(SelectObject(dc, object), "SelectObject") : nullptr)
    {
    }
    ~SelectGuard()
    {
        if (m_old)
            Checked(SelectObject(m_dc, m_old), "SelectObject");
    }
    SelectGuard(const SelectGuard&) = delete;
    SelectGuard& operator=(const SelectGuard&) = delete;

private:
    HDC m_dc;
    HGDIOBJ m_old;
};

// A memory context like another one, that paints on a bitmap or is copied from it. The caller keeps the bitmap.
class MemoryDc {
public:
    MemoryDc(HDC like, HBITMAP bitmap)
        : m_dc(Checked(CreateCompatibleDC(like), "CreateCompatibleDC"))
        , m_bitmap(m_dc.Get(), bitmap)
    {
    }
    [[nodiscard]] HDC Get() const { return m_dc.Get(); }

private:
    UniqueMemoryDc m_dc;
    SelectGuard m_bitmap; // restores the old one before the context goes
};

// Between BeginPaint and EndPaint of a window: Dc() is a memory bitmap filled with the window's ground; the destructor
// copies it to the window once, around the child controls (but group boxes, which let their parent shine through), so
// that nothing flickers. A window that paints with it answers WM_ERASEBKGND with 1.
class Canvas {
public:
    explicit Canvas(HWND window);
    // The same with a picture of the whole client area that was drawn before, which the caller keeps: there is only the
    // copy left.
    Canvas(HWND window, HBITMAP picture);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    [[nodiscard]] HDC Dc() const { return m_memory.Get(); }

private:
    HWND m_window;
    PAINTSTRUCT m_paint{};
    HDC m_screen;
    UniqueBitmap m_bitmap;
    MemoryDc m_memory;
};

// A memory bitmap of the given size with the ground of a window, on which `draw` paints: for copying a picture and for
// tests that look at pixels. It is made for the window's own context, whose scale it shares; without one the screen's.
[[nodiscard]] UniqueBitmap RenderBitmap(
    int width, int height, void (*draw)(HDC dc, void* context), void* context, HWND window = nullptr);

// Draws a bitmap resource at its place and size in pixels; the transparent form leaves out the key colour, but with
// high contrast, where the picture keeps the ground that it was drawn for.
void DrawBitmap(HDC dc, int resource, int x, int y, int width, int height);
void DrawTransparentBitmap(HDC dc, int resource, int x, int y, int width, int height);

// Text at a point of the window's ground, in the given font and, but with high contrast, colour.
void DrawTextAt(HDC dc, int x, int y, std::wstring_view text, HFONT font, COLORREF colour);

} // namespace voltaro
