#include "savings/graph_layout.h"

#include "base/text.h"
#include "savings/decimal.h"

#include <algorithm>

namespace voltaro {
namespace {

constexpr GraphColour Rgb(unsigned red, unsigned green, unsigned blue)
{
    return red | green << 8 | blue << 16;
}

// A column of bars: its place, its caption, and the line that marks the top of each of its segments.
struct Column {
    int left;
    int right;
    const wchar_t* caption;
    int captionX;
    int markerFrom;
    int markerTo;
    GraphPen markerPen;
    bool marksEmpty; // a marker for segments without height too
    int legendX;
};

struct State {
    std::size_t column;
    const wchar_t* name;
    GraphColour colour;
    std::int64_t (*seconds)(const DayDurations& d);
};

using D = DayDurations;
// clang-format off
// The first column's markers lead to the hours, the second's back to the idle bar that it breaks up.
constexpr Column kColumns[] = {
    { 85, 125, L"IDLE / ACTIVE",  72,  85,  50, GraphPen::DashDot, true,  535},
    {170, 210, L"IDLE breakup",  160, 170, 125, GraphPen::DashDot, false, 345},
    {254, 294, L"OFF / ON",      252, 210, 254, GraphPen::Solid,   false, 535},
};

// Bottom up. The two blanks after OFF are known to users.
constexpr State kStates[] = {
    {0, L"IDLE",                       Rgb(0, 96, 0),     [](const D& d) { return d.idle; }},
    {0, L"ACTIVE",                     Rgb(0, 42, 138),   [](const D& d) { return d.active; }},
    {1, L"IDLE without Power Savings", Rgb(140, 227, 55), [](const D& d) { return d.idleWithoutSavings; }},
    {1, L"DIM (Upon IDLE)",            Rgb(45, 164, 255), [](const D& d) { return d.dim; }},
    {1, L"MONITOR OFF (Upon IDLE)",    Rgb(128, 128, 128), [](const D& d) { return d.monitorOff; }},
    {1, L"STANDBY (Upon IDLE)",        Rgb(255, 0, 255),  [](const D& d) { return d.timedStandby; }},
    {1, L"STANDBY (Done Manually)",    Rgb(112, 48, 160), [](const D& d) { return d.standby - d.timedStandby; }},
    {1, L"HIBERNATE (Upon IDLE)",      Rgb(255, 128, 0),  [](const D& d) { return d.hibernateUponIdle; }},
    {1, L"SHUTDOWN (Upon IDLE)",       Rgb(255, 0, 0),    [](const D& d) { return d.shutdown; }},
    {2, L"ON",                         Rgb(128, 128, 0),  [](const D& d) { return d.poweredOn; }},
    {2, L"OFF  (Done by Voltaro)",     Rgb(128, 0, 0),    [](const D& d) { return d.offTotal; }},
};
// clang-format on

constexpr GraphColour kTitleColour = Rgb(83, 83, 83);
constexpr GraphColour kTextColour = Rgb(10, 10, 10);
constexpr GraphColour kCaptionColour = Rgb(33, 133, 33);
constexpr GraphColour kGridColour = Rgb(196, 196, 196);
constexpr GraphColour kAxisColour = Rgb(0, 0, 0);

constexpr GraphFont kTitleFont = {15, 600};
constexpr GraphFont kCaptionFont = {14, 300};
constexpr GraphFont kLabelFont = {12, 400};
constexpr GraphFont kLegendFont = {11, 400};

constexpr int kHours = 24;
constexpr int kHourPixels = kGraphBottom / kHours;
constexpr int kAxisLeft = 50;
constexpr int kAxisRight = 320;
constexpr int kAxisY = 481;

// The legend stands below the list of durations, the idle breakup on its left.
constexpr int kLegendTop = 413;
constexpr int kLegendPitch = 12;
constexpr int kSwatchSize = 9;
constexpr int kSwatchGap = 5;

// Overlapping events can make a column higher than the day and a part negative; neither leaves the graph.
int TopAbove(int top, std::int64_t seconds)
{
    const std::int64_t height = std::clamp<std::int64_t>(seconds / kSecondsPerPixel, 0, top);
    return top - static_cast<int>(height);
}

void AddGrid(GraphLayout& layout)
{
    for (int hour = 0; hour <= kHours; ++hour) {
        const int y = hour * kHourPixels;
        layout.grid.push_back({kAxisLeft, y, kAxisRight, y, kGridColour});
        // The topmost label keeps clear of the tab's edge.
        const int labelY = hour == 0 ? -3 : y - 5;
        layout.texts.push_back({30, labelY, NumberText(kHours - hour), kTextColour, kLabelFont});
    }
}

void AddAxes(GraphLayout& layout)
{
    layout.axes = {
        {kAxisLeft, kAxisY, kAxisRight, kAxisY, kAxisColour},
        {kAxisLeft, 485, kAxisLeft, 0, kAxisColour},
        {kAxisLeft - 1, 485, kAxisLeft - 1, 0, kAxisColour},
    };
    layout.axisCaptionBox = {10, 95, 20, 325};
    layout.axisCaption = {10, 95, L"^ |  |  |  H O U R S |  |  |", kTextColour, kLabelFont};
}

void AddTitles(GraphLayout& layout, std::wstring_view date)
{
    layout.texts.push_back({380, 15, L"Graph for VLT Events of Date  :", kTitleColour, kTitleFont});
    layout.texts.push_back({400, 32, std::wstring(date), kTextColour, kTitleFont});
    for (const Column& column : kColumns)
        layout.texts.push_back({column.captionX, kAxisY, column.caption, kCaptionColour, kCaptionFont});
}

void AddSegments(GraphLayout& layout, const DayDurations& durations)
{
    int tops[std::size(kColumns)];
    std::fill(std::begin(tops), std::end(tops), kGraphBottom);
    for (const State& state : kStates) {
        const Column& column = kColumns[state.column];
        const std::int64_t seconds = state.seconds(durations);
        const int bottom = tops[state.column];
        const int top = TopAbove(bottom, seconds);
        tops[state.column] = top;
        layout.segments.push_back({{column.left, top, column.right, bottom}, state.colour, state.name, seconds});
        if (column.marksEmpty || seconds >= kSecondsPerPixel)
            layout.markers.push_back({column.markerFrom, top, column.markerTo, top, state.colour, column.markerPen});
    }
}

void AddLegend(GraphLayout& layout)
{
    int nextLeftY = kLegendTop;
    int nextRightY = kLegendTop;
    const int leftX = kColumns[1].legendX;
    for (const State& state : kStates) {
        const int x = kColumns[state.column].legendX;
        int& nextY = x == leftX ? nextLeftY : nextRightY;
        const GraphBox swatch = {x, nextY + 1, x + kSwatchSize, nextY + 1 + kSwatchSize};
        layout.legend.push_back(
            {swatch, state.colour, {swatch.right + kSwatchGap, nextY, state.name, kTextColour, kLegendFont}});
        nextY += kLegendPitch;
    }
}

} // namespace

GraphLayout LayOutGraph(const DayDurations& durations, std::wstring_view date)
{
    GraphLayout layout;
    layout.daySeconds = durations.poweredOn + durations.offTotal;
    AddGrid(layout);
    AddAxes(layout);
    AddTitles(layout, date);
    AddSegments(layout, durations);
    AddLegend(layout);
    return layout;
}

std::wstring SegmentTooltip(const GraphSegment& segment, std::int64_t daySeconds, bool soFar)
{
    const double share
        = daySeconds > 0 ? static_cast<double>(segment.seconds) * 100.0 / static_cast<double>(daySeconds) : 0;
    return std::wstring(segment.state) + L"\n" + HoursMinutesText(segment.seconds) + L"\n" + DecimalText(share, 1)
        + (soFar ? L" % of the day so far" : L" % of the day");
}

ReportRows DurationRows(const DayDurations& durations)
{
    ReportRows rows;
    for (const State& state : kStates)
        rows.push_back({state.name, HoursMinutesText(state.seconds(durations))});
    return rows;
}

std::array<GraphText, 3> NoDayTexts()
{
    return {{
        {260, 35, L"Please select the date on which", kTitleColour, kTitleFont},
        {260, 55, L"Power savings report and graph is to be viewed ---->", kTitleColour, kTitleFont},
        {260, 80, L"Enter shows the day that stands there.", kTitleColour, kLabelFont},
    }};
}

} // namespace voltaro
