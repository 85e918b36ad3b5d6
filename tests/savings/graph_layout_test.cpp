#include "savings/graph_layout.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace voltaro {
namespace {

// 16 h on: idle 6 h (without savings 1 h, dim 2 h, timed standby 1 h, standby by hand 2 h), active 10 h; off 8 h.
// clang-format off
constexpr DayDurations kDay = {.poweredOn = 57600, .offTotal = 28800, .active = 36000, .idle = 21600,
    .idleWithoutSavings = 3600, .dim = 7200, .standby = 10800, .hibernate = 28800, .shutdown = 179,
    .hibernateUponIdle = 3600, .timedStandby = 3600};
// clang-format on
const GraphLayout kLayout = LayOutGraph(kDay, L"February 29, 2024");

TEST(GraphLayoutTest, SegmentsMarkersAndTexts)
{
    const std::tuple<const wchar_t*, GraphBox, GraphColour> kSegments[] = {
        {L"IDLE", {85, 360, 125, 480}, 0x006000},
        {L"ACTIVE", {85, 160, 125, 360}, 0x8A2A00},
        {L"IDLE without Power Savings", {170, 460, 210, 480}, 0x37E38C},
        {L"DIM (Upon IDLE)", {170, 420, 210, 460}, 0xFFA42D},
        {L"MONITOR OFF (Upon IDLE)", {170, 420, 210, 420}, 0x808080},
        {L"STANDBY (Upon IDLE)", {170, 400, 210, 420}, 0xFF00FF},
        {L"STANDBY (Done Manually)", {170, 360, 210, 400}, 0xA03070},
        {L"HIBERNATE (Upon IDLE)", {170, 340, 210, 360}, 0x0080FF},
        {L"SHUTDOWN (Upon IDLE)", {170, 340, 210, 340}, 0x0000FF},
        {L"ON", {254, 160, 294, 480}, 0x008080},
        {L"OFF  (Done by Voltaro)", {254, 0, 294, 160}, 0x000080},
    };
    ASSERT_EQ(kLayout.segments.size(), std::size(kSegments));
    ASSERT_EQ(kLayout.legend.size(), std::size(kSegments));
    for (std::size_t i = 0; i < std::size(kSegments); ++i) {
        const auto& [state, bar, colour] = kSegments[i];
        EXPECT_EQ(kLayout.segments[i].state, state);
        EXPECT_TRUE(kLayout.segments[i].bar == bar && kLayout.segments[i].colour == colour) << state;
        EXPECT_EQ(kLayout.legend[i].label.text, state);
        EXPECT_EQ(kLayout.legend[i].colour, colour);
    }
    // No monitor off, and 179 s of shutdown are no pixel.
    // clang-format off
    constexpr auto kDashes = GraphPen::DashDot, kSolid = GraphPen::Solid;
    EXPECT_EQ(kLayout.markers, (std::vector<GraphLine>{
        {85, 360, 50, 360, 0x006000, kDashes},   {85, 160, 50, 160, 0x8A2A00, kDashes},
        {170, 460, 125, 460, 0x37E38C, kDashes}, {170, 420, 125, 420, 0xFFA42D, kDashes},
        {170, 400, 125, 400, 0xFF00FF, kDashes}, {170, 360, 125, 360, 0xA03070, kDashes},
        {170, 340, 125, 340, 0x0080FF, kDashes}, {210, 160, 254, 160, 0x008080, kSolid},
        {210, 0, 254, 0, 0x000080, kSolid}}));
    // clang-format on
    const auto has = [](const wchar_t* text, int x, int y) {
        return std::any_of(kLayout.texts.begin(), kLayout.texts.end(),
            [=](const GraphText& t) { return t.text == text && t.x == x && t.y == y; });
    };
    EXPECT_TRUE(has(L"24", 30, -3) && has(L"23", 30, 15) && has(L"0", 30, 475) && has(L"IDLE breakup", 160, 481));
    EXPECT_TRUE(has(L"Graph for VLT Events of Date  :", 380, 15) && has(L"February 29, 2024", 400, 32));
    for (const GraphLegendEntry& entry : kLayout.legend) // below the list, inside the tab
        EXPECT_TRUE(
            entry.swatch.top > 410 && entry.label.y + entry.label.font.height <= 497 && entry.swatch.left >= 345);
}

TEST(GraphLayoutTest, FullEmptyAndImpossibleDays)
{
    const GraphLayout full = LayOutGraph({.poweredOn = 86400, .active = 86400}, L"");
    EXPECT_EQ(full.segments[1].bar.top, 0);
    EXPECT_EQ(full.markers.size(), 3U); // the two of the first column always, and ON
    const GraphLayout wild = LayOutGraph({.active = -90000, .idle = 1'000'000'000'000'000}, L"");
    EXPECT_TRUE(wild.segments[0].bar.top == 0 && wild.segments[1].bar.top == 0);
}

TEST(GraphLayoutTest, TooltipOfASegment)
{
    EXPECT_EQ(
        SegmentTooltip(kLayout.segments[3], kLayout.daySeconds), L"DIM (Upon IDLE)\n2 Hrs : 0 Mins\n8.3 % of the day");
    EXPECT_TRUE(SegmentTooltip(kLayout.segments[3], kLayout.daySeconds, true).ends_with(L"8.3 % of the day so far"));
}

} // namespace
} // namespace voltaro
