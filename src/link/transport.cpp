#include "link/transport.h"

#include "base/handles.h"
#include "base/timing.h"
#include "link/error_log.h"
#include "link/frame.h"
#include "ui/boxes.h"
#include "ui/liveness.h"
#include "ui/ui_thread.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <span>

namespace voltaro {
namespace {

constexpr Box kStartupFailed = {L"WAS StartUp Failed", L"WAS StartUp Failed"};
constexpr Box kConnectFailed
    = {L"Connection Closed !", L"Please check if Voltaro Service is started ?\nStart Voltaro Service and Try again !"};
constexpr Box kClosedByAgent = {
    L"Connection Closed !", L"Connection Closed : Please check if Voltaro Service is running.", BoxIcon::Information};
constexpr Box kEscapedException = {L"Error", L"Exception catch from---SocketSehedulerSet"}; // the misspelling is meant

enum class Ready : std::uint8_t { Yes, TimedOut, Failed };
enum class WaitFor : std::uint8_t { Data, Connection };

constexpr DWORD kNoLimit = INFINITE;
constexpr DWORD kSliceMs = 5;
constexpr DWORD kServeMs = 20;
ULONGLONG servedAt = 0; // when the windows were last kept alive; of the user-interface thread alone

Ready SelectOnce(SOCKET socket, WaitFor what, DWORD milliseconds)
{
    fd_set ready;
    FD_ZERO(&ready);
    FD_SET(socket, &ready);
    fd_set failed = ready;
    timeval time{static_cast<long>(milliseconds / 1000), static_cast<long>(milliseconds % 1000 * 1000)};
    const bool connecting = what == WaitFor::Connection;
    const int count = select(0, connecting ? nullptr : &ready, connecting ? &ready : nullptr,
        connecting ? &failed : nullptr, milliseconds == kNoLimit ? nullptr : &time);
    if (count == 0)
        return Ready::TimedOut;
    return count > 0 && FD_ISSET(socket, &ready) ? Ready::Yes : Ready::Failed;
}

// Waits in one go, or, on the user-interface thread, in short slices between which the windows are kept alive.
Ready Wait(SOCKET socket, WaitFor what, DWORD milliseconds)
{
    if (!OnUiThread())
        return SelectOnce(socket, what, milliseconds);
    const ULONGLONG start = GetTickCount64();
    for (;;) {
        const Ready ready = SelectOnce(socket, what, std::min(kSliceMs, milliseconds));
        const ULONGLONG now = GetTickCount64();
        // An answer that trickles in never lets a slice pass; the windows live all the same.
        if (ready != Ready::TimedOut && now - servedAt < kServeMs)
            return ready;
        if (WaitsEnded())
            return Ready::Failed;
        if (ready == Ready::TimedOut && milliseconds != kNoLimit && now - start >= milliseconds)
            return Ready::TimedOut;
        servedAt = now;
        ServePaintAndSent();
        WSASetLastError(0); // what was served may have left an error of its own
        if (ready != Ready::TimedOut)
            return ready;
    }
}

// The errors that end an exchange whatever the call returned; every other code is ignored (meant).
bool LastErrorIsFatal()
{
    switch (WSAGetLastError()) {
    case WSAEWOULDBLOCK:
    case WSAENETDOWN:
    case WSAENETRESET:
    case WSAECONNABORTED:
    case WSAETIMEDOUT: return true;
    default: return false;
    }
}

// The steps of one exchange; each returns false when it fails the exchange. A failed exchange leaves its socket and its
// library reference open until the process ends: that is meant, so the socket has no owner.
class ExchangeSteps {
public:
    ExchangeSteps(const MemberRow& member, const char* host, int port)
        : m_member(member)
        , m_timeoutMs(static_cast<DWORD>(member.seconds) * timing.transportSecond)
        , m_port(port)
    {
        // A dotted address; what does not fit is cut.
        std::copy_n(host, std::min(std::char_traits<char>::length(host), sizeof m_host - 1), m_host);
    }

    bool StartLibrary()
    {
        WSADATA data{};
        if (WSAStartup(MAKEWORD(2, 2), &data) == 0)
            return true;
        if (m_member.differences & kStartupBox)
            Tell(nullptr, kStartupFailed);
        return false;
    }

    void MakeSocket()
    {
        m_socket = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
        if (m_member.differences & kNoOptionCall)
            return;
        // The value itself stands where its address belongs: the call fails and the connection keeps its delays
        // (meant).
        setsockopt(m_socket, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(1), 4);
    }

