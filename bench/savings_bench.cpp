#include "measure.h"

#include "base/text.h"
#include "console/windows.h"
#include "link/document.h"
#include "link/replies.h"
#include "savings/event_walk.h"
#include "savings/graph_view.h"
#include "savings/saved_profile.h"
#include "savings/shown_day.h"
#include "shell/window_table.h"
#include "ui/canvas.h"
#include "ui/ui_thread.h"

#include <cstdio>

namespace voltaro::bench {
namespace {

constexpr LocalTime kDay{2026, 11, 20};
constexpr LocalTime kNow{2026, 11, 21, 12};

std::vector<EventLine> LongDay()
{
    constexpr const wchar_t* kCodes[] = {L"Istime", L"Dstime", L"Detime", L"Mstime", L"Metime", L"Ietime"};
    std::vector<EventLine> lines;
    for (int i = 0; i < static_cast<int>(kMaxEventLines); ++i) {
        const int second = i * 28;
        lines.emplace_back(
            Format(L"%ls # 2026/11/20 %02d:%02d:%02d", kCodes[i % 6], second / 3600, second / 60 % 60, second % 60));
    }
    return lines;
}

} // namespace

void MeasureEvents()
{
    const std::vector<EventLine> lines = LongDay();
    std::wstring answer = L"<vltp version=\"1.0\"><response><details>";
    for (const EventLine& line : lines)
        answer.append(L"<Event>").append(line.view()).append(L"</Event>"); // as the simulated agent names them
    answer += L"</details></response></vltp>";
    DayReport report;
    const Work read = [&] {
        const auto root = ParseAnswer(answer.c_str());
        static_cast<void>(ReadDayAnswer(root ? &*root : nullptr, answer, kNow, report));
    };
    const Work load = [&] { LoadBare(answer); }, readBare = [&] { ReadBare(answer, L"//details/*"); };
    const auto medians = Medians({read, load, readBare, [&] { static_cast<void>(WalkDay(lines, kNow, report)); }}, 30);
    PrintRatio("3,010 event lines: parse + walk / loading the document", medians[0], medians[1], 1.3);
    std::printf("the document's own calls for the texts alone: %.3f ms\n", medians[2]);
    std::printf("the walk alone %.3f ms (limit 1)\n", medians[3]);
}

void MeasureGraph()
{
    AdoptUiThread();
    if (!RegisterClasses() || !CreateWindows())
        return;
    DayReport report;
    static_cast<void>(WalkDay(LongDay(), kNow, report));
    shownDay = MakeShownDay(kDay, report, savedProfile);
    RefreshGraphPage();
    const HWND page = WindowOf(WindowId::SavingsGraph);
    ShowWindow(WindowOf(WindowId::Savings), SW_SHOWNORMAL);
    ShowWindow(page, SW_SHOW);
    RECT client{};
    GetClientRect(page, &client);
    const UniqueBitmap picture = RenderBitmap(
        client.right, client.bottom, [](HDC dc, void*) { DrawGraph(dc, shownDay->graph); }, nullptr);
    const auto medians
        = Medians({[&] { RedrawWindow(page, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_NOCHILDREN); },
                      [&] {
                          const WindowDc screen(page);
                          const MemoryDc memory(screen.Get(), picture.Get());
                          BitBlt(screen.Get(), 0, 0, client.right, client.bottom, memory.Get(), 0, 0, SRCCOPY);
                      }},
            200);
    PrintRatio("a repaint of the graph / one copy of the same area", medians[0], medians[1], 6.0);
}

} // namespace voltaro::bench
