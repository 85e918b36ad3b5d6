#include "ui/theme.h"

#include "base/handles.h"
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

} // namespace

HFONT FontOf(int height, int weight)
{
    static std::map<std::pair<int, int>, UniqueFont> fonts;
    return Cached(fonts, std::pair(height, weight), [=] {
        return CreateFontW(height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS,
            CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, VARIABLE_PITCH | FF_SWISS, L"Arial");
    });
}

HFONT WindowFont()
{
    return FontOf(15, FW_LIGHT);
}

HBRUSH BrushOf(COLORREF colour)
{
    static std::map<COLORREF, UniqueBrush> brushes;
    return Cached(brushes, colour, [=] { return CreateSolidBrush(colour); });
}

HPEN PenOf(int style, COLORREF colour)
{
    static std::map<std::pair<int, COLORREF>, UniquePen> pens;
    return Cached(pens, std::pair(style, colour), [=] { return CreatePen(style, 1, colour); });
}

HBRUSH FaceBrush()
{
    return GetSysColorBrush(COLOR_3DFACE);
}

HBITMAP BitmapOf(int resource)
{
    // As a section of plain colours: a bitmap of the screen's depth could round the key colour.
    static std::map<int, UniqueBitmap> bitmaps;
    return Cached(bitmaps, resource, [=] {
        return static_cast<HBITMAP>(
            LoadImageW(Instance(), MAKEINTRESOURCEW(resource), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    });
}

// Icons are shared: the system keeps them and destroys them with the process. A program without resources (a test)
// gets the system's own icon.
HICON SmallIcon(int resource)
{
    const HANDLE icon = LoadImageW(Instance(), MAKEINTRESOURCEW(resource), IMAGE_ICON, 16, 16, LR_SHARED);
    return icon != nullptr ? static_cast<HICON>(icon) : LoadIconW(nullptr, IDI_APPLICATION);
}

HICON LargeIcon(int resource)
{
    const HICON icon = LoadIconW(Instance(), MAKEINTRESOURCEW(resource));
    return icon != nullptr ? icon : LoadIconW(nullptr, IDI_APPLICATION);
}

} // namespace voltaro
