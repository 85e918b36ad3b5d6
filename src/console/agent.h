#pragma once

#include "link/exchange.h"

namespace voltaro {

// Sends one request to the agent and waits for the answer, on the user-interface thread under the wait cursor and with
// the windows kept alive. When the agent does not answer, the caller says so in its own way.
[[nodiscard]] Reply Send(const Request& request);

// The same for a request that was built beforehand (PrepareRequest).
[[nodiscard]] Reply SendPrepared(Operation operation);

// The same as Send for a window that has no words of its own for it: when the agent does not answer, OnAgentLost is
// called.
[[nodiscard]] Reply SendOrLose(const Request& request);

// True while the user-interface thread waits for an answer; what arrives meanwhile and would ask for more is passed
// over.
[[nodiscard]] bool IsWaitingForAgent();

// Waits between two requests as the thread waits within one; false when the program ends meanwhile.
[[nodiscard]] bool WaitForNextTry(unsigned milliseconds);

} // namespace voltaro
