#include "ui/canvas.h"

#include "support/test_window.h"
#include "ui/controls.h"
#include "ui/theme.h"

#include <gtest/gtest.h>

namespace voltaro {

constexpr COLORREF kRed = RGB(200, 0, 0);

static COLORREF PixelOnScreen(HWND window, int x, int y)
{
    const HDC dc = GetDC(window);
    const COLORREF colour = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return colour;
}

TEST(Canvas, PaintsAroundControlsButUnderGroupBoxes)
{
    constexpr Control kRows[] = {{Kind::GroupBox, 1, L"", 20, 20, 200, 100}, {Kind::Progress, 2, L"", 40, 50, 100, 40},
        {Kind::Push, 3, L"", 40, 140, 100, 40, kHidden}};
    COLORREF colour = kRed;
    const TestWindow window([&](HWND self, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_ERASEBKGND)
            return 1;
        if (message != WM_PAINT)
            return std::nullopt;
        const Canvas canvas(self);
        const RECT part{10, 10, 300, 200};
        FillRect(canvas.Dc(), &part, BrushOf(colour));
        return 0;
    });
    CreateControls(window.Get(), kRows, WindowFont());
    for (int round = 0; round < 3; ++round) {
        colour = RGB(200, 60 * round, 0);
        RedrawWindow(window.Get(), nullptr, nullptr, RDW_INVALIDATE | (round < 2 ? RDW_ALLCHILDREN : RDW_NOCHILDREN));
        Pump();
        for (const auto& [x, y] : {POINT{12, 12}, {200, 100}, {50, 150}}) // plain, in the group box, a hidden control
            EXPECT_EQ(PixelOnScreen(window.Get(), x, y), colour) << x;
        EXPECT_EQ(PixelOnScreen(window.Get(), 5, 5), GetSysColor(COLOR_3DFACE));
        EXPECT_NE(PixelOnScreen(window.Get(), 90, 70), colour) << "a control";
        int frame = 0;
        for (int y = 110; y < 122; ++y)
            frame += PixelOnScreen(window.Get(), 120, y) != colour;
        EXPECT_GT(frame, 0) << "the frame of the group box";
    }
}

} // namespace voltaro
