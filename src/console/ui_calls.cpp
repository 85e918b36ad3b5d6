#include "console/ui_calls.h"

#include "console/state.h"
#include "ui/ui_thread.h"

#include <memory>

namespace voltaro {

void OnUi(const std::function<void()>& work)
{
    if (OnUiThread())
        work();
    else
        SendMessageW(WindowOf(WindowId::Main), kRunOnUiMessage, 0, reinterpret_cast<LPARAM>(&work));
}

void PostOnUi(std::function<void()> work)
{
    auto owned = std::make_unique<std::function<void()>>(std::move(work));
    if (PostMessageW(WindowOf(WindowId::Main), kPostedOnUiMessage, 0, reinterpret_cast<LPARAM>(owned.get())))
        static_cast<void>(owned.release()); // RunPostedWork owns it now
}

void RunSentWork(LPARAM l)
{
    (*reinterpret_cast<const std::function<void()>*>(l))();
}

void RunPostedWork(LPARAM l)
{
    const std::unique_ptr<std::function<void()>> work(reinterpret_cast<std::function<void()>*>(l));
    (*work)();
}

} // namespace voltaro
