// The program as a process: its start, what it holds and what it does in the notification area.
#include "measure.h"

#include "shell/connection.h"
#include "shell/main_commands.h"
#include "shell/program.h"
#include "shell/tray.h"
#include "shell/window_table.h"
#include "simulator/server.h"
#include "support/installation.h"

#include <filesystem>
#include <memory>

namespace voltaro::bench {
namespace {

constexpr const wchar_t* kSkeletonReady = L"VoltaroBenchSkeletonReady";

double ProcessorMs(const Process& process)
{
    ULARGE_INTEGER kernel{}, user{};
    FILETIME made{}, ended{};
    GetProcessTimes(
        process.Get(), &made, &ended, reinterpret_cast<FILETIME*>(&kernel), reinterpret_cast<FILETIME*>(&user));
    return static_cast<double>(kernel.QuadPart + user.QuadPart) / 1e4;
}

struct Programs {
    simulator::AgentServer& agent;
    std::wstring self, console;
};

void AwaitRequest(const simulator::AgentServer& agent, std::wstring_view operation)
{
    for (const ULONGLONG end = GetTickCount64() + 60'000; !agent.HasReceived(operation); Sleep(1)) {
        if (GetTickCount64() > end)
            return JudgeFigure("no request within", 60, "s", 0);
    }
}

// The console's first request follows its main window's first paint; that for the patches ends the load.
void StartConsole(const Programs& programs, std::unique_ptr<Process>& process, double& painted, double& connected)
{
    programs.agent.ClearRequests();
    painted = Time([&] {
        process = std::make_unique<Process>(programs.console);
        AwaitRequest(programs.agent, L"*");
    });
    connected = painted + Time([&] { AwaitRequest(programs.agent, L"GetPatchDetails"); });
}

double StartSkeleton(const Programs& programs, std::unique_ptr<Process>& process)
{
    const UniqueHandle ready(CreateEventW(nullptr, TRUE, FALSE, kSkeletonReady));
    return Time([&] {
        process = std::make_unique<Process>(programs.self + L" --skeleton");
        WaitForSingleObject(ready.Get(), 60'000);
    });
}

void MeasureStart(const Programs& programs, double bareExchange)
{
    constexpr double kExchanges = 13; // of the check and the load
    std::vector<double> painted, connected, skeleton, memory;
    for (int round = 0; round < 17; ++round) {
        std::unique_ptr<Process> process;
        StartConsole(programs, process, painted.emplace_back(), connected.emplace_back());
        const auto held = PrivateBytes(process->Get());
        process.reset();
        skeleton.push_back(StartSkeleton(programs, process));
        memory.push_back(static_cast<double>(held - PrivateBytes(process->Get())) / 1e6);
    }
    JudgeRatio("start to first paint / skeleton with the same windows, icon", Median(painted), Median(skeleton), 1.15);
    JudgeRatio("start to connected / 1.15 x skeleton + 2.5 x exchanges", Median(connected),
        1.15 * Median(skeleton) + 2.5 * kExchanges * bareExchange, 1.0);
    JudgeFigure("private memory after the load, above the skeleton's", Median(memory), "MB", 8);
}

// Serves this process's windows so long and counts their timers' messages.
int TimersWithin(ULONGLONG milliseconds)
{
    int timers = 0;
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); DispatchMessageW(&message))
            timers += message.message == WM_TIMER;
    }
    return timers;
}

void MeasureTray(const Programs& programs)
{
    constexpr ULONGLONG kMinute = 60'000;
    std::unique_ptr<Process> console, skeleton;
    double painted = 0, connected = 0;
    StartConsole(programs, console, painted, connected);
    Sleep(2'000); // the rest of the load
    PostMessageW(FindWindowW(kMainClass, kMainTitle), WM_COMMAND, kExitToTray, 0);
    StartSkeleton(programs, skeleton); // a console does not start beside another's windows
    MakeWindows();                     // in this process
    PrepareForCheck();
    RunCheck(WindowOf(WindowId::Main));
    programs.agent.ClearRequests();
    const double before = ProcessorMs(*console), asleep = ProcessorMs(*skeleton);
    JudgeFigure("timers in a minute in the notification area", TimersWithin(kMinute), "", 0);
    JudgeFigure("requests in that minute", static_cast<double>(programs.agent.Requests().size()), "", 0);
    // The clock of other processes counts in steps of 10 ms.
    JudgeFigure("processor time in it, above the sleeping skeleton's",
        ProcessorMs(*console) - before - (ProcessorMs(*skeleton) - asleep), "ms", 10);
}

} // namespace

// What the platform alone takes: all windows and the icon made, the main window shown.
int RunSkeleton()
{
    MakeWindows();
    AddTrayIcon(WindowOf(WindowId::Main));
    ShowWindow(WindowOf(WindowId::Main), SW_SHOWNORMAL);
    UpdateWindow(WindowOf(WindowId::Main));
    const UniqueHandle ready(OpenEventW(EVENT_MODIFY_STATE, FALSE, kSkeletonReady));
    SetEvent(ready.Get());
    Sleep(INFINITE);
    return 0;
}

void MeasureProgram(simulator::AgentServer& agent, double bareExchange)
{
    wchar_t self[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    const auto console = std::filesystem::path(self).parent_path().parent_path() / "bin" / "VoltaroConsoleSE.exe";
    const Programs programs{agent, self, console.wstring()};
    MeasureStart(programs, bareExchange);
    MeasureTray(programs);
    JudgeFigure("size of the program", static_cast<double>(std::filesystem::file_size(console)) / 1e6, "MB", 1.5);
}

} // namespace voltaro::bench
