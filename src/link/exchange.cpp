#include "link/exchange.h"

#include "base/windows_api.h"
#include "link/document.h"
#include "link/error_log.h"
#include "link/host_config.h"
#include "link/transport.h"
#include "ui/liveness.h"
#include "ui/ui_thread.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <utility>

namespace voltaro {
namespace {

// What an operation owns. The request buffer has a fixed size, made at the first use.
struct OperationBuffers {
    std::atomic<DWORD> holder{0}; // thread id, 0 for none
    WipedUnits request;
    FieldText response;
};

std::array<OperationBuffers, static_cast<std::size_t>(Operation::Count)> buffers;

OperationBuffers& BuffersOf(Operation operation)
{
    return buffers[static_cast<std::size_t>(operation)];
}

constexpr unsigned kHoldPollMs = 5;

// False when this thread holds the operation already, or the program is ending.
bool Hold(Operation operation)
{
    std::atomic<DWORD>& holder = BuffersOf(operation).holder;
    const DWORD self = GetCurrentThreadId();
    DWORD expected = 0;
    while (!holder.compare_exchange_strong(expected, self)) {
        if (expected == self)
            return false;
        if (!OnUiThread())
            Sleep(kHoldPollMs);
        else if (WaitsEnded() || !WaitAlive(kHoldPollMs, WaitsEnded))
            return false;
        expected = 0;
    }
    return true;
}

// Builds the document; the request buffer keeps its old text when that fails.
bool Build(const Request& request)
{
    const OperationRow& row = RowOf(request.operation);
    const std::optional<FieldText> text = SerialiseRequest(RequestElement(request, NewMessageId()));
    if (!text)
        return false;
    const std::wstring_view units = *text;
    const bool fits = units.size() < row.requestUnits;
    if (fits) {
        WipedUnits& buffer = BuffersOf(request.operation).request;
        buffer.assign(row.requestUnits, L'\0');
        std::ranges::copy(units, buffer.begin());
    } else {
        LogFault("request", "a request is longer than its operation's buffer");
    }
    return fits;
}

} // namespace

Reply::Reply(Operation operation)
    : m_operation(operation)
    , m_held(Hold(operation))
{
}

Reply::Reply(Reply&& other) noexcept
    : m_operation(other.m_operation)
    , m_held(std::exchange(other.m_held, false))
    , m_sent(other.m_sent)
    , m_answered(std::exchange(other.m_answered, false))
    , m_parsed(other.m_parsed)
    , m_root(std::move(other.m_root))
{
}

Reply::~Reply()
{
    LetGo();
}

void Reply::LetGo()
{
    if (!std::exchange(m_held, false))
        return;
    BuffersOf(m_operation).response.Clear();
    BuffersOf(m_operation).holder = 0;
}

void Reply::Send()
{
    OperationBuffers& own = BuffersOf(m_operation);
    const OperationRow& row = RowOf(m_operation);
    own.response.Clear();
    const wchar_t* request = own.request.empty() ? L"" : own.request.data();
    m_sent = true;
    m_answered = ServiceRequest(row.member, request, own.response, agentAddress.host, servicePort);
    if (row.secret && !own.request.empty())
        WipeMemory(own.request.data(), own.request.size() * sizeof(wchar_t));
}

const Element* Reply::Root()
{
    if (m_answered && !std::exchange(m_parsed, true))
        m_root = ParseAnswer(Text().c_str());
    return m_root ? &*m_root : nullptr;
}

std::wstring Reply::Status()
{
    const auto fields = Root() ? ResponseFields(*Root()) : std::span<const Element>();
    return fields.empty() ? std::wstring() : WholeText(fields[0]);
}

const FieldText& Reply::Text() const
{
    return BuffersOf(m_operation).response;
}

Reply Exchange(const Request& request)
{
    Reply reply(request.operation);
    // A failed build leaves the old text in the buffer; it is not sent again in the place of the new one.
    if (reply.m_held && Build(request))
        reply.Send();
    return reply;
}

bool PrepareRequest(const Request& request)
{
    return Build(request);
}

Reply ExchangePrepared(Operation operation)
{
    Reply reply(operation);
    if (reply.m_held)
        reply.Send();
    return reply;
}

bool IsHeld(Operation operation)
{
    return BuffersOf(operation).holder != 0;
}

} // namespace voltaro
