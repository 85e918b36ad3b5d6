#include "simulator/server.h"

#include "base/text.h"
#include "simulator/frame.h"
#include "simulator/operations.h"

#include <algorithm>

namespace voltaro::simulator {
namespace {

constexpr int kSliceMs = 20;                   // how late a thread notices that the server is to stop
constexpr int kRequestMs = 10'000;             // a request must be there by then
constexpr int kFarewellMs = 2'000;             // the peer should have closed by then
constexpr std::size_t kMostRequests = 100'000; // kept for the tests
constexpr std::size_t kLongestLogged = 60;

bool IsReadable(SOCKET socket, int milliseconds)
{
    fd_set set;
    FD_ZERO(&set);
    FD_SET(socket, &set);
    timeval wait{milliseconds / 1000, milliseconds % 1000 * 1000};
    return select(0, &set, nullptr, nullptr, &wait) > 0;
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
    FollowRefusal();
    m_accepting = std::thread([this] { AcceptLoop(); });
    return true;
}

void AgentServer::Stop()
{
    m_stopping = true;
    if (m_accepting.joinable())
        m_accepting.join();
    const std::lock_guard lock(m_mutex);
    m_listener.Reset();
}

void AgentServer::SetFault(std::wstring_view operation, Fault fault)
{
    {
        const std::lock_guard lock(m_mutex);
        if (fault.kind == FaultKind::None)
            m_faults.erase(std::wstring(operation));
        else
            m_faults.insert_or_assign(std::wstring(operation), std::move(fault));
    }
    FollowRefusal();
}

void AgentServer::ClearFaults()
{
    {
        const std::lock_guard lock(m_mutex);
        m_faults.clear();
    }
    FollowRefusal();
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

void AgentServer::ClearRequests()
{
    const std::lock_guard lock(m_mutex);
    m_requests.clear();
}

// Closes the listening socket while every connection is to be refused, and opens it again on the same port after that.
void AgentServer::FollowRefusal()
{
    const std::lock_guard lock(m_mutex);
    if (m_stopping)
        return;
    const auto fault = m_faults.find(L"*");
    if (fault != m_faults.end() && fault->second.kind == FaultKind::Refuse)
        m_listener.Reset();
    else if (!m_listener)
        m_listener = ListeningSocket(m_port);
}

void AgentServer::AcceptLoop()
{
    std::list<Connection> connections;
    while (!m_stopping) {
        SOCKET listener = INVALID_SOCKET;
        {
            const std::lock_guard lock(m_mutex);
            listener = m_listener.Get();
        }
        connections.remove_if([](Connection& connection) {
            if (connection.finished)
                connection.thread.join();
            return connection.finished.load();
        });
        if (listener == INVALID_SOCKET) {
            ::Sleep(kSliceMs);
            continue;
        }
        if (!IsReadable(listener, kSliceMs))
            continue;
        const std::lock_guard lock(m_mutex);
        if (m_listener.Get() != listener)
            continue;
        UniqueSocket socket(accept(listener, nullptr, nullptr));
        if (!socket)
            continue;
        Connection& connection = connections.emplace_back();
        connection.thread = std::thread([this, &connection, held = std::move(socket)]() mutable {
            Serve(held.Get());
            held.Reset();
            connection.finished = true;
        });
    }
    for (Connection& connection : connections)
        connection.thread.join();
}

void AgentServer::Serve(SOCKET socket)
{
    std::string header;
    std::string body;
    bool complete = ReceiveBytes(socket, kHeaderBytes, header);
    const std::size_t length = complete ? FrameLength(header) : 0;
    complete = length > 0 && ReceiveBytes(socket, length - kHeaderBytes, body);
    if (!m_stopping && !header.empty())
        Send(socket, AnswerFrame(header, body, complete));
}

// False when the bytes do not come in time; those that came stay.
bool AgentServer::ReceiveBytes(SOCKET socket, std::size_t count, std::string& bytes)
{
    const ULONGLONG end = GetTickCount64() + kRequestMs;
    char piece[4096];
    while (bytes.size() < count && !m_stopping && GetTickCount64() < end) {
        if (!IsReadable(socket, kSliceMs))
            continue;
        const std::size_t wanted = std::min(count - bytes.size(), sizeof piece);
        const int received = recv(socket, piece, static_cast<int>(wanted), 0);
        if (received <= 0)
            return false;
        bytes.append(piece, static_cast<std::size_t>(received));
    }
    return bytes.size() == count;
}

Delivery AgentServer::AnswerFrame(const std::string& header, const std::string& body, bool complete)
{
    const std::lock_guard lock(m_mutex);
    std::wstring text = UnitsOf(body);
    const bool terminated = !text.empty() && text.back() == L'\0';
    text.resize(std::min(text.find(L'\0'), text.size()));
    const bool framed = complete && terminated && body.size() == text.size() * 2 + 2;
    Outcome outcome = framed ? m_machine.Answer(text) : Outcome{};
    if (!framed) {
        outcome.complaint = complete ? L"The text does not end where the frame ends." : L"The frame is wrong.";
        outcome.response = StatusResponse(L"Failure", outcome.complaint);
    }
    const auto script = m_scripts.find(outcome.operation);
    const bool scripted = script != m_scripts.end() && !outcome.operation.empty();
    auto fault = m_faults.find(outcome.operation);
    if (fault == m_faults.end())
        fault = m_faults.find(L"*");
    const Fault chosen = fault == m_faults.end() ? Fault{} : fault->second;
    if (m_requests.size() < kMostRequests)
        m_requests.push_back({outcome.operation, UnitsOf(header), text});
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
        if (sent <= 0)
            return;
        at += static_cast<std::size_t>(sent);
        open = delivery.pauseMs == 0 ? !m_stopping.load() : Wait(delivery.pauseMs);
    }
    if (delivery.ending == Ending::Reset)
        ResetOnClose(socket);
    if (delivery.ending == Ending::Orderly)
        AwaitClose(socket, kFarewellMs);
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
        if (IsReadable(socket, kSliceMs) && recv(socket, dropped, sizeof dropped, 0) <= 0)
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
        line += Format(L" [fault %ls]", FaultNames()[static_cast<std::size_t>(fault.kind)]);
    m_log(line);
}

} // namespace voltaro::simulator
