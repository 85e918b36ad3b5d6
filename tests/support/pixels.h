#pragma once

#include "ui/canvas.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace voltaro {

// The colours of a bitmap, read once.
class Pixels {
public:
    explicit Pixels(HBITMAP bitmap)
    {
        BITMAP facts{};
        GetObjectW(bitmap, sizeof facts, &facts);
        m_width = facts.bmWidth;
        m_height = facts.bmHeight;
        m_units.resize(static_cast<std::size_t>(m_width * m_height));
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, m_width, -m_height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        const HDC dc = GetDC(nullptr);
        GetDIBits(dc, bitmap, 0, static_cast<UINT>(m_height), m_units.data(), &info, DIB_RGB_COLORS);
        ReleaseDC(nullptr, dc);
    }
    [[nodiscard]] int Width() const { return m_width; }
    [[nodiscard]] int Height() const { return m_height; }
    [[nodiscard]] COLORREF At(int x, int y) const
    {
        const std::uint32_t unit = m_units[static_cast<std::size_t>(y * m_width + x)];
        return RGB(unit >> 16 & 0xFF, unit >> 8 & 0xFF, unit & 0xFF);
    }
    // How many pixels of an area, as far as it is in the bitmap, have that colour.
    [[nodiscard]] int CountIn(COLORREF colour, const RECT& area) const
    {
        int count = 0;
        for (int y = std::max<int>(area.top, 0); y < std::min<int>(area.bottom, m_height); ++y) {
            for (int x = std::max<int>(area.left, 0); x < std::min<int>(area.right, m_width); ++x)
                count += At(x, y) == colour;
        }
        return count;
    }

private:
    int m_width;
    int m_height;
    std::vector<std::uint32_t> m_units;
};

// Whether a picture of the program stands at a place of a page.
inline bool Shows(const Pixels& page, int resource, const RECT& at)
{
    const int width = at.right - at.left, height = at.bottom - at.top;
    std::tuple wanted(resource, width, height);
    const auto draw = [](HDC dc, void* what) {
        const auto& [id, w, h] = *static_cast<decltype(wanted)*>(what);
        DrawTransparentBitmap(dc, id, 0, 0, w, h);
    };
    const Pixels picture(RenderBitmap(width, height, draw, &wanted).Get());
    bool same = true;
    for (int i = 0; i < width * height; ++i)
        same &= picture.At(i % width, i / width) == page.At(at.left + i % width, at.top + i / width);
    return same;
}

} // namespace voltaro
