#pragma once

#include "link/exchange.h"

namespace voltaro {

// Sends one request to the agent and waits for the answer, on the user-interface thread under the wait cursor and with
// the windows kept alive. A box that the operation's member has for the outcome is shown once the exchange has ended.
// Whatever else an agent that does not answer means, the caller says in its own way.
[[nodiscard]] Reply Send(const Request& request);

// The same for a request that was built beforehand (PrepareRequest).
[[nodiscard]] Reply SendPrepared(Operation operation);

// The same as Send for a window that has no words of its own for it: when the agent is lost, OnAgentLost is called.
[[nodiscard]] Reply SendOrLose(const Request& request);

// True while the user-interface thread waits for an answer.
[[nodiscard]] bool IsWaitingForAgent();

// Waits between two requests as the thread waits within one; false when the program ends meanwhile.
[[nodiscard]] bool WaitForNextTry(unsigned milliseconds);

} // namespace voltaro
