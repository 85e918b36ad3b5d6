#include "savings/graph_layout.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace voltaro {
namespace {

// 16 h on: idle 6 h (without savings 1 h, dim 2 h, timed standby 1 h, standby by hand 2 h), active 10 h; off 8 h.
constexpr DayDurations kDay = {.poweredOn = 57600,
    .offInAll = 28800,
    .active = 36000,
    .idle = 21600,
    .idleWithoutSavings = 3600,
    .dim = 7200,
    .standby = 10800,
    .hibernate = 28800,
    .shutdown = 179,
    .hibernateUponIdle = 3600,
    .timedStandby = 3600};

TEST(GraphLayoutTest, SegmentsAndMarkers)
{
    const GraphLayout layout = LayOutGraph(kDay, L"February 29, 2024");
    const struct {
        const wchar_t* state;
        int left, top, right, bottom;
        GraphColour colour;
        int markerFrom, markerTo; // no marker where both are 0
        GraphPen pen;
    } kSegments[] = {
        {L"IDLE", 85, 360, 125, 480, 0x006000, 85, 50, GraphPen::DashDot},
        {L"ACTIVE", 85, 160, 125, 360, 0x8A2A00, 85, 50, GraphPen::DashDot},
        {L"IDLE without Power Savings", 170, 460, 210, 480, 0x37E38C, 170, 125, GraphPen::DashDot},
        {L"DIM (Upon IDLE)", 170, 420, 210, 460, 0xFFA42D, 170, 125, GraphPen::DashDot},
        {L"MONITOR OFF (Upon IDLE)", 170, 420, 210, 420, 0x808080, 0, 0, GraphPen::DashDot},
        {L"STANDBY (Upon IDLE)", 170, 400, 210, 420, 0xFF00FF, 170, 125, GraphPen::DashDot},
        {L"STANDBY (Done Manually)", 170, 360, 210, 400, 0xA03070, 170, 125, GraphPen::DashDot},
        {L"HIBERNATE (Upon IDLE)", 170, 340, 210, 360, 0x0080FF, 170, 125, GraphPen::DashDot},
        {L"SHUTDOWN (Upon IDLE)", 170, 340, 210, 340, 0x0000FF, 0, 0, GraphPen::DashDot}, // 179 s are no pixel
        {L"ON", 254, 160, 294, 480, 0x008080, 210, 254, GraphPen::Solid},
        {L"OFF  (Done by Voltaro)", 254, 0, 294, 160, 0x000080, 210, 254, GraphPen::Solid},
    };
    ASSERT_EQ(layout.segments.size(), std::size(kSegments));
    ASSERT_EQ(layout.legend.size(), std::size(kSegments));
    std::size_t marker = 0;
    for (std::size_t i = 0; i < std::size(kSegments); ++i) {
        const auto& row = kSegments[i];
        SCOPED_TRACE(row.state);
        const GraphSegment& segment = layout.segments[i];
        EXPECT_EQ(segment.state, row.state);
        EXPECT_EQ(segment.bar.left, row.left);
        EXPECT_EQ(segment.bar.top, row.top);
        EXPECT_EQ(segment.bar.right, row.right);
        EXPECT_EQ(segment.bar.bottom, row.bottom);
        EXPECT_EQ(segment.colour, row.colour);
        EXPECT_EQ(layout.legend[i].colour, row.colour);
        EXPECT_EQ(layout.legend[i].label.text, row.state);
        if (row.markerFrom == 0)
            continue;
        ASSERT_LT(marker, layout.markers.size());
        const GraphLine& line = layout.markers[marker++];
        EXPECT_EQ(line.x1, row.markerFrom);
        EXPECT_EQ(line.x2, row.markerTo);
        EXPECT_EQ(line.y1, row.top);
        EXPECT_EQ(line.y2, row.top);
        EXPECT_EQ(line.colour, row.colour);
        EXPECT_EQ(line.pen, row.pen);
    }
    EXPECT_EQ(marker, layout.markers.size());
}

TEST(GraphLayoutTest, ScaleAndTexts)
{
    const GraphLayout layout = LayOutGraph(kDay, L"February 29, 2024");
    ASSERT_EQ(layout.grid.size(), 25U);
    EXPECT_EQ(layout.grid[24].y1, 480);
    const auto has = [&layout](const wchar_t* text, int x, int y) {
        return std::any_of(layout.texts.begin(), layout.texts.end(),
            [=](const GraphText& t) { return t.text == text && t.x == x && t.y == y; });
    };
    EXPECT_TRUE(has(L"24", 30, -3));
    EXPECT_TRUE(has(L"23", 30, 15));
    EXPECT_TRUE(has(L"0", 30, 475));
    EXPECT_TRUE(has(L"Graph for VLT Events of Date  :", 380, 15));
    EXPECT_TRUE(has(L"February 29, 2024", 400, 32));
    EXPECT_TRUE(has(L"IDLE breakup", 160, 481));
    for (const GraphLegendEntry& entry : layout.legend) // below the list, inside the tab
        EXPECT_TRUE(
            entry.swatch.top > 410 && entry.label.y + entry.label.font.height <= 497 && entry.swatch.left >= 345);
}

TEST(GraphLayoutTest, FullEmptyAndImpossibleDays)
{
    const GraphLayout full = LayOutGraph({.poweredOn = 86400, .active = 86400}, L"");
    EXPECT_EQ(full.segments[1].bar.top, 0);
    EXPECT_EQ(full.markers.size(), 3U); // the two of the first column always, and ON
    const GraphLayout wild = LayOutGraph({.active = -90000, .idle = 1'000'000'000'000'000}, L"");
    EXPECT_EQ(wild.segments[0].bar.top, 0);
    EXPECT_EQ(wild.segments[1].bar.top, 0);
}

TEST(GraphLayoutTest, TooltipsOfTheSegmentUnderThePoint)
{
    const GraphLayout layout = LayOutGraph(kDay, L"");
    const GraphSegment* dim = SegmentAt(layout, 170, 459);
    ASSERT_NE(dim, nullptr);
    EXPECT_EQ(SegmentTooltip(*dim, layout.daySeconds), L"DIM (Upon IDLE)\n2 Hrs : 0 Mins\n8.3 % of the day");
    EXPECT_EQ(SegmentAt(layout, 209, 460)->state, L"IDLE without Power Savings");
    EXPECT_EQ(SegmentAt(layout, 210, 460), nullptr);
    EXPECT_EQ(SegmentAt(layout, 170, 480), nullptr);
    EXPECT_EQ(SegmentAt(layout, 85, 159), nullptr);
}

} // namespace
} // namespace voltaro
