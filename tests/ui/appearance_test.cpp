#include "savings/savings_window.h"
#include "shell/main_window.h"
#include "support/pixels.h"
#include "support/program.h"

namespace voltaro {

constexpr COLORREF kFace = RGB(0, 0, 64), kOnFace = RGB(255, 255, 0), kGround = RGB(0, 0, 0), kText = RGB(0, 255, 255);

// Turns high contrast with its colours on, or back.
static void TurnContrast(bool on)
{
    constexpr int kIndices[] = {COLOR_3DFACE, COLOR_BTNTEXT, COLOR_WINDOW, COLOR_WINDOWTEXT};
    constexpr COLORREF kDark[] = {kFace, kOnFace, kGround, kText};
    static COLORREF before[4];
    for (std::size_t i = 0; on && i < std::size(before); ++i)
        before[i] = GetSysColor(kIndices[i]);
    platformCalls.hasHighContrast = on ? +[] { return true; } : nullptr;
    SetSysColors(4, kIndices, on ? kDark : before);
    Pump();
}

static Pixels OnScreen(HWND window)
{
    const auto copy = [](HDC dc, void* from) {
        BitBlt(dc, 0, 0, 1000, 800, WindowDc(static_cast<HWND>(from)).Get(), 0, 0, SRCCOPY);
    };
    return Pixels(RenderBitmap(1000, 800, copy, window).Get());
}

// What the screen shows of a window, in front of all others.
static Pixels Seen(HWND window)
{
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    Pump();
    Pixels seen = OnScreen(window);
    SetWindowPos(window, HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_HIDEWINDOW);
    return seen;
}

static int CountIn(const Pixels& pixels, HWND window, HWND control, COLORREF colour)
{
    RECT place;
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
    return pixels.CountIn(colour, place);
}

struct Appearance : testing::Test, LoadedProgram {
    Appearance()
    {
        constexpr DayDurations kDay = {.poweredOn = 50400, .offTotal = 36000, .active = 43200, .idle = 7200};
        shownDay = MakeShownDay({2024, 2, 29}, {kDay, {}, 0, 0}, savedProfile);
        OpenSavingsWindow(main);
        RecomputeSavings();
        ClickTab(FindWindowExW(m_savings, nullptr, WC_TABCONTROLW, nullptr), 2);
    }
    // Every top-level window with its title.
    template <class Use>
    static void ForEachWindow(Use use)
    {
        for (std::size_t i = 0; i < kWindowCount; ++i) {
            SCOPED_TRACE(WindowRowOf(i).title);
            if ((WindowRowOf(i).style & WS_CHILD) == 0)
                use(WindowOf(WindowRowOf(i).id));
        }
    }
    const HWND m_savings = WindowOf(WindowId::Savings);
};

TEST_F(Appearance, HighContrastTakesEveryTextOfEveryWindow)
{
    TurnContrast(true);
    int texts = 0;
    ForEachWindow([&](HWND window) {
        const Pixels pixels = Seen(window);
        for (HWND at = GetTopWindow(window); at != nullptr; at = GetWindow(at, GW_HWNDNEXT)) {
            const bool plain = ClassOf(at) == WC_STATICW && IsShown(at) && IsEnabled(at) && !WindowText(at).empty();
            if (plain && CountIn(pixels, window, at, kFace) > 0) {
                ++texts;
                EXPECT_GT(CountIn(pixels, window, at, kOnFace), 5) << WindowText(at);
            }
        }
    });
    EXPECT_GT(texts, 45);
    TurnContrast(false);
}

TEST_F(Appearance, PaintedWindowsFollowHighContrastLiveAndBack)
{
    const HWND graph = WindowOf(WindowId::SavingsGraph), list = ControlOf(main, kSavingsList);
    const HWND durations = FindWindowExW(graph, nullptr, WC_LISTVIEWW, nullptr);
    const auto look = [&](bool high) {
        const Pixels seen = Seen(main);
        EXPECT_EQ(CountIn(seen, main, list, kProductGreen) > 1000, !high);
        EXPECT_EQ(CountIn(seen, main, list, kText) > 50, high);
        EXPECT_GT(seen.CountIn(high ? kOnFace : kTextGreen, {165, 470, 490, 500}), 50) << "the notice at the bottom";
        ShowWindow(m_savings, SW_SHOWNA);
        const Pixels page = Seen(graph);
        EXPECT_EQ(page.At(140, 150), high ? kGround : RGB(252, 252, 252));
        EXPECT_EQ(page.At(105, 460), RGB(0, 96, 0)) << "a state keeps its colour";
        EXPECT_EQ(page.At(49, 300), high ? kText : RGB(0, 0, 0)) << "axis";
        EXPECT_GT(CountIn(page, graph, durations, high ? kText : RGB(0, 0, 0)), 100);
        EXPECT_EQ(CountIn(page, graph, durations, RGB(247, 247, 247)) > 1000, !high);
        EXPECT_EQ(ListView_GetTextBkColor(durations), high ? kGround : RGB(247, 247, 247));
        ShowWindow(graph, SW_SHOWNA);
    };
    look(false);
    TurnContrast(true);
    look(true);
    TurnContrast(false);
    look(false);
    platformCalls.hasHighContrast = [] { return true; };
    SendMessageW(m_savings, WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
    EXPECT_EQ(ListView_GetBkColor(durations), GetSysColor(COLOR_WINDOW)) << "told by the setting alone";
}

TEST_F(Appearance, EveryWindowOpensInReachOfASmallScreen)
{
    platformCalls.screenOf = [](HWND) {
        return MONITORINFO{sizeof(MONITORINFO), {0, 0, 800, 600}, {0, 0, 800, 560}, 0};
    };
    for (const POINT at : {POINT{700, 300}, {-3000, -50}}) {
        ForEachWindow([&](HWND window) {
            ShowWindow(window, SW_HIDE);
            SetWindowPos(window, nullptr, at.x, at.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
            ShowWindow(window, SW_SHOWNA);
            for (int i = 0; i < 2; ++i) { // opened, then moved before the screen changes
                RECT place;
                GetWindowRect(window, &place);
                EXPECT_TRUE(place.left >= 0 && place.right <= 800 && place.top >= 0);
                EXPECT_TRUE(place.bottom <= 560 || place.top == 0);
                SetWindowPos(window, nullptr, at.x, at.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
                SendMessageW(window, WM_DISPLAYCHANGE, 0, 0);
            }
            ShowWindow(window, SW_HIDE);
        });
    }
}

TEST_F(Appearance, TabPagesTakeTheColourOfTheTabsBody)
{
    platformCalls.tabBodyColour = []() -> std::optional<COLORREF> { return RGB(250, 249, 248); };
    const HWND page = WindowOf(WindowId::SavingsTotals);
    SendMessageW(m_savings, WM_THEMECHANGED, 0, 0);
    EXPECT_EQ(Seen(page).At(3, 3), RGB(250, 249, 248));
    const WindowDc dc(nullptr);
    for (const auto& [labels, brush] : {std::pair(page, BrushOf(RGB(250, 249, 248))), {m_savings, FaceBrush()}})
        EXPECT_EQ(
            reinterpret_cast<HBRUSH>(SendMessageW(labels, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc.Get()), 0)),
            brush);
    platformCalls.tabBodyColour = nullptr;
    SendMessageW(m_savings, WM_THEMECHANGED, 0, 0);
}

TEST(Canvas, PaintsAroundControlsButUnderGroupBoxes)
{
    constexpr Control kRows[] = {{Kind::GroupBox, 1, L"", 20, 20, 200, 100}, {Kind::Progress, 2, L"", 40, 50, 100, 40},
        {Kind::Push, 3, L"", 40, 140, 100, 40, kHidden}};
    COLORREF colour = 0;
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
        const Pixels seen = OnScreen(window.Get());
        for (const auto& [x, y] : {POINT{12, 12}, {200, 100}, {50, 150}}) // plain, in the group box, a hidden control
            EXPECT_EQ(seen.At(x, y), colour) << x;
        EXPECT_EQ(seen.At(5, 5), GetSysColor(COLOR_3DFACE));
        EXPECT_NE(seen.At(90, 70), colour) << "a control";
        EXPECT_LT(seen.CountIn(colour, {120, 110, 121, 122}), 12) << "the frame of the group box";
    }
}

} // namespace voltaro
