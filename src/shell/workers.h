#pragma once

#include <cstdint>

namespace voltaro {

// The four long-lived threads, each with a manual-reset event that wakes it: update check, busy animation, status
// poller, background refresh. False when Windows refuses one.
enum class WorkerId : std::uint8_t { UpdateCheck, BusyAnimation, StatusPoller, Refresh, Count };
[[nodiscard]] bool StartWorkers();

// Sets the worker's event.
void Wake(WorkerId worker);

// Asks each worker to end and waits for it, in the order of the case. A request that it waits for ends with it. What a
// worker hands over meanwhile is taken and dropped, so neither waits for the other.
enum class StopOrder : std::uint8_t { MainWindowDestroyed, SessionEnds };
void StopWorkers(StopOrder order);

} // namespace voltaro
