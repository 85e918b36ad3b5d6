// Consumption and carbon dioxide, and the estimates with the idle pattern: two pages of the savings window that differ
// by their tables alone.
#include "savings/report_pages.h"

#include "console/windows.h"
#include "savings/day_texts.h"
#include "savings/report.h"
#include "savings/report_style.h"
#include "savings/shown_day.h"
#include "ui/canvas.h"
#include "ui/controls.h"
#include "ui/row_tips.h"
#include "ui/theme.h"
#include "ui/window_class.h"

namespace voltaro {
namespace {

constexpr int kPageWidth = 670;
constexpr int kPageHeight = 497;

enum Id : int { kUpperList = 101, kLowerList };

struct Heading {
    int x;
    int y;
    const wchar_t* text;
};

// A list by its id, and the rows that it shows of a day.
struct ReportList {
    int id;
    std::span<const Column> columns;
    ReportRows (*rows)(const ShownDay& shown);
};

struct ReportPage {
    WindowId window;
    std::span<const Control> controls;
    std::span<const Heading> headings;
    std::span<const ReportList> lists;
};

// clang-format off
constexpr Heading kTitle = {20, 15, L"Power Calculations for VLT Events of Date:"};
constexpr int kDateX = 300;
constexpr Heading kNoProfile = {20, 38,
    L"The power consumption profile could not be read. Energy and CO2 figures are not correct."};

constexpr Heading kTotalHeadings[] = {
    {20,  62, L"System's Total Power Consumption Details:"},
    {20, 284, L"System's Estimated 'CO2 Emission Saved' Details:"},
};
constexpr Control kTotalControls[] = {
    {Kind::ListView, kUpperList, L"Events Graph List01", 20,  88, 630, 162, kHidden, kTotalHeadings[0].text},
    {Kind::ListView, kLowerList, L"Events Graph List02", 20, 310, 630,  90, kHidden, kTotalHeadings[1].text},
};
constexpr Column kTotalWidths[] = {{kTotalColumns[0].data(), 430}, {kTotalColumns[1].data(), 198}};
constexpr Column kEmissionWidths[] = {{kEmissionColumns[0].data(), 430}, {kEmissionColumns[1].data(), 198}};
constexpr ReportList kTotalLists[] = {
    {kUpperList, kTotalWidths,    [](const ShownDay& s) { return TotalRows(s.report.durations, s.figures); }},
    {kLowerList, kEmissionWidths, [](const ShownDay& s) { return EmissionRows(s.figures); }},
};

constexpr Heading kEstimateHeadings[] = {
    {20,  62, L"System's Estimated Power Consumption Details:"},
    {20, 248, L"System's Idle Duration Pattern:"},
};
constexpr Control kEstimateControls[] = {
    {Kind::ListView, kUpperList, L"Events Graph List1", 20,  88, 630, 126, kHidden, kEstimateHeadings[0].text},
    {Kind::ListView, kLowerList, L"Events Graph List2", 20, 274, 630, 180, kHidden, kEstimateHeadings[1].text},
};
constexpr Column kEstimateWidths[] = {
    {kEstimateColumns[0].data(), 280}, {kEstimateColumns[1].data(), 174}, {kEstimateColumns[2].data(), 174},
};
constexpr Column kIdlePatternWidths[] = {
    {kIdlePatternColumns[0].data(), 180}, {kIdlePatternColumns[1].data(), 100},
    {kIdlePatternColumns[2].data(), 174}, {kIdlePatternColumns[3].data(), 174},
};
constexpr ReportList kEstimateLists[] = {
    {kUpperList, kEstimateWidths,    [](const ShownDay& s) { return EstimateRows(s.report.durations, s.figures); }},
    {kLowerList, kIdlePatternWidths, [](const ShownDay& s) { return IdlePatternRows(s.report.histogram, s.profile); }},
};
// clang-format on
static_assert(IdsAreUnique(kTotalControls) && FitInside(kTotalControls, kPageWidth, kPageHeight));
static_assert(IdsAreUnique(kEstimateControls) && FitInside(kEstimateControls, kPageWidth, kPageHeight));

constexpr ReportPage kTotalsPage = {WindowId::SavingsTotals, kTotalControls, kTotalHeadings, kTotalLists};
constexpr ReportPage kEstimatesPage
    = {WindowId::SavingsEstimates, kEstimateControls, kEstimateHeadings, kEstimateLists};

constexpr COLORREF kHeadingColour = RGB(83, 83, 83);
constexpr COLORREF kDateColour = RGB(10, 10, 10);
constexpr COLORREF kWarningColour = RGB(192, 0, 0);

HFONT HeadingFont()
{
    return FontOf(15, 600);
}

void DrawPage(HDC dc, const ReportPage& page)
{
    if (!shownDay)
        return DrawNoDay(dc);
    DrawTextAt(dc, kTitle.x, kTitle.y, kTitle.text, HeadingFont(), kHeadingColour);
    DrawTextAt(dc, kDateX, kTitle.y, HeadingDate(shownDay->day), HeadingFont(), kDateColour);
    if (!shownDay->profileKnown)
        DrawTextAt(dc, kNoProfile.x, kNoProfile.y, kNoProfile.text, HeadingFont(), kWarningColour);
    for (const Heading& heading : page.headings)
        DrawTextAt(dc, heading.x, heading.y, heading.text, HeadingFont(), kProductGreen);
}

std::wstring TipOf(HWND list, int row)
{
    return FormulaOf(CellOf(list, row, 0));
}

LRESULT OnCreate(HWND window, const ReportPage& page)
{
    if (!CreateControls(window, page.controls, WindowFont()))
        return -1;
    for (const ReportList& list : page.lists) {
        PrepareReportList(ControlOf(window, list.id), list.columns);
        SetRowTips(ControlOf(window, list.id), TipOf);
    }
    return 0;
}

void Refresh(const ReportPage& page)
{
    const HWND window = WindowOf(page.window);
    for (const ReportList& list : page.lists) {
        if (shownDay)
            FillList(ControlOf(window, list.id), list.rows(*shownDay));
        Show(window, list.id, shownDay.has_value());
    }
    InvalidateRect(window, nullptr, FALSE);
}

LRESULT AnswerPage(const ReportPage& page, HWND window, UINT message, WPARAM w, LPARAM l)
{
    switch (message) {
    case WM_CREATE: return OnCreate(window, page);
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: DrawPage(Canvas(window).Dc(), page); return 0;
    case WM_PRINTCLIENT:
        FillWithGround(window, reinterpret_cast<HDC>(w));
        DrawPage(reinterpret_cast<HDC>(w), page);
        return 0;
    default: return DefaultAnswer(window, message, w, l);
    }
}

} // namespace

void RefreshReportPages()
{
    Refresh(kTotalsPage);
    Refresh(kEstimatesPage);
}

LRESULT CALLBACK TotalsPageProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerPage(kTotalsPage, window, message, w, l);
}

LRESULT CALLBACK EstimatesPageProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerPage(kEstimatesPage, window, message, w, l);
}

} // namespace voltaro
