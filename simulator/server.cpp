#include "simulator/server.h"

#include "base/text.h"
#include "simulator/frame.h"
#include "simulator/operations.h"
#include "simulator/this_machine.h"

#include <algorithm>

namespace voltaro::simulator {
namespace {

constexpr int kSliceMs = 20;                  // how late a thread notices that the server is to stop
constexpr int kRequestMs = 10'000;            // a request must be there by then
constexpr int kCloseWaitMs = 2'000;           // the peer should have closed by then
constexpr std::size_t kMaxRequests = 100'000; // kept for the tests
constexpr std::size_t kMaxWorkers = 2'000;    // connections at once; more are closed
constexpr std::size_t kLongestLogged = 60;

enum class Ready { ToRead, ToWrite };

// Waits one slice for the socket.
bool Is(Ready ready, SOCKET socket)
{
    fd_set set;
    FD_ZERO(&set);
    FD_SET(socket, &set);
    timeval wait{0, kSliceMs * 1000};
    fd_set* toRead = ready == Ready::ToRead ? &set : nullptr;
    fd_set* toWrite = ready == Ready::ToWrite ? &set : nullptr;
    return select(0, toRead, toWrite, nullptr, &wait) > 0;
}

// The next close drops what is under way and resets the connection.
void ResetOnClose(SOCKET socket)
{
    const linger hard{1, 0};
    setsockopt(socket, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&hard), sizeof hard);
}

UniqueSocket ListeningSocket(int port)
{
    UniqueSocket socket(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<u_short>(port));
    if (!socket || bind(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0
        || listen(socket.Get(), SOMAXCONN) != 0)
        return {};
    return socket;
}

int PortOf(SOCKET socket)
{
    sockaddr_in address{};
    int size = sizeof address;
    return getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size) == 0 ? ntohs(address.sin_port) : 0;
}

} // namespace

AgentServer::AgentServer(const Scenario& scenario, LogSink log)
    : m_machine(scenario)
    , m_log(std::move(log))
{
    WSADATA data{};
    if (scenario.content == Content::ThisMachine)
        m_machine.State().live = &ThisMachine();
    m_winsock = WSAStartup(MAKEWORD(2, 2), &data) == 0;
}

AgentServer::~AgentServer()
{
    Stop();
    if (m_winsock)
        WSACleanup();
}

bool AgentServer::Start(int port)
{
    Stop();
    {
        const std::lock_guard lock(m_mutex);
        m_listener = ListeningSocket(port);
        if (!m_listener)
            return false;
        m_port = PortOf(m_listener.Get());
    }
    m_stopping = false;
    m_accepting = std::thread([this] { AcceptLoop(); });
    std::unique_lock lock(m_mutex);
    AwaitListener(lock);
    return true;
}

void AgentServer::Stop()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_work.notify_all();
    m_followed.notify_all();
    if (m_accepting.joinable())
        m_accepting.join();
    for (std::thread& worker : m_workers)
        worker.join();
    const std::lock_guard lock(m_mutex);
    m_workers.clear();
    m_waiting.clear();
    m_listener.Reset();
}

void AgentServer::SetFault(std::wstring_view operation, Fault fault)
{
    std::unique_lock lock(m_mutex);
    if (fault.kind == FaultKind::None)
        m_faults.erase(std::wstring(operation));
    else
        m_faults.insert_or_assign(std::wstring(operation), std::move(fault));
    AwaitListener(lock);
}

void AgentServer::ClearFaults()
{
    std::unique_lock lock(m_mutex);
    m_faults.clear();
    AwaitListener(lock);
}

void AgentServer::ScriptReply(std::wstring_view operation, std::wstring_view text)
{
    const std::lock_guard lock(m_mutex);
    m_scripts.insert_or_assign(std::wstring(operation), std::wstring(text));
}

void AgentServer::ClearScripts()
{
    const std::lock_guard lock(m_mutex);
    m_scripts.clear();
}

std::vector<ReceivedRequest> AgentServer::Requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

std::vector<std::wstring> AgentServer::TakeOperations()
{
    const std::lock_guard lock(m_mutex);
    std::vector<std::wstring> names;
    std::ranges::transform(m_requests, std::back_inserter(names), &ReceivedRequest::operation);
    m_requests.clear();
    return names;
}

