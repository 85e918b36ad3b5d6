#include "savings/graph_view.h"

#include "savings/scripted_day.h"
#include "savings/shown_day.h"

namespace voltaro {

// clang-format off
// The durations of the scripted day.
constexpr DayDurations kDay = {.poweredOn = 50400, .offTotal = 36000, .active = 43200, .idle = 7200,
    .idleWithoutSavings = 1800, .dim = 1800, .monitorOff = 3600, .off = 36000, .shutdown = 7200};
// clang-format on

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
    const COLORREF kGrid = RGB(196, 196, 196), kIdle = RGB(0, 96, 0), kActive = RGB(0, 42, 138),
                   plot = copied.At(140, 150);
    const std::tuple<int, int, COLORREF> kPixels[] = {{105, 440, kIdle}, {105, 439, kActive}, {105, 199, plot},
        {85, 300, kActive}, {84, 300, kGrid}, {124, 301, kActive}, {125, 301, plot}, {319, 20, kGrid}, {60, 19, plot},
        {60, 0, kGrid}, {49, 300, 0}, {50, 300, 0}, {51, 301, plot}, {319, 481, 0}};
    for (const auto& [x, y, colour] : kPixels)
        EXPECT_EQ(copied.At(x, y), colour) << x << ", " << y;
    EXPECT_EQ(copied.CountOf(RGB(128, 128, 0), 210, 254, 200), 44) << "solid";
    const int dashes = copied.CountOf(RGB(140, 227, 55), 126, 171, 470);
    EXPECT_TRUE(dashes > 15 && dashes < 45) << dashes;
    EXPECT_GT(copied.CountIn(RGB(10, 10, 10), {0, 100, 29, 320}), 50) << "the caption stands upright";
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
    for (const WindowId page : {WindowId::SavingsTotals, WindowId::SavingsEstimates, WindowId::SavingsGraph}) {
        EXPECT_GT(InkOf(page, RGB(83, 83, 83)), 150);
        chosenDay = LocalTime{2024, 3, 5}; // of which the agent has nothing
        EXPECT_EQ(InkOf(page, RGB(83, 83, 83)), 0);
        chosenDay.reset();
    }
}

} // namespace voltaro
