#include "shell/workers.h"

#include "base/handles.h"
#include "base/timing.h"
#include "console/agent_lost.h"
#include "console/agent_state.h"
#include "console/main_view.h"
#include "console/ui_calls.h"
#include "power/scheme_window.h"
#include "settings/system_info_window.h"
#include "shell/pause.h"
#include "shell/update_window.h"

#include <array>
#include <iterator>

namespace voltaro {
namespace {

struct Worker {
    UniqueHandle event;
    UniqueHandle thread;
    DWORD threadId = 0;
};
std::array<Worker, static_cast<std::size_t>(WorkerId::Count)> workers;

Worker& WorkerOf(WorkerId id)
{
    return workers[static_cast<std::size_t>(id)];
}

enum class Woken : std::uint8_t { ByEvent, ByTimeOut, ToEnd };

bool CloseMessageIsThere()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_CLOSE)
            return true;
    }
    return false;
}

// Waits for the worker's event, the time-out or the close message. An event is reset by whoever was woken by it.
Woken WaitForWork(const Worker& worker, DWORD milliseconds)
{
    const HANDLE event = worker.event.Get();
    const ULONGLONG start = GetTickCount64();
    for (DWORD rest = milliseconds;;) {
        const DWORD result = MsgWaitForMultipleObjects(1, &event, FALSE, rest, QS_POSTMESSAGE);
        if (result == WAIT_TIMEOUT)
            return Woken::ByTimeOut;
        if (result != WAIT_OBJECT_0 + 1)
            return Woken::ByEvent;
        if (CloseMessageIsThere())
            return Woken::ToEnd;
        // Another's message, such as COM's own, ends no wait.
        const ULONGLONG passed = GetTickCount64() - start;
        if (milliseconds != INFINITE)
            rest = passed < milliseconds ? static_cast<DWORD>(milliseconds - passed) : 0;
    }
}

// A worker that does one thing each time it is woken.
template <WorkerId Id, void (*Work)()>
DWORD WINAPI RunOnEvent(void*)
{
    const Worker& worker = WorkerOf(Id);
    for (;;) {
        ResetEvent(worker.event.Get());
        Work();
        if (WaitForWork(worker, INFINITE) == Woken::ToEnd)
            return 0;
    }
}

enum class Polled : std::uint8_t { Answered, Lost, ToEnd };

// Reads again and again until the agent answers: at once, and after each of two waits.
Polled ReadWithRetries(const Worker& worker, bool (*read)())
{
    if (read())
        return Polled::Answered;
    for (const DWORD wait : {timing.pollerFirstRetry, timing.pollerSecondRetry}) {
        if (WaitForWork(worker, wait) == Woken::ToEnd)
            return Polled::ToEnd;
        if (read())
            return Polled::Answered;
    }
    return Polled::Lost;
}

Polled Poll(const Worker& worker)
{
    if (!state.connected)
        return Polled::Answered;
    const Polled status = ReadWithRetries(worker, ReadPauseStatus);
    if (status != Polled::Answered || !state.notPaused || state.noBattery)
        return status;
    return ReadWithRetries(worker, ReadBatteryInfo);
}

// Every eight minutes. Once ended by a lost agent it is not started again (meant).
DWORD WINAPI RunStatusPoller(void*)
{
    const Worker& worker = WorkerOf(WorkerId::StatusPoller);
    for (;;) {
        if (WaitForWork(worker, timing.pollerPeriod) != Woken::ByTimeOut) {
            ResetEvent(worker.event.Get());
            return 0;
        }
        const Polled polled = Poll(worker);
        if (polled == Polled::Lost)
            OnSystemInfoRefreshFailed(); // ends its busy view too
        if (polled != Polled::Answered)
            return 0;
        OnUi(mainView.repaint);
    }
}

void RefreshSystemDetails()
{
    Reply reply = Send(WithText(Operation::GetSystemDetails, L"type", L"Refresh"));
    if (!reply.Answered())
        return OnSystemInfoRefreshFailed();
    const Element* root = reply.Root();
    OnUi([root] {
        state.details.Read(root);
        FillSystemInfo();
    });
}

void RefreshPowerData()
{
    if (ReadPowerSchemes() && ReadPolicies() && ReadCurrentPowerSettings())
        OnPowerRefreshed();
    else
        OnPowerRefreshFailed();
    OnUi(mainView.normalControls);
}

// A kind other than the two is left as it is. Where the agent was lost since, the window that asked waits no longer.
void Refresh()
{
    RefreshKind kind = state.refreshKind;
    if (kind == RefreshKind::SystemDetails)
        state.connected ? RefreshSystemDetails() : OnSystemInfoRefreshFailed();
    else if (kind == RefreshKind::PowerData)
        state.connected ? RefreshPowerData() : OnPowerRefreshFailed();
    else
        return;
    state.refreshKind.compare_exchange_strong(kind, RefreshKind::None); // the other kind, asked for meanwhile, stays
}

void Stop(Worker& worker)
{
    DWORD exitCode = 0;
    if (!worker.thread)
        return;
    PostThreadMessageW(worker.threadId, WM_CLOSE, 0, 0);
    WaitForSingleObject(worker.thread.Get(), timing.workerFollow);
    // What hangs in a request cannot follow; the process ends next.
    if (GetExitCodeThread(worker.thread.Get(), &exitCode) && exitCode == STILL_ACTIVE)
        TerminateThread(worker.thread.Get(), 0);
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
        workers[i].event = UniqueHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
        workers[i].thread = UniqueHandle(CreateThread(nullptr, 0, kRoutines[i], nullptr, 0, &workers[i].threadId));
        if (!workers[i].event || !workers[i].thread)
            return false;
    }
    state.refreshEvent = WorkerOf(WorkerId::Refresh).event.Get();
    return true;
}

void Wake(WorkerId worker)
{
    SetEvent(WorkerOf(worker).event.Get());
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