std::wstring AgentServer::LastRequest(std::wstring_view operation) const
{
    const std::lock_guard lock(m_mutex);
    const auto last = std::find_if(
        m_requests.rbegin(), m_requests.rend(), [=](const auto& request) { return request.operation == operation; });
    return last != m_requests.rend() ? last->text : std::wstring();
}

bool AgentServer::HasReceived(std::wstring_view operation) const
{
    const std::lock_guard lock(m_mutex);
    return std::ranges::any_of(
        m_requests, [=](const auto& request) { return operation == L"*" || request.operation == operation; });
}

void AgentServer::ClearRequests()
{
    const std::lock_guard lock(m_mutex);
    m_requests.clear();
}

bool AgentServer::RefusesAll() const
{
    const auto fault = m_faults.find(L"*");
    return fault != m_faults.end() && fault->second.kind == FaultKind::Refuse;
}

// Waits until the accepting thread has closed or opened the listening socket as the faults want it. Nobody else does:
// a socket that is closed under a waiting thread goes on listening until that wait is over.
void AgentServer::AwaitListener(std::unique_lock<std::mutex>& lock)
{
    m_followed.wait_for(
        lock, std::chrono::seconds(1), [this] { return m_stopping || static_cast<bool>(m_listener) != RefusesAll(); });
}

SOCKET AgentServer::FollowRefusal()
{
    const std::lock_guard lock(m_mutex);
    if (RefusesAll())
        m_listener.Reset();
    else if (!m_listener)
        m_listener = ListeningSocket(m_port);
    m_followed.notify_all();
    return m_listener.Get();
}

void AgentServer::AcceptLoop()
{
    while (!m_stopping) {
        const SOCKET listener = FollowRefusal();
        if (listener == INVALID_SOCKET)
            Sleep(kSliceMs);
        if (listener == INVALID_SOCKET || !Is(Ready::ToRead, listener))
            continue;
        UniqueSocket socket(accept(listener, nullptr, nullptr));
        u_long nonBlocking = 1;
        if (socket && ioctlsocket(socket.Get(), static_cast<long>(FIONBIO), &nonBlocking) == 0)
            HandToWorker(std::move(socket));
    }
}

// Hands the connection to a worker, a new one when all are busy.
void AgentServer::HandToWorker(UniqueSocket socket)
{
    const std::lock_guard lock(m_mutex);
    if (m_waiting.size() >= m_idle) {
        if (m_workers.size() >= kMaxWorkers)
            return;
        m_workers.emplace_back([this] { Work(); });
    }
    m_waiting.push_back(std::move(socket));
    m_work.notify_one();
}

void AgentServer::Work()
{
    std::unique_lock lock(m_mutex);
    while (!m_stopping) {
        ++m_idle;
        m_work.wait(lock, [this] { return m_stopping || !m_waiting.empty(); });
        --m_idle;
        if (m_stopping)
            break;
        UniqueSocket socket = std::move(m_waiting.front());
        m_waiting.pop_front();
        lock.unlock();
        Serve(socket.Get());
        socket.Reset();
        lock.lock();
    }
}

void AgentServer::Serve(SOCKET socket)
{
    std::string bytes;
    std::size_t length = 0;
    if (Receive(socket, kHeaderBytes, bytes))
        length = FrameLength(std::string_view(bytes).substr(0, kHeaderBytes));
    if (length > 0 && !Receive(socket, length, bytes))
        length = 0;
    if (!m_stopping && !bytes.empty())
        Send(socket, AnswerFrame(bytes, length));
}

// Receives until there are so many bytes, or more when they are there already. False when they do not come in time;
// those that came stay.
bool AgentServer::Receive(SOCKET socket, std::size_t count, std::string& bytes)
{
    const ULONGLONG end = GetTickCount64() + kRequestMs;
    char piece[16384];
    while (bytes.size() < count && !m_stopping && GetTickCount64() < end) {
        if (!Is(Ready::ToRead, socket))
            continue;
        const int received = recv(socket, piece, sizeof piece, 0);
        if (received <= 0)
            return false;
        bytes.append(piece, static_cast<std::size_t>(received));
    }
    return bytes.size() >= count;
}

