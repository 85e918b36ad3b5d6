// The event graph: three columns of bars that make up the day, their legend, and the list of durations beside them. A
// page of the savings window.
#include "savings/graph_view.h"

#include "console/windows.h"
#include "savings/report_style.h"
#include "savings/shown_day.h"
#include "ui/canvas.h"
#include "ui/clipboard.h"
#include "ui/controls.h"
#include "ui/theme.h"
#include "ui/tooltip.h"
#include "ui/window_class.h"

#include <vector>

namespace voltaro {
namespace {

constexpr int kPageWidth = 670;
constexpr int kPageHeight = 497;
constexpr int kDurations = 101;
constexpr UINT_PTR kCopyNoteTimer = 1;
constexpr UINT kCopyNoteMs = 2'000;

// clang-format off
constexpr Control kControls[] = {
    {Kind::ListView, kDurations, L"Events Graph List", 345, 60, 315, 350, kHidden, L"Event Graph"},
};
constexpr Column kColumns[] = {
    {kDurationColumns[0].data(), 195},
    {kDurationColumns[1].data(), 120},
};
// Told for a moment after the picture was copied.
constexpr struct {
    int x, y;
    const wchar_t* text;
} kCopyNote = {535, 481, L"Copied as a picture"};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, kPageWidth, kPageHeight));

constexpr COLORREF kPlotColour = RGB(252, 252, 252);
constexpr COLORREF kFrameColour = RGB(160, 160, 160);

bool copyNoteShown = false;

// The page as it was painted last. A repaint is one copy of it, however much there is to draw.
UniqueBitmap picture;

RECT RectOf(const GraphBox& box)
{
    return {box.left, box.top, box.right, box.bottom};
}

// The colour of a state is what it is known by: it stays with high contrast, in a frame that stands out from the
// ground.
void DrawState(HDC dc, const GraphBox& box, GraphColour colour)
{
    const RECT place = RectOf(box);
    FillRect(dc, &place, BrushOf(colour));
    if (HasHighContrast() && box.top < box.bottom)
        FrameRect(dc, &place, GetSysColorBrush(COLOR_WINDOWTEXT));
}

void DrawLines(HDC dc, const std::vector<GraphLine>& lines)
{
    const int mode = SetBkMode(dc, TRANSPARENT); // between the dashes
    for (const GraphLine& line : lines) {
        const SelectGuard pen(dc, PenOf(line.pen == GraphPen::DashDot ? PS_DASHDOT : PS_SOLID, ShownText(line.colour)));
        MoveToEx(dc, line.x1, line.y1, nullptr);
        LineTo(dc, line.x2, line.y2);
    }
    SetBkMode(dc, mode);
}

void DrawAxisCaption(HDC dc, const GraphLayout& layout)
{
    const SelectGuard font(dc, FontOf(layout.axisCaption.font.height, layout.axisCaption.font.weight));
    const COLORREF colour = SetTextColor(dc, ShownOnFace(layout.axisCaption.colour));
    const int mode = SetBkMode(dc, TRANSPARENT);
    RECT place = RectOf(layout.axisCaptionBox);
    const std::wstring& text = layout.axisCaption.text;
    DrawTextW(
        dc, text.c_str(), static_cast<int>(text.size()), &place, DT_WORDBREAK | DT_CENTER | DT_NOPREFIX | DT_NOCLIP);
    SetBkMode(dc, mode);
    SetTextColor(dc, colour);
}

// Between the axes and the top, so that the grid stands out.
void DrawPlot(HDC dc, const GraphLayout& layout)
{
    const GraphLine& lowest = layout.grid.back();
    const RECT plot{lowest.x1, 0, lowest.x2, lowest.y1 + 1};
    FillRect(dc, &plot, BrushOf(ShownGround(kPlotColour)));
}

// The list's own border would take the width that its columns need.
void DrawListFrame(HDC dc)
{
    const Control& list = kControls[0];
    const RECT frame{list.x - 1, list.y - 1, list.x + list.width + 1, list.y + list.height + 1};
    FrameRect(dc, &frame, BrushOf(ShownOnFace(kFrameColour)));
}

void DrawPage(HDC dc)
{
    if (!shownDay)
        return DrawNoDay(dc);
    DrawGraph(dc, shownDay->graph);
    DrawListFrame(dc);
    if (copyNoteShown)
        DrawTextAt(dc, kCopyNote.x, kCopyNote.y, kCopyNote.text, FontOf(12, FW_NORMAL), kTextGreen);
}

UniqueBitmap Render(HWND window, void (*draw)(HDC dc, void* page))
{
    return RenderBitmap(kPageWidth, kPageHeight, draw, window, window);
}

