#pragma once

#include <cstdint>

namespace voltaro {

// The four long-lived threads, each with a manual-reset event that wakes it: update check, busy animation, status
// poller, background refresh. False when Windows refuses one.
enum class WorkerId : std::uint8_t { UpdateCheck, BusyAnimation, StatusPoller, Refresh, Count };
[[nodiscard]] bool StartWorkers();

// Sets the worker's event.
void Wake(WorkerId worker);

// Sends each worker the close message and ends it by force when it does not follow at once, in the order of the case.
enum class StopOrder : std::uint8_t { MainWindowDestroyed, SessionEnds };
void StopWorkers(StopOrder order);

} // namespace voltaro
