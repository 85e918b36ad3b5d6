#include "console/agent.h"

#include "console/agent_lost.h"
#include "ui/liveness.h"
#include "ui/ui_thread.h"

namespace voltaro {
namespace {

int waitingDepth = 0; // of the user-interface thread

struct Waiting {
    Waiting() { ++waitingDepth; }
    ~Waiting() { --waitingDepth; }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
    WaitCursor cursor;
};

} // namespace

Reply Send(const Request& request)
{
    if (!OnUiThread())
        return Exchange(request);
    const Waiting waiting;
    return Exchange(request);
}

Reply SendPrepared(Operation operation)
{
    if (!OnUiThread())
        return ExchangePrepared(operation);
    const Waiting waiting;
    return ExchangePrepared(operation);
}

Reply SendOrLose(const Request& request)
{
    Reply reply = Send(request);
    if (!reply.Answered()) {
        reply.LetGo(); // a worker may want the operation while the box is open
        if (reply.Sent())
            OnAgentLost();
    }
    return reply;
}

bool IsWaitingForAgent()
{
    return waitingDepth > 0;
}

bool WaitForNextTry(unsigned milliseconds)
{
    const Waiting waiting;
    return WaitAlive(milliseconds, WaitsEnded);
}

} // namespace voltaro