    bool Connect()
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = inet_addr(m_host);
        address.sin_port = htons(static_cast<u_short>(m_port));
        // Not to see the failure of the option call after a good connect.
        WSASetLastError(0);
        // Without blocking, so that a connection that is slow to be refused does not freeze the windows.
        SetBlocking(false);
        if (connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) < 0
            && (WSAGetLastError() != WSAEWOULDBLOCK
                || Wait(m_socket, WaitFor::Connection, m_timeoutMs) != Ready::Yes)) {
            if (m_member.differences & kConnectBox)
                Tell(nullptr, kConnectFailed);
            return false;
        }
        WSASetLastError(0);
        SetBlocking(true);
        return WSAGetLastError() == 0;
    }

    bool Send(const wchar_t* request)
    {
        const bool fixed = m_member.send == SendKind::Fixed;
        WipedBytes frame = EncodeFrame(request, fixed ? kFixedSendBytes : kHeapSendBytes);
        const std::size_t remaining = frame.size();
        // The whole frame fits into the socket's own buffer, so that an agent that does not read holds up nothing.
        SetNumber(SO_SNDBUF, static_cast<DWORD>(remaining));
        SetNumber(SO_SNDTIMEO, m_timeoutMs);
        // After a partial send the position advances by twice the count (meant), so zeros stand beyond the frame.
        frame.resize(2 * remaining);
        return SendAll(frame.data(), remaining);
    }

    bool Receive(FieldText& response)
    {
        // Only the first data has a time limit; later pieces may take as long as they like (meant).
        if (Wait(m_socket, WaitFor::Data, m_timeoutMs) != Ready::Yes)
            return false;
        FrameAssembler assembler(m_member.capacity);
        WipedBytes piece(m_member.capacity);
        for (bool first = true;;) {
            const int count
                = recv(m_socket, reinterpret_cast<char*>(piece.data()), static_cast<int>(assembler.Wanted()), 0);
            const bool fatal = LastErrorIsFatal();
            if (count == 0 && m_member.differences & kClosedBox)
                Tell(nullptr, kClosedByAgent);
            // Closed before the first byte is the one failure that closes its socket too (meant).
            if (count == 0 && !fatal && first)
                closesocket(m_socket);
            if (fatal || count <= 0)
                return false;
            first = false;
            switch (assembler.Take(std::span(piece).first(static_cast<std::size_t>(count)))) {
            case FrameAssembler::State::Failed:
                LogFault("recv", "an answer's length is wrong or above its member's capacity");
                return false;
            case FrameAssembler::State::Complete: response = assembler.Text(); return true;
            case FrameAssembler::State::NeedMore: break;
            }
            if (Wait(m_socket, WaitFor::Data, kNoLimit) != Ready::Yes)
                return false;
        }
    }

    void Finish()
    {
        shutdown(m_socket, SD_BOTH);
        closesocket(m_socket);
        WSACleanup();
    }

private:
    // Far above every request; keeps the length digits from overflowing.
    static constexpr std::size_t kHeapSendBytes = 2'000'000;

    bool SendAll(const std::byte* position, std::size_t remaining)
    {
        for (;;) {
            const int sent = send(m_socket, reinterpret_cast<const char*>(position), static_cast<int>(remaining), 0);
            if (LastErrorIsFatal() || sent <= 0)
                return false;
            if (static_cast<std::size_t>(sent) == remaining)
                return true;
            remaining -= static_cast<std::size_t>(sent);
            position += 2 * static_cast<std::size_t>(sent);
        }
    }

    void SetBlocking(bool blocking)
    {
        u_long nonBlocking = blocking ? 0 : 1;
        ioctlsocket(m_socket, static_cast<long>(FIONBIO), &nonBlocking);
    }
    void SetNumber(int option, DWORD number)
    {
        setsockopt(m_socket, SOL_SOCKET, option, reinterpret_cast<const char*>(&number), sizeof number);
    }

    const MemberRow& m_member;
    DWORD m_timeoutMs;
    int m_port;
    char m_host[16] = {};
    SOCKET m_socket = INVALID_SOCKET;
};

bool RunExchange(ExchangeSteps& steps, const wchar_t* request, FieldText& response)
{
    if (!steps.StartLibrary())
        return false;
    steps.MakeSocket();
    if (!steps.Connect() || !steps.Send(request) || !steps.Receive(response))
        return false;
    steps.Finish();
    return true;
}

} // namespace

bool ServiceRequest(Member member, const wchar_t* request, FieldText& response, const char* host, int port)
{
    const MemberRow& row = RowOf(member);
    ExchangeSteps steps(row, host, port);
    try {
        return RunExchange(steps, request, response);
    } catch (const std::exception&) {
        if (row.differences & (kExceptionBoxThenTrue | kExceptionBoxThenFalse))
            Tell(nullptr, kEscapedException);
        if (!(row.differences & kExceptionBoxThenTrue))
            return false;
        steps.Finish(); // unlike the job list, device control closes its socket and reports success (meant)
        return true;
    }
}

} // namespace voltaro
