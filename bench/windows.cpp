// Filling and painting.
#include "measure.h"

#include "console/windows.h"
#include "savings/event_walk.h"
#include "savings/graph_view.h"
#include "savings/saved_profile.h"
#include "savings/shown_day.h"
#include "shell/program.h"
#include "shell/window_table.h"
#include "ui/canvas.h"
#include "ui/controls.h"
#include "ui/list_view.h"
#include "ui/ui_thread.h"
#include "ui/window_class.h"

#include <cstdlib>

namespace voltaro::bench {

void MeasureListFill()
{
    const HWND parent = CreateWindowExW(
        0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 600, 500, nullptr, nullptr, Instance(), nullptr);
    constexpr Control kList[] = {{Kind::ListView, 1, L"Rows", 0, 0, 560, 440}};
    constexpr Column kColumns[] = {{L"Description", 200}, {L"Value", 300}};
    CreateControls(parent, kList, nullptr);
    const HWND list = ControlOf(parent, 1);
    SetColumns(list, kColumns);
    const auto fill = [=](std::size_t rows) -> Work {
        return [=] {
            FillList(list, rows, [](std::size_t, std::size_t column) {
                return column == 0 ? L"Name of the field" : L"Value of the field";
            });
        };
    };
    constexpr int kRows = 500;
    const Work fillBare = [&] {
        SendMessageW(list, WM_SETREDRAW, FALSE, 0);
        ListView_DeleteAllItems(list);
        for (int i = 0; i < kRows; ++i) {
            LVITEMW item{};
            item.mask = LVIF_TEXT;
            item.iItem = i;
            item.pszText = const_cast<wchar_t*>(L"Name of the field");
            ListView_InsertItem(list, &item);
            ListView_SetItemText(list, i, 1, const_cast<wchar_t*>(L"Value of the field"));
        }
        SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    };
    const auto medians = Medians({fill(kRows), fillBare}, 41);
    JudgeRatio("500 rows into a list / bare fill with redraw off", medians[0], medians[1], 1.1);
    JudgeGrowth("a list by rows", {10, 50, 150, 500}, fill);
    DestroyWindow(parent);
}

void MakeWindows()
{
    AdoptUiThread();
    static const bool made = RegisterClasses() && CreateWindows();
    if (!made)
        std::exit(2);
}

void MeasureGraph()
{
    MakeWindows();
    DayReport report;
    static_cast<void>(WalkDay(LongDay(), kLongDayNow, report));
    shownDay = MakeShownDay(kLongDay, report, savedProfile);
    RefreshGraphPage();
    const HWND page = WindowOf(WindowId::SavingsGraph);
    ShowWindow(WindowOf(WindowId::Savings), SW_SHOWNORMAL);
    ShowWindow(page, SW_SHOW);
    RECT client{};
    GetClientRect(page, &client);
    const UniqueBitmap picture = RenderBitmap(
        client.right, client.bottom, [](HDC dc, void*) { DrawGraph(dc, shownDay->graph); }, nullptr);
    const Work repaint = [=] { RedrawWindow(page, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_NOCHILDREN); };
    const Work copy = [&] {
        const WindowDc screen(page);
        const MemoryDc memory(screen.Get(), picture.Get());
        BitBlt(screen.Get(), 0, 0, client.right, client.bottom, memory.Get(), 0, 0, SRCCOPY);
    };
    const auto medians = Medians({repaint, copy}, 201);
    JudgeRatio("a repaint of the graph / one copy of the same area", medians[0], medians[1], 3.0);
}

} // namespace voltaro::bench
