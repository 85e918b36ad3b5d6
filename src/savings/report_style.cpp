#include "savings/report_style.h"

#include "savings/shown_day.h"
#include "ui/canvas.h"
#include "ui/theme.h"

namespace voltaro {
namespace {

constexpr COLORREF kListColour = RGB(247, 247, 247);
constexpr COLORREF kListText = RGB(0, 0, 0);

} // namespace

void DrawGraphText(HDC dc, const GraphText& text)
{
    DrawTextAt(dc, text.x, text.y, text.text, FontOf(text.font.height, text.font.weight), text.colour);
}

void DrawNoDay(HDC dc)
{
    if (chosenDay)
        return;
    for (const GraphText& text : NoDayTexts())
        DrawGraphText(dc, text);
}

void PrepareReportList(HWND list, std::span<const Column> columns)
{
    SetColumns(list, columns);
    SetListColours(list, kListText, kListColour);
}

} // namespace voltaro
