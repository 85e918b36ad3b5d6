#include "shell/window_header.h"

#include "resources/resource_ids.h"
#include "ui/canvas.h"
#include "ui/theme.h"
#include "ui/window_class.h"

namespace voltaro {

void DrawHeader(HDC dc)
{
    DrawTransparentBitmap(dc, IDB_EMBLEM, 20, 15, 65, 65);
    DrawTransparentBitmap(dc, IDB_WORDMARK_LARGE, 395, 25, 155, 48);
    DrawTextAt(dc, 553, 55, L"TM", WindowFont(), kTextGreen);
}

std::optional<LRESULT> AnswerHeader(HWND window, UINT message, WPARAM w, LPARAM)
{
    switch (message) {
    case WM_PAINT: DrawHeader(Canvas(window).Dc()); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_PRINTCLIENT: {
        const auto dc = reinterpret_cast<HDC>(w);
        FillWithGround(window, dc);
        DrawHeader(dc);
        return 0;
    }
    default: return std::nullopt;
    }
}

} // namespace voltaro
