// Benchmarks of the console against the simulated agent. Each figure is a ratio of medians of interleaved rounds; the
// program never fails on them.
#include "measure.h"

#include "base/com_apartment.h"
#include "base/handles.h"
#include "console/windows.h"
#include "link/document.h"
#include "link/exchange.h"
#include "link/frame.h"
#include "link/host_config.h"
#include "link/system_details.h"
#include "shell/program.h"
#include "shell/window_table.h"
#include "simulator/server.h"
#include "support/installation.h"
#include "ui/controls.h"
#include "ui/list_view.h"
#include "ui/ui_thread.h"
#include "ui/window_class.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include <psapi.h>

namespace {

using namespace voltaro;
using namespace voltaro::bench;

constexpr const wchar_t* kSkeletonReady = L"VoltaroBenchSkeletonReady";

// The same bytes over a connection of their own, with nothing around them.
void BareExchange(std::span<const std::byte> frame, int port)
{
    WSADATA data{};
    WSAStartup(MAKEWORD(2, 2), &data);
    {
        const UniqueSocket socket(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = inet_addr("127.0.0.1");
        address.sin_port = htons(static_cast<u_short>(port));
        if (connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            return;
        send(socket.Get(), reinterpret_cast<const char*>(frame.data()), static_cast<int>(frame.size()), 0);
        FrameAssembler assembler(300'000);
        std::vector<std::byte> piece(300'000);
        for (auto state = FrameAssembler::State::NeedMore; state == FrameAssembler::State::NeedMore;) {
            const int count
                = recv(socket.Get(), reinterpret_cast<char*>(piece.data()), static_cast<int>(assembler.Wanted()), 0);
            if (count <= 0)
                break;
            state = assembler.Take(std::span(piece).first(static_cast<std::size_t>(count)));
        }
        shutdown(socket.Get(), SD_BOTH);
    }
    WSACleanup();
}

WipedBytes FrameOf(const Request& request)
{
    const auto text = SerialiseRequest(RequestElement(request, NewMessageId()));
    return text ? EncodeFrame(*text, 100'000) : WipedBytes();
}

double MeasureRequest(simulator::AgentServer& agent)
{
    const Request request = Plain(Operation::GetCurrentPowerSettings);
    const WipedBytes frame = FrameOf(request);
    const Work console = [&] {
        if (!Exchange(request).Read<PowerSchemeSettings>())
            std::puts("no answer");
    };
    const auto medians = Medians({console, [&] { BareExchange(frame, agent.Port()); }}, 300);
    PrintRatio("one request: build + exchange + read / bare exchange", medians[0], medians[1], 2.2);
    return medians[1];
}

void MeasureSystemDetails()
{
    simulator::AgentServer agent(*simulator::FindScenario(L"large"));
    if (!agent.Start())
        return;
    servicePort = agent.Port();
    Reply reply = Exchange(Plain(Operation::GetSystemDetails));
    const FieldText& text = reply.Text();
    SystemDetails details;
    const Work read = [&] {
        const std::optional<Element> root = ParseAnswer(text.c_str());
        details.Read(root ? &*root : nullptr);
    };
    const Work load = [&] { LoadBare(text.c_str()); }, readBare = [&] { ReadBare(text.c_str(), L"//*[not(*)]"); };
    const auto medians = Medians({read, load, readBare}, 40);
    std::printf("system details: %zu bytes, %zu rows in the longest section\n", text.view().size() * 2,
        details.RowCount(DetailSection::LogicalDisks));
    PrintRatio("reading the system details / loading the document", medians[0], medians[1], 1.3);
    std::printf("the document's own calls for the texts alone: %.3f ms\n", medians[2]);
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
    constexpr std::size_t kRows = 500;
    const Work fill = [&] {
        FillList(list, kRows,
            [](std::size_t, std::size_t column) { return column == 0 ? L"Name of the field" : L"Value of the field"; });
    };
    const Work fillBare = [&] {
        SendMessageW(list, WM_SETREDRAW, FALSE, 0);
        ListView_DeleteAllItems(list);
        for (int i = 0; i < static_cast<int>(kRows); ++i) {
            LVITEMW item{};
            item.mask = LVIF_TEXT;
            item.iItem = i;
            item.pszText = const_cast<wchar_t*>(L"Name of the field");
            ListView_InsertItem(list, &item);
            ListView_SetItemText(list, i, 1, const_cast<wchar_t*>(L"Value of the field"));
        }
        SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    };
    const auto medians = Medians({fill, fillBare}, 15);
    PrintRatio("500 rows into a list / bare fill with redraw off", medians[0], medians[1], 2.0);
    DestroyWindow(parent);
}

UniqueHandle StartProcess(std::wstring command)
{
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &made);
    CloseHandle(made.hThread);
    return UniqueHandle(made.hProcess);
}

void EndProcess(const UniqueHandle& process)
{
    TerminateProcess(process.Get(), 0);
    WaitForSingleObject(process.Get(), 5'000);
}

// All windows of the program made and the main window shown, and nothing else. A process of its own.
int RunSkeleton()
{
    AdoptUiThread();
    if (!RegisterClasses() || !CreateWindows())
        return 1;
    ShowWindow(WindowOf(WindowId::Main), SW_SHOWNORMAL);
    UpdateWindow(WindowOf(WindowId::Main));
    const UniqueHandle ready(OpenEventW(EVENT_MODIFY_STATE, FALSE, kSkeletonReady));
    SetEvent(ready.Get());
    Sleep(INFINITE);
    return 0;
}

std::size_t PrivateBytes(const UniqueHandle& process)
{
    PROCESS_MEMORY_COUNTERS_EX memory{};
    GetProcessMemoryInfo(process.Get(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory), sizeof memory);
    return memory.PrivateUsage ? memory.PrivateUsage : memory.PagefileUsage;
}

void MeasureStart(simulator::AgentServer& agent, const std::filesystem::path& self, double bareExchange)
{
    constexpr double kExchanges = 13; // of the check and the load
    const std::filesystem::path console = self.parent_path().parent_path() / "bin" / "VoltaroConsoleSE.exe";
    Install(L"voltaro_bench", agent.Port());
    std::size_t memory = 0;
    const Work start = [&] {
        agent.ClearRequests();
        const UniqueHandle process = StartProcess(console.wstring());
        while (std::ranges::count(agent.Requests(), L"GetPatchDetails", &simulator::ReceivedRequest::operation) == 0)
            Sleep(1);
        memory = PrivateBytes(process);
        EndProcess(process);
    };
    const Work skeleton = [&] {
        const UniqueHandle ready(CreateEventW(nullptr, TRUE, FALSE, kSkeletonReady));
        const UniqueHandle process = StartProcess(self.wstring() + L" --skeleton");
        WaitForSingleObject(ready.Get(), 20'000);
        EndProcess(process);
    };
    const auto medians = Medians({start, skeleton}, 7);
    PrintRatio("start to connected / 1.15 x skeleton + 2.5 x bare exchanges", medians[0],
        1.15 * medians[1] + 2.5 * kExchanges * bareExchange, 1.0);
    std::printf("skeleton %.1f ms, console %.1f ms, private memory after the load %.1f MB\n", medians[1], medians[0],
        static_cast<double>(memory) / 1e6);
    std::printf(
        "size of the program %.3f MB (limit 1.5)\n", static_cast<double>(std::filesystem::file_size(console)) / 1e6);
}

} // namespace

int main(int count, char** arguments)
{
    if (count > 1 && std::strcmp(arguments[1], "--skeleton") == 0)
        return RunSkeleton();
    wchar_t self[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    EnterComApartment();
    simulator::AgentServer agent;
    if (!agent.Start())
        return 1;
    servicePort = agent.Port();
    const double bareExchange = MeasureRequest(agent);
    MeasureSystemDetails();
    MeasureEvents();
    MeasureListFill();
    MeasureStart(agent, self, bareExchange);
    MeasureGraph();
    return 0;
}
