#include "console/system_events.h"

#include "console/agent.h"
#include "console/ui_calls.h"
#include "console/windows.h"
#include "ui/boxes.h"

#include <utility>

namespace voltaro {
namespace {

unsigned kept = 0;
bool posted = false; // the message that serves them is in the queue

bool IsOccupied()
{
    return IsWaitingForAgent() || OpenBoxes() > 0;
}

} // namespace

void KeepEvent(SystemEvent event)
{
    kept |= event;
    ServeKeptEvents();
}

void ServeKeptEvents()
{
    if (kept != 0 && !posted && !IsOccupied())
        posted = PostMessageW(WindowOf(WindowId::Main), kServeEventsMessage, 0, 0) != FALSE;
}

unsigned TakeEvents()
{
    posted = false;
    return IsOccupied() ? 0 : std::exchange(kept, 0);
}

} // namespace voltaro
