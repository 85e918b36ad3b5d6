#include "console/ui_calls.h"

#include "console/windows.h"
#include "ui/ui_thread.h"

#include <mutex>
#include <utility>
#include <vector>

namespace voltaro {
namespace {

std::mutex mutex;
std::vector<std::function<void()>> postedWork; // what was posted and has not run

} // namespace

void OnUi(const std::function<void()>& work)
{
    if (OnUiThread())
        work();
    else if (!WaitsEnded())
        SendMessageW(WindowOf(WindowId::Main), kRunOnUiMessage, 0, reinterpret_cast<LPARAM>(&work));
}

void PostOnUi(std::function<void()> work)
{
    if (WaitsEnded())
        return;
    {
        const std::lock_guard lock(mutex);
        postedWork.push_back(std::move(work));
    }
    PostMessageW(WindowOf(WindowId::Main), kPostedOnUiMessage, 0, 0);
}

void RunSentWork(LPARAM l)
{
    if (!WaitsEnded())
        (*reinterpret_cast<const std::function<void()>*>(l))();
}

void RunPostedWork()
{
    std::vector<std::function<void()>> works;
    {
        const std::lock_guard lock(mutex);
        works.swap(postedWork);
    }
    for (const std::function<void()>& work : works) {
        if (!WaitsEnded())
            work();
    }
}

} // namespace voltaro
