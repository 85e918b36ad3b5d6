#include "console/agent.h"

#include "console/agent_lost.h"
#include "console/system_events.h"
#include "console/ui_calls.h"
#include "ui/boxes.h"
#include "ui/ui_thread.h"
#include "ui/waiting.h"

namespace voltaro {
namespace {

// What a member's difference shows for an outcome.
struct OutcomeBox {
    Difference difference;
    Outcome outcome;
    Box box;
};

constexpr Box kEscapedException = {L"Error", L"Exception catch from---SocketSehedulerSet"}; // users know it misspelt

constexpr OutcomeBox kOutcomeBoxes[] = {
    {Difference::StartupBox, Outcome::CannotStart, {L"WAS StartUp Failed", L"WAS StartUp Failed"}},
    {Difference::ConnectBox, Outcome::CannotConnect,
        {L"Connection Closed !",
            L"Please check if Voltaro Service is started ?\nStart Voltaro Service and Try again !"}},
    {Difference::ClosedBox, Outcome::ClosedByAgent,
        {L"Connection Closed !", L"Connection Closed : Please check if Voltaro Service is running.",
            BoxIcon::Information}},
    {Difference::ExceptionBoxThenTrue, Outcome::Exception, kEscapedException},
    {Difference::ExceptionBoxThenFalse, Outcome::Exception, kEscapedException},
};

int waitingDepth = 0; // of the user-interface thread

class Waiting {
public:
    Waiting() { ++waitingDepth; }
    ~Waiting()
    {
        --waitingDepth;
        ServeKeptEvents();
    }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

private:
    WaitCursor m_cursor;
};

// Nothing is held while the box is open: a worker may want the operation.
void ShowOutcomeBox(Reply& reply)
{
    const Difference difference = RowOf(RowOf(reply.Asked()).member).difference;
    for (const OutcomeBox& row : kOutcomeBoxes) {
        if (row.difference != difference || row.outcome != reply.Result())
            continue;
        reply.Release();
        if (OnUiThread())
            ShowMessage(nullptr, row.box);
        else
            PostOnUi([&row] { ShowMessage(nullptr, row.box); });
    }
}

template <class Exchanging>
Reply UnderWaitCursor(Exchanging exchanging)
{
    if (!OnUiThread())
        return exchanging();
    const Waiting waiting;
    return exchanging();
}

template <class Exchanging>
Reply SendWith(Exchanging exchanging)
{
    Reply reply = UnderWaitCursor(exchanging);
    ShowOutcomeBox(reply);
    return reply;
}

} // namespace

Reply Send(const Request& request)
{
    return SendWith([&] { return Exchange(request); });
}

Reply SendPrepared(Operation operation)
{
    return SendWith([operation] { return ExchangePrepared(operation); });
}

Reply SendOrLose(const Request& request)
{
    Reply reply = Send(request);
    if (reply.Lost()) {
        reply.Release(); // a worker may want the operation while the box is open
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
    return threadWait(nullptr, milliseconds) != Waited::Ending;
}

} // namespace voltaro
