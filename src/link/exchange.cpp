#include "link/exchange.h"

#include "base/error_log.h"
#include "base/handles.h"
#include "base/waiting.h"
#include "link/document.h"
#include "link/host_config.h"
#include "link/transport.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <exception>
#include <mutex>
#include <utility>

namespace voltaro {
namespace {

// What an operation owns. The request buffer has a fixed size, made at the first use.
struct OperationBuffers {
    std::once_flag once;
    UniqueHandle released;        // auto-reset; signalled while no thread holds the operation
    std::atomic<DWORD> holder{0}; // thread id, 0 for none
    WipedUnits request;
    FieldText response;
};

std::array<OperationBuffers, static_cast<std::size_t>(Operation::Count)> buffers;

OperationBuffers& BuffersOf(Operation operation)
{
    return buffers[static_cast<std::size_t>(operation)];
}

// Waits until no other thread holds the operation. NotSent when this thread does; Answered when it is held now.
Outcome Hold(Operation operation)
{
    OperationBuffers& own = BuffersOf(operation);
    std::call_once(own.once, [&] { own.released = UniqueHandle(CreateEventW(nullptr, FALSE, TRUE, nullptr)); });
    const DWORD self = GetCurrentThreadId();
    if (own.holder == self || !own.released)
        return Outcome::NotSent;
    if (threadWait(own.released.Get(), INFINITE) != Waited::Signalled)
        return Outcome::Ending;
    own.holder = self;
    return Outcome::Answered;
}

void ReleaseOperation(Operation operation)
{
    OperationBuffers& own = BuffersOf(operation);
    own.response.Clear();
    own.holder = 0;
    SetEvent(own.released.Get());
}

// Builds the document; the request buffer keeps its old text when that fails.
bool Build(const Request& request)
try {
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
} catch (const std::exception& exception) { // no memory
    LogFault("request", exception.what());
    return false;
}

} // namespace

Reply::Reply(Operation operation)
    : m_operation(operation)
    , m_outcome(Hold(operation))
    , m_held(m_outcome == Outcome::Answered)
{
    if (m_held)
        m_outcome = Outcome::NotSent; // so far
}

Reply::Reply(Reply&& other) noexcept
    : m_operation(other.m_operation)
    , m_outcome(std::exchange(other.m_outcome, Outcome::NotSent))
    , m_held(std::exchange(other.m_held, false))
    , m_parsed(other.m_parsed)
    , m_root(std::move(other.m_root))
{
}

Reply::~Reply()
{
    Release();
}

void Reply::Release()
{
    if (std::exchange(m_held, false))
        ReleaseOperation(m_operation);
}

bool Reply::Answered() const
{
    return m_outcome == Outcome::Answered
        || (m_outcome == Outcome::Exception
            && RowOf(RowOf(m_operation).member).difference == Difference::ExceptionBoxThenTrue);
}

void Reply::Send()
{
    OperationBuffers& own = BuffersOf(m_operation);
    const OperationRow& row = RowOf(m_operation);
    own.response.Clear();
    const wchar_t* request = own.request.empty() ? L"" : own.request.data();
    m_outcome = ServiceRequest(row.member, request, own.response, servicePort);
    if (row.secret && !own.request.empty())
        WipeMemory(own.request.data(), own.request.size() * sizeof(wchar_t));
}

const Element* Reply::Root()
try {
    if (Answered() && m_held && !std::exchange(m_parsed, true))
        m_root = ParseAnswer(Text().c_str());
    return m_root ? &*m_root : nullptr;
} catch (const std::exception& exception) { // no memory
    LogFault("answer", exception.what());
    return nullptr;
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
