#include "savings/graph_view.h"

#include "savings/scripted_day.h"
#include "savings/shown_day.h"
#include "support/pixels.h"
#include "support/program.h"

namespace voltaro {

constexpr int kWidth = 670, kHeight = 497;

// clang-format off
// The durations of the scripted day.
constexpr DayDurations kDay = {.poweredOn = 50400, .offTotal = 36000, .active = 43200, .idle = 7200,
    .idleWithoutSavings = 1800, .dim = 1800, .monitorOff = 3600, .off = 36000, .shutdown = 7200};
// clang-format on

TEST(GraphViewTest, PixelsOfBarsMarkersGridAndAxes)
{
    constexpr COLORREF kGrid = RGB(196, 196, 196), kIdle = RGB(0, 96, 0), kActive = RGB(0, 42, 138);
    constexpr COLORREF kOn = RGB(128, 128, 0), kOff = RGB(128, 0, 0), kNoSavings = RGB(140, 227, 55);
    const auto drawDay = [](HDC dc, void*) { DrawGraph(dc, LayOutGraph(kDay, L"February 29, 2024")); };
    const Pixels pixels(RenderBitmap(kWidth, kHeight, drawDay, nullptr).Get());
    const COLORREF plot = pixels.At(140, 150), face = GetSysColor(COLOR_3DFACE);
    const std::tuple<int, int, COLORREF> kPixels[] = {{105, 440, kIdle}, {105, 439, kActive}, {105, 199, plot},
        {85, 300, kActive}, {84, 300, kGrid}, {124, 301, kActive}, {125, 301, plot}, {319, 20, kGrid}, {320, 20, face},
        {60, 19, plot}, {60, 0, kGrid}, {49, 300, 0}, {50, 300, 0}, {51, 301, plot}, {319, 481, 0}, {320, 481, face}};
    for (const auto& [x, y, colour] : kPixels)
        EXPECT_EQ(pixels.At(x, y), colour) << x << ", " << y;
    EXPECT_TRUE(pixels.CountOf(kOn, 210, 254, 200) == 44 && pixels.CountOf(kOff, 210, 254, 0) == 44) << "solid";
    const int dashes = pixels.CountOf(kNoSavings, 126, 171, 470);
    EXPECT_TRUE(dashes > 15 && dashes < 45) << dashes;
    int caption = 0;
    for (int y = 100; y < 320; ++y)
        caption += pixels.CountOf(RGB(10, 10, 10), 0, 29, y) > 0;
    EXPECT_GT(caption, 50) << "the caption stands upright";
}

struct GraphPageTest : testing::Test, ConsoleProgram {
    const HWND m_page = WindowOf(WindowId::SavingsGraph);
    GraphPageTest()
    {
        shownDay = MakeShownDay({2024, 2, 29}, {kDay, {}, 0, 0}, RoundProfile());
        RefreshGraphPage();
        ShowWindow(WindowOf(WindowId::Savings), SW_SHOWNA);
        BringWindowToTop(m_page); // above the other two
        Pump();
    }
};

TEST_F(GraphPageTest, SegmentsHaveTooltipsAndTheRightButtonCopiesThePage)
{
    EXPECT_EQ(AreaTipAt(m_page, {209, 439}), L"SHUTDOWN (Upon IDLE)\n2 Hrs : 0 Mins\n8.3 % of the day");
    EXPECT_EQ(AreaTipAt(m_page, {105, 199}), L"");
    SendMessageW(m_page, WM_RBUTTONUP, 0, MAKELPARAM(100, 100));
    ASSERT_TRUE(OpenClipboard(nullptr));
    const Pixels copied(static_cast<HBITMAP>(GetClipboardData(CF_BITMAP)));
    CloseClipboard();
    ASSERT_TRUE(copied.Width() == kWidth && copied.Height() == kHeight);
    EXPECT_EQ(copied.At(105, 440), RGB(0, 96, 0));
    EXPECT_GT(copied.CountIn(RGB(0, 0, 0), {545, 85, 650, 270}), 100) << "texts in the second column of the list";

    UpdateWindow(m_page);
    shownDay = MakeShownDay({2024, 2, 29}, {{.active = 43200}, {}, 0, 0}, RoundProfile());
    RefreshGraphPage();
    UpdateWindow(m_page);
    EXPECT_EQ(GetPixel(WindowDc(m_page).Get(), 105, 460), RGB(0, 42, 138)) << "another day";
}

TEST_F(GraphPageTest, UntilADayIsChosenThePagesSayWhatToDo)
{
    shownDay.reset();
    RefreshGraphPage();
    EXPECT_EQ(AreaTipAt(m_page, {209, 439}), L"");
    const auto print = [](HDC dc, void* page) {
        SendMessageW(static_cast<HWND>(page), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    };
    for (const WindowId page : {WindowId::SavingsTotals, WindowId::SavingsEstimates, WindowId::SavingsGraph}) {
        chosenDay = LocalTime{2024, 3, 5}; // of which the agent has nothing
        const Pixels empty(RenderBitmap(kWidth, kHeight, print, WindowOf(page)).Get());
        chosenDay.reset();
        const Pixels pixels(RenderBitmap(kWidth, kHeight, print, WindowOf(page)).Get());
        const auto ink = [](const Pixels& of) { return of.CountIn(RGB(83, 83, 83), {0, 0, kWidth, kHeight}); };
        EXPECT_GT(ink(pixels), 150);
        EXPECT_EQ(ink(empty), 0);
    }
}

} // namespace voltaro