HBITMAP CurrentPicture(HWND window)
{
    if (!picture)
        picture = Render(window, [](HDC dc, void*) { DrawPage(dc); });
    return picture.Get();
}

void DrawAnew(HWND window)
{
    picture = {};
    InvalidateRect(window, nullptr, FALSE);
}

// The list and its header as they print themselves: into a bitmap of their own, since a control may draw from the
// origin of the context, wherever that was moved.
UniqueBitmap RenderList(HWND list)
{
    const auto print = [](HDC dc, void* part) {
        SendMessageW(static_cast<HWND>(part), WM_PRINT, reinterpret_cast<WPARAM>(dc),
            PRF_ERASEBKGND | PRF_CLIENT | PRF_CHILDREN);
    };
    return RenderBitmap(kControls[0].width, kControls[0].height, print, list, list);
}

// The whole page without the note, for the clipboard.
void DrawWithList(HDC dc, void* page)
{
    if (shownDay)
        DrawGraph(dc, shownDay->graph);
    DrawListFrame(dc);
    const UniqueBitmap list = RenderList(ControlOf(static_cast<HWND>(page), kDurations));
    const MemoryDc source(dc, list.Get());
    BitBlt(dc, kControls[0].x, kControls[0].y, kControls[0].width, kControls[0].height, source.Get(), 0, 0, SRCCOPY);
}

void ShowCopyNote(HWND window, bool shown)
{
    copyNoteShown = shown;
    KillTimer(window, kCopyNoteTimer);
    if (shown)
        SetTimer(window, kCopyNoteTimer, kCopyNoteMs, nullptr);
    DrawAnew(window);
}

void OnCopyPicture(HWND window)
{
    if (!shownDay)
        return;
    const UniqueBitmap copy = Render(window, &DrawWithList);
    ShowCopyNote(window, CopyToClipboard(window, copy.Get()));
}

std::vector<AreaTip> SegmentTips()
{
    std::vector<AreaTip> tips;
    if (!shownDay)
        return tips;
    for (const GraphSegment& segment : shownDay->graph.segments) {
        if (segment.bar.top < segment.bar.bottom)
            tips.push_back({RectOf(segment.bar), SegmentTooltip(segment, shownDay->graph.daySeconds, shownDay->soFar)});
    }
    return tips;
}

LRESULT OnCreate(HWND window)
{
    if (!CreateControls(window, kControls, WindowFont()))
        return -1;
    const HWND list = ControlOf(window, kDurations);
    PrepareReportList(list, kColumns);
    SetWindowLongPtrW(list, GWL_STYLE, GetWindowLongPtrW(list, GWL_STYLE) & ~static_cast<LONG_PTR>(WS_BORDER));
    SetWindowPos(list, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    ShowCopyNote(window, false);
    return 0;
}

LRESULT OnPrint(HWND window, WPARAM w)
{
    FillWithGround(window, reinterpret_cast<HDC>(w));
    DrawPage(reinterpret_cast<HDC>(w));
    return 0;
}

} // namespace

void DrawGraph(HDC dc, const GraphLayout& layout)
{
    DrawPlot(dc, layout);
    DrawLines(dc, layout.grid);
    for (const GraphSegment& segment : layout.segments)
        DrawState(dc, segment.bar, segment.colour);
    DrawLines(dc, layout.axes);
    DrawLines(dc, layout.markers);
    for (const GraphText& text : layout.texts)
        DrawGraphText(dc, text);
    DrawAxisCaption(dc, layout);
    for (const GraphLegendEntry& entry : layout.legend) {
        DrawState(dc, entry.swatch, entry.colour);
        DrawGraphText(dc, entry.label);
    }
}

void RefreshGraphPage()
{
    const HWND page = WindowOf(WindowId::SavingsGraph);
    const HWND list = ControlOf(page, kDurations);
    if (shownDay)
        FillList(list, DurationRows(shownDay->report.durations));
    Show(page, kDurations, shownDay.has_value());
    SetAreaTips(page, SegmentTips());
    ShowCopyNote(page, false);
}

LRESULT CALLBACK GraphPageProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    switch (message) {
    case WM_CREATE: return OnCreate(window);
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: Canvas(window, CurrentPicture(window)); return 0;
    case WM_SYSCOLORCHANGE: DrawAnew(window); return DefaultAnswer(window, message, w, l);
    case WM_PRINTCLIENT: return OnPrint(window, w);
    case WM_RBUTTONUP: OnCopyPicture(window); return 0;
    case WM_TIMER: ShowCopyNote(window, false); return 0;
    default: return DefaultAnswer(window, message, w, l);
    }
}

} // namespace voltaro