// The length is that of the header, 0 for a frame that never became complete.
Delivery AgentServer::AnswerFrame(const std::string& bytes, std::size_t length)
{
    const std::lock_guard lock(m_mutex);
    const std::wstring header = UnitsOf(std::string_view(bytes).substr(0, kHeaderBytes));
    std::wstring text = bytes.size() > kHeaderBytes ? UnitsOf(std::string_view(bytes).substr(kHeaderBytes)) : L"";
    const std::size_t end = text.find(L'\0');
    const wchar_t* wrong = nullptr;
    if (length == 0)
        wrong = L"The frame is wrong.";
    else if (bytes.size() != length || end + 1 != text.size())
        wrong = L"The text does not end where the frame ends.";
    text.resize(std::min(end, text.size()));
    MachineState before = m_machine.State();
    Outcome outcome
        = wrong == nullptr ? m_machine.Answer(text) : Outcome{L"", wrong, StatusResponse(L"Failure", wrong)};
    const auto script = m_scripts.find(outcome.operation);
    const bool scripted = script != m_scripts.end() && !outcome.operation.empty();
    if (scripted)
        m_machine.State() = std::move(before); // as if it had not seen the request
    auto fault = m_faults.find(outcome.operation);
    if (fault == m_faults.end())
        fault = m_faults.find(L"*");
    const Fault chosen = fault == m_faults.end() ? Fault{} : fault->second;
    if (m_requests.size() < kMaxRequests)
        m_requests.push_back({outcome.operation, header, text});
    Log(outcome.operation,
        scripted                        ? L"scripted"
            : outcome.complaint.empty() ? L"answered"
                                        : outcome.complaint,
        chosen);
    return Deliver(outcome.response, scripted ? &script->second : nullptr, chosen);
}

void AgentServer::Send(SOCKET socket, const Delivery& delivery)
{
    if (delivery.pieceSize > 0) {
        const BOOL on = TRUE;
        setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on), sizeof on);
    }
    bool open = Wait(delivery.delayMs);
    for (std::size_t at = 0; open && at < delivery.bytes.size();) {
        const std::size_t rest = delivery.bytes.size() - at;
        const std::size_t piece = delivery.pieceSize > 0 ? std::min(delivery.pieceSize, rest) : rest;
        const int sent = send(socket, delivery.bytes.data() + at, static_cast<int>(piece), 0);
        if (sent > 0) {
            at += static_cast<std::size_t>(sent);
            open = Wait(delivery.pauseMs);
        } else if (WSAGetLastError() == WSAEWOULDBLOCK) {
            static_cast<void>(Is(Ready::ToWrite, socket));
            open = !m_stopping;
        } else {
            return;
        }
    }
    if (delivery.ending == Ending::Reset)
        ResetOnClose(socket);
    if (delivery.ending == Ending::Orderly)
        AwaitClose(socket, kCloseWaitMs);
    if (delivery.ending == Ending::Hang)
        AwaitClose(socket, INT_MAX);
}

// Reads and drops what still comes until the peer closes. The side that closes first is the one whose port stays
// reserved for a while; it should not be the agent's.
void AgentServer::AwaitClose(SOCKET socket, int milliseconds)
{
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
    char dropped[4096];
    while (!m_stopping && GetTickCount64() < end) {
        if (Is(Ready::ToRead, socket) && recv(socket, dropped, sizeof dropped, 0) <= 0)
            return;
    }
}

// False when the server is to stop.
bool AgentServer::Wait(int milliseconds) const
{
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
    for (ULONGLONG now = GetTickCount64(); !m_stopping && now < end; now = GetTickCount64())
        Sleep(static_cast<DWORD>(std::min<ULONGLONG>(end - now, kSliceMs)));
    return !m_stopping;
}

void AgentServer::Log(std::wstring_view operation, std::wstring_view what, const Fault& fault)
{
    if (!m_log)
        return;
    SYSTEMTIME now{};
    GetLocalTime(&now);
    std::wstring line = Format(L"%04d-%02d-%02d %02d:%02d:%02d.%03d ", now.wYear, now.wMonth, now.wDay, now.wHour,
        now.wMinute, now.wSecond, now.wMilliseconds);
    for (const wchar_t unit : operation.empty() ? L"(no operation)" : operation.substr(0, kLongestLogged))
        line += unit < L' ' ? L'?' : unit; // a log entry stays one line
    line += L": ";
    line += what;
    if (fault.kind != FaultKind::None)
        line += Format(L" [fault %ls]", FaultInfos()[static_cast<std::size_t>(fault.kind)].name);
    m_log(line);
}

} // namespace voltaro::simulator
