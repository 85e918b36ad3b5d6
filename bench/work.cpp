// The work of the console in this process: requests, reading, filling and painting.
#include "measure.h"

#include "link/document.h"
#include "link/frame.h"
#include "link/host_config.h"
#include "link/system_details.h"
#include "savings/graph_view.h"
#include "savings/saved_profile.h"
#include "savings/shown_day.h"
#include "shell/window_table.h"
#include "simulator/server.h"
#include "simulator/xml.h"
#include "ui/canvas.h"
#include "ui/controls.h"
#include "ui/list_view.h"
#include "ui/ui_thread.h"
#include "ui/window_class.h"

#include <cstdio>
#include <cstdlib>

namespace voltaro::bench {
namespace {

// The same bytes over a connection of their own, with nothing around them.
void BareExchange(std::span<const std::byte> frame)
{
    WSADATA data{};
    WSAStartup(MAKEWORD(2, 2), &data);
    {
        const UniqueSocket socket(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = inet_addr("127.0.0.1");
        address.sin_port = htons(static_cast<u_short>(servicePort));
        if (connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            return;
        send(socket.Get(), reinterpret_cast<const char*>(frame.data()), static_cast<int>(frame.size()), 0);
        std::vector<std::byte> piece(100'000);
        FrameAssembler assembler(piece.size());
        int count = 0;
        do {
            count = recv(socket.Get(), reinterpret_cast<char*>(piece.data()), static_cast<int>(assembler.Wanted()), 0);
        } while (count > 0
            && assembler.Take(std::span(piece).first(static_cast<std::size_t>(count)))
                == FrameAssembler::State::NeedMore);
        shutdown(socket.Get(), SD_BOTH);
    }
    WSACleanup();
}

SystemDetails details;

void ReadDetails(const std::wstring& text)
{
    const std::optional<Element> root = ParseAnswer(text.c_str());
    details.Read(root ? &*root : nullptr);
}

// The large answer, its groups cut to about so many bytes.
std::wstring DetailsOf(std::size_t bytes, const std::wstring& large)
{
    const std::optional<Element> root = ParseAnswer(large.c_str());
    Element response = root ? root->children.at(0) : Element();
    for (Element& section : response.children.at(0).children) {
        if (!section.children.empty() && !section.children[0].children.empty())
            section.children.resize(section.children.size() * bytes / (large.size() * kBytesPerUnit));
    }
    return simulator::ReplyText(response);
}

std::wstring EventAnswer(std::size_t count)
{
    std::wstring answer = L"<vltp version=\"1.0\"><response><details>";
    for (const EventLine& line : LongDay(count))
        answer.append(L"<Event>").append(line.view()).append(L"</Event>"); // as the simulated agent names them
    return answer + L"</details></response></vltp>";
}

void ReadEvents(const std::wstring& answer)
{
    DayReport report;
    const auto root = ParseAnswer(answer.c_str());
    static_cast<void>(ReadDayAnswer(root ? &*root : nullptr, answer, kLongDayNow, report));
}

} // namespace

std::vector<EventLine> LongDay(std::size_t count)
{
    constexpr const wchar_t* kCodes[] = {L"Istime", L"Dstime", L"Detime", L"Mstime", L"Metime", L"Ietime"};
    std::vector<EventLine> lines;
    for (std::size_t i = 0; i < count; ++i) {
        const int second = static_cast<int>(i * 86'400 / count);
        lines.emplace_back(
            Format(L"%ls # 2026/11/20 %02d:%02d:%02d", kCodes[i % 6], second / 3600, second / 60 % 60, second % 60));
    }
    return lines;
}

double MeasureRequests()
{
    const Request request = Plain(Operation::GetCurrentPowerSettings);
    const auto text = SerialiseRequest(RequestElement(request, NewMessageId()));
    const WipedBytes frame = EncodeFrame(text.value_or(FieldText()), 100'000);
    const Work console = [&] {
        if (!Exchange(request).Read<PowerSchemeSettings>())
            std::puts("no answer");
    };
    const auto medians = Medians({console, [&] { BareExchange(frame); }}, 300);
    JudgeRatio("one request: build, exchange, read / bare exchange", medians[0], medians[1], 1.6);
    return medians[1];
}

void MeasureAnswers()
{
    constexpr double kLimit = 1.1;
    simulator::AgentServer agent(*simulator::FindScenario(L"large"));
    if (!agent.Start())
        return;
    servicePort = agent.Port();
    const std::wstring large(Exchange(Plain(Operation::GetSystemDetails)).Text().view());
    const std::wstring day = EventAnswer(kMaxEventLines);
    const auto medians = Medians({[&] { ReadDetails(large); }, [&] { ReadBare(large, L"//*[not(*)]"); },
                                     [&] { ReadEvents(day); }, [&] { ReadBare(day, L"//details/*"); }},
        41);
    JudgeRatio("system details of 280 kB / the document's own calls", medians[0], medians[1], kLimit);
    JudgeRatio("3,010 event lines and their walk / the document's own calls", medians[2], medians[3], kLimit);

    JudgeGrowth("request and answer by kB", {10, 40, 160, 280}, [&](std::size_t size) -> Work {
        return [&, answer = DetailsOf(size * 1'000, large)] {
            agent.ScriptReply(L"GetSystemDetails", answer);
            details.Read(Exchange(Plain(Operation::GetSystemDetails)).Root());
        };
    });
    JudgeGrowth("a day by event lines", {100, 300, 1'000, 3'010},
        [](std::size_t count) -> Work { return [answer = EventAnswer(count)] { ReadEvents(answer); }; });
}

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
