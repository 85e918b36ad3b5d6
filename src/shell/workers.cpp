#include "shell/workers.h"

#include "base/handles.h"
#include "base/platform_calls.h"
#include "base/waiting.h"
#include "console/agent_records.h"
#include "console/agent_state.h"
#include "console/background_refresh.h"
#include "console/connection_state.h"
#include "console/main_view.h"
#include "console/ui_calls.h"
#include "link/document.h"
#include "power/scheme_reading.h"
#include "power/scheme_window.h"
#include "settings/system_info_window.h"
#include "shell/pause.h"
#include "shell/update_window.h"
#include "ui/waiting.h"

#include <array>
#include <iterator>

namespace voltaro {
namespace {

struct Worker {
    UniqueHandle wake; // manual-reset
    UniqueHandle end;  // manual-reset; set once
    UniqueHandle thread;
};
std::array<Worker, static_cast<std::size_t>(WorkerId::Count)> workers;
thread_local HANDLE endOfThisThread = nullptr;

Worker& WorkerOf(WorkerId id)
{
    return workers[static_cast<std::size_t>(id)];
}

// COM makes a window of its own for each of these threads, whose messages must not wait.
void DispatchMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
}

// A worker's wait: for the handle and for the worker's own end.
Waited WaitAsWorker(HANDLE handle, DWORD milliseconds)
{
    const HANDLE handles[] = {endOfThisThread, handle};
    const DWORD count = handle ? 2 : 1;
    const ULONGLONG start = GetTickCount64();
    for (;;) {
        const DWORD result = MsgWaitForMultipleObjectsEx(
            count, handles, RestOfWait(start, milliseconds), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        if (result == WAIT_OBJECT_0)
            return Waited::Ending;
        if (handle && result == WAIT_OBJECT_0 + 1)
            return Waited::Signalled;
        if (result != WAIT_OBJECT_0 + count)
            return Waited::TimedOut;
        DispatchMessages();
    }
}

// The thread's time as a worker.
class WorkerScope {
public:
    explicit WorkerScope(const Worker& worker)
    {
        endOfThisThread = worker.end.Get();
        threadWait = WaitAsWorker;
    }
    ~WorkerScope() { ReleaseDocumentClass(); }
    WorkerScope(const WorkerScope&) = delete;
    WorkerScope& operator=(const WorkerScope&) = delete;
};

// A worker that does one thing each time it is signalled.
template <WorkerId Id, void (*Work)()>
DWORD WINAPI RunOnEvent(void*)
{
    const HANDLE wake = WorkerOf(Id).wake.Get();
    const WorkerScope scope(WorkerOf(Id));
    do {
        ResetEvent(wake);
        Work();
    } while (threadWait(wake, INFINITE) != Waited::Ending);
    return 0;
}

enum class PollResult : std::uint8_t { Answered, Lost, Ending };

// Reads again and again until the agent answers: at once, and after each of two waits.
PollResult ReadWithRetries(Reader read)
{
    if (read() != ReadResult::Lost)
        return PollResult::Answered;
    for (const DWORD wait : {timing.pollerFirstRetry, timing.pollerSecondRetry}) {
        if (threadWait(nullptr, wait) == Waited::Ending)
            return PollResult::Ending;
        if (read() != ReadResult::Lost)
            return PollResult::Answered;
    }
    return PollResult::Lost;
}

PollResult Poll()
{
    if (!connection.connected)
        return PollResult::Answered;
    const PollResult status = ReadWithRetries(ReadPauseStatus);
    if (status != PollResult::Answered || !notPaused || agentRecords.noBattery)
        return status;
    return ReadWithRetries(ReadBatteryInfo);
}

// Every eight minutes. Once ended by a lost agent it is not started again: from then on only the commands read the
// pause state and the battery.
DWORD WINAPI RunStatusPoller(void*)
{
    const HANDLE wake = WorkerOf(WorkerId::StatusPoller).wake.Get();
    const WorkerScope scope(WorkerOf(WorkerId::StatusPoller));
    while (threadWait(wake, timing.pollerPeriod) == Waited::TimedOut) {
        const PollResult result = Poll();
        if (result == PollResult::Lost)
            OnSystemInfoRefreshFailed(); // ends its busy view too
        if (result != PollResult::Answered)
            return 0;
        OnUi(mainView.repaint);
    }
    return 0;
}

void RefreshSystemDetails()
{
    Reply reply = Send(WithText(Operation::GetSystemDetails, L"type", L"Refresh"));
    if (reply.Lost())
        return OnSystemInfoRefreshFailed();
    const Element* root = reply.Root();
    OnUi([root] {
        agentRecords.details.Read(root);
        FillSystemInfo();
    });
}

void RefreshPowerData()
{
    const ReadResult result = ReadInOrder(kReload);
    result == ReadResult::Lost ? OnPowerRefreshFailed() : OnPowerRefreshed(result);
    OnUi(mainView.selectCurrentScheme);
}

// Where the agent was lost since, the window that asked waits no longer.
void Refresh()
{
    const std::uint32_t requests = refreshRequests.exchange(0);
    if (requests & kRefreshSystemDetails)
        connection.connected ? RefreshSystemDetails() : OnSystemInfoRefreshFailed();
    if (requests & kRefreshPowerData)
        connection.connected ? RefreshPowerData() : OnPowerRefreshFailed();
}

void Stop(Worker& worker)
{
    if (!worker.thread)
        return;
    SetEvent(worker.end.Get());
    static_cast<void>(WaitServingSentMessages(worker.thread.Get(), timing.workerEnd));
    worker.thread.Reset();
}

} // namespace

bool StartWorkers()
{
    // In the order of WorkerId.
    constexpr LPTHREAD_START_ROUTINE kRoutines[] = {
        RunOnEvent<WorkerId::UpdateCheck, RunUpdateCheck>,
        RunOnEvent<WorkerId::BusyAnimation, AnimateUpdateBar>,
        RunStatusPoller,
        RunOnEvent<WorkerId::Refresh, Refresh>,
    };
    for (std::size_t i = 0; i < std::size(kRoutines); ++i) {
        Worker& worker = workers[i];
        worker.wake = UniqueHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
        worker.end = UniqueHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
        if (!worker.wake || !worker.end)
            return false;
        worker.thread = UniqueHandle(CreateThread(nullptr, 0, kRoutines[i], nullptr, 0, nullptr));
        if (!worker.thread)
            return false;
    }
    refreshEvent = WorkerOf(WorkerId::Refresh).wake.Get();
    return true;
}

void Wake(WorkerId worker)
{
    SetEvent(WorkerOf(worker).wake.Get());
}

void StopWorkers(StopOrder order)
{
    constexpr WorkerId kOrders[][4] = {
        {WorkerId::StatusPoller, WorkerId::Refresh, WorkerId::UpdateCheck, WorkerId::BusyAnimation},
        {WorkerId::StatusPoller, WorkerId::UpdateCheck, WorkerId::BusyAnimation, WorkerId::Refresh},
    };
    for (const WorkerId id : kOrders[static_cast<std::size_t>(order)])
        Stop(WorkerOf(id));
}

} // namespace voltaro
