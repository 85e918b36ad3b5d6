#include "ui/ui_thread.h"

#include "ui/waiting.h"

#include <atomic>

namespace voltaro {
namespace {

std::atomic<DWORD> uiThread{0};
std::atomic<bool> waitsEnded{false};

} // namespace

void AdoptUiThread()
{
    uiThread = GetCurrentThreadId();
    threadWait = WaitServingWindows;
}

bool OnUiThread()
{
    return uiThread == GetCurrentThreadId();
}

void EndWaits()
{
    waitsEnded = true;
}

bool WaitsEnded()
{
    return waitsEnded;
}

void AllowWaits()
{
    waitsEnded = false;
}

} // namespace voltaro
