#pragma once

#include "savings/event_walk.h"
#include "savings/report.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace voltaro {

// The day's graph as plain data, in pixels of the tab: 24 hours over 480 pixels, the day's start at the bottom. Draw
// in the order of GraphLayout's members.

using GraphColour = std::uint32_t; // 0x00BBGGRR

inline constexpr int kGraphBottom = 480;
inline constexpr int kSecondsPerPixel = 180;

// A size and weight of the product's font.
struct GraphFont {
    int height = 0; // pixels
    int weight = 0;
};

// How a line is drawn.
enum class GraphPen : std::uint8_t { Solid, DashDot };

// A line one pixel wide. The far end is not part of it.
struct GraphLine {
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    GraphColour colour = 0;
    GraphPen pen = GraphPen::Solid;

    friend bool operator==(const GraphLine&, const GraphLine&) = default;
};

// Right and bottom are not part of it.
struct GraphBox {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    friend bool operator==(const GraphBox&, const GraphBox&) = default;
};

// A text with its top left corner.
struct GraphText {
    int x = 0;
    int y = 0;
    std::wstring text;
    GraphColour colour = 0;
    GraphFont font;
};

// One state's part of its column: a filled bar, empty below kSecondsPerPixel.
struct GraphSegment {
    GraphBox bar;
    GraphColour colour = 0;
    std::wstring_view state;
    std::int64_t seconds = 0;
};

// The pair of colour and state that explains a segment.
struct GraphLegendEntry {
    GraphBox swatch;
    GraphColour colour = 0;
    GraphText label;
};

// Everything that is drawn of one day.
struct GraphLayout {
    std::vector<GraphLine> grid;
    std::vector<GraphSegment> segments; // every state in the order of the columns, bottom up
    std::vector<GraphLine> axes;
    std::vector<GraphLine> markers;
    std::vector<GraphText> texts;
    // Wrapped at its blanks into a box one letter wide, so that it stands upright.
    GraphBox axisCaptionBox;
    GraphText axisCaption;
    std::vector<GraphLegendEntry> legend;
    std::int64_t daySeconds = 0; // the length of the day shown
};

// `date` is the text below the title.
[[nodiscard]] GraphLayout LayOutGraph(const DayDurations& durations, std::wstring_view date);

// What a segment's tooltip says, in three lines: state, hours and minutes, share of the day, or of a day that has not
// ended yet what has passed of it.
[[nodiscard]] std::wstring SegmentTooltip(const GraphSegment& segment, std::int64_t daySeconds, bool soFar = false);

// The list beside the graph: every state and its time.
[[nodiscard]] ReportRows DurationRows(const DayDurations& durations);

// What a tab shows until a day is chosen.
[[nodiscard]] std::array<GraphText, 3> NoDayTexts();

} // namespace voltaro
