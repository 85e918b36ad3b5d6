#include "shell/letterhead.h"

#include "resources/resource_ids.h"
#include "ui/canvas.h"
#include "ui/theme.h"
#include "ui/window_class.h"

namespace voltaro {

void DrawLetterhead(HDC dc)
{
    DrawTransparentBitmap(dc, IDB_EMBLEM, 20, 15, 65, 65);
    DrawTransparentBitmap(dc, IDB_WORDMARK_LARGE, 395, 25, 155, 48);
    DrawTextAt(dc, 553, 55, L"TM", WindowFont(), kTextGreen);
}

std::optional<LRESULT> AnswerLetterhead(HWND window, UINT message, WPARAM w, LPARAM)
{
    switch (message) {
    case WM_PAINT: DrawLetterhead(Canvas(window).Dc()); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_PRINTCLIENT: {
        const auto dc = reinterpret_cast<HDC>(w);
        FillWithGround(window, dc);
        DrawLetterhead(dc);
        return 0;
    }
    default: return std::nullopt;
    }
}

} // namespace voltaro
