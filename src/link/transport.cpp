#include "link/transport.h"

#include "base/error_log.h"
#include "base/handles.h"
#include "base/platform_calls.h"
#include "base/waiting.h"
#include "link/frame.h"

#include <exception>
#include <span>

namespace voltaro {
namespace {

constexpr const char* kHost = "127.0.0.1"; // the agent is on this machine, always

// The errors that end an exchange whatever the call returned; every other code is ignored.
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

Outcome AfterWait(Waited waited)
{
    switch (waited) {
    case Waited::Signalled: return Outcome::Answered;
    case Waited::TimedOut: return Outcome::TimedOut;
    case Waited::Ending: break;
    }
    return Outcome::Ending;
}

// The steps of one exchange; a step that went well gives Answered. A failed exchange leaves its socket and its library
// reference open until the process ends, as agents in the field have always seen it, so the socket has no owner.
class ExchangeSteps {
public:
    ExchangeSteps(const MemberRow& member, int port)
        : m_member(member)
        , m_timeoutMs(static_cast<DWORD>(member.seconds) * timing.transportSecond)
        , m_port(port)
    {
    }

    Outcome Run(const wchar_t* request, FieldText& response)
    {
        Outcome outcome = Start();
        if (outcome == Outcome::Answered)
            outcome = Connect();
        if (outcome == Outcome::Answered)
            outcome = Send(request);
        if (outcome == Outcome::Answered)
            outcome = Receive(response);
        if (outcome == Outcome::Answered)
            Finish();
        else if (outcome == Outcome::Ending)
            closesocket(m_socket);
        return outcome;
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

    Outcome Start()
    {
        WSADATA data{};
        m_event = UniqueHandle(CreateEventW(nullptr, FALSE, FALSE, nullptr));
        if (!m_event)
            return Failed(Outcome::CannotStart, "CreateEventW");
        if (WSAStartup(MAKEWORD(2, 2), &data) != 0)
            return Failed(Outcome::CannotStart, "WSAStartup");
        m_socket = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
        // The value itself stands where its address belongs: the call fails, and the agent sees a connection that keeps
        // its delays.
        if (m_member.difference != Difference::NoOptionCall)
            setsockopt(m_socket, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(1), 4);
        return Outcome::Answered;
    }

    // Without blocking, so that a connection that is slow to be refused does not freeze the windows. Judged by the
    // socket's own error, never by the thread's last one, which still holds the option call's.
    Outcome Connect()
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = inet_addr(kHost);
        address.sin_port = htons(static_cast<u_short>(m_port));
        if (WSAEventSelect(m_socket, m_event.Get(), FD_CONNECT) != 0)
            return Failed(Outcome::CannotConnect, "WSAEventSelect");
        if (connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
            if (WSAGetLastError() != WSAEWOULDBLOCK)
                return Failed(Outcome::CannotConnect, "connect");
            const Waited waited = threadWait(m_event.Get(), m_timeoutMs);
            if (waited != Waited::Signalled)
                return waited == Waited::Ending ? Outcome::Ending : Outcome::CannotConnect;
            WSANETWORKEVENTS events{};
            if (WSAEnumNetworkEvents(m_socket, nullptr, &events) != 0)
                return Failed(Outcome::CannotConnect, "WSAEnumNetworkEvents");
            if (events.iErrorCode[FD_CONNECT_BIT] != 0)
                return Outcome::CannotConnect;
        }
        u_long nonBlocking = 0;
        WSAEventSelect(m_socket, nullptr, 0);
        ioctlsocket(m_socket, static_cast<long>(FIONBIO), &nonBlocking);
        return Outcome::Answered;
    }

    Outcome Send(const wchar_t* request)
    {
        const bool fixed = m_member.send == SendKind::Fixed;
        WipedBytes frame = EncodeFrame(request, fixed ? kFixedSendBytes : kHeapSendBytes);
        const std::size_t remaining = frame.size();
        // The whole frame fits into the socket's own buffer, so that an agent that does not read holds up nothing.
        SetNumber(SO_SNDBUF, static_cast<DWORD>(remaining));
        SetNumber(SO_SNDTIMEO, m_timeoutMs);
        // Zeros stand beyond the frame for the advance by twice the count.
        frame.resize(2 * remaining);
        return SendAll(frame.data(), remaining) ? Outcome::Answered : Failed(Outcome::CannotComplete, "send");
    }

    bool SendAll(const std::byte* position, std::size_t remaining)
    {
        WSASetLastError(0); // the connection's, which stands for no failure
        for (;;) {
            const int sent = send(m_socket, reinterpret_cast<const char*>(position), static_cast<int>(remaining), 0);
            if (LastErrorIsFatal() || sent <= 0)
                return false;
            if (static_cast<std::size_t>(sent) == remaining)
                return true;
            // After a partial send the position advances by twice the count: agents have never seen it otherwise.
            remaining -= static_cast<std::size_t>(sent);
            position += 2 * static_cast<std::size_t>(sent);
        }
    }

    Outcome Receive(FieldText& response)
    {
        // FD_CONNECT is left out: with it the event stays signalled and the wait spins.
        if (WSAEventSelect(m_socket, m_event.Get(), FD_READ | FD_CLOSE) != 0)
            return Failed(Outcome::CannotComplete, "WSAEventSelect");
        // Only the first data has a time limit; agents may take as long as they like over the rest.
        if (const Outcome outcome = AfterWait(threadWait(m_event.Get(), m_timeoutMs)); outcome != Outcome::Answered)
            return outcome;
        FrameAssembler assembler(m_member.capacity);
        WipedBytes piece(m_member.capacity);
        for (bool first = true;; first = false) {
            int count = 0;
            if (const Outcome outcome = ReceivePiece(piece, assembler.Wanted(), count); outcome != Outcome::Answered)
                return outcome;
            if (count == 0) {
                if (first) // closed before the first byte is the one failure that closes its socket too
                    closesocket(m_socket);
                return Outcome::ClosedByAgent;
            }
            switch (assembler.Take(std::span(piece).first(static_cast<std::size_t>(count)))) {
            case FrameAssembler::State::Failed:
                LogFault("recv", "an answer's length is wrong or above its member's capacity");
                return Outcome::Damaged;
            case FrameAssembler::State::Complete: response = assembler.Text(); return Outcome::Answered;
            case FrameAssembler::State::NeedMore: break;
            }
        }
    }

    // One receive; waits, without a limit, while nothing is there. `count` is 0 when the agent has closed.
    Outcome ReceivePiece(WipedBytes& piece, std::size_t wanted, int& count)
    {
        for (;;) {
            WSASetLastError(0); // what was served during the wait may have left an error of its own
            count = recv(m_socket, reinterpret_cast<char*>(piece.data()), static_cast<int>(wanted), 0);
            if (count >= 0 && !LastErrorIsFatal())
                return Outcome::Answered;
            if (count >= 0 || WSAGetLastError() != WSAEWOULDBLOCK)
                return Failed(Outcome::CannotComplete, "recv");
            if (const Outcome outcome = AfterWait(threadWait(m_event.Get(), INFINITE)); outcome != Outcome::Answered)
                return outcome;
        }
    }

    // Logs the call that failed.
    static Outcome Failed(Outcome outcome, const char* call)
    {
        const int error = WSAGetLastError();
        LogFailure(CodePlace::Here().file, CodePlace::Here().line, "ServiceRequest", error, call);
        return outcome;
    }

    void SetNumber(int option, DWORD number)
    {
        setsockopt(m_socket, SOL_SOCKET, option, reinterpret_cast<const char*>(&number), sizeof number);
    }

    const MemberRow& m_member;
    DWORD m_timeoutMs;
    int m_port;
    SOCKET m_socket = INVALID_SOCKET;
    UniqueHandle m_event; // the socket's, auto-reset
};

} // namespace

Outcome ServiceRequest(Member member, const wchar_t* request, FieldText& response, int port)
{
    const MemberRow& row = RowOf(member);
    ExchangeSteps steps(row, port);
    try {
        return steps.Run(request, response);
    } catch (const std::exception& exception) {
        LogFault("ServiceRequest", exception.what());
        // Device control alone closes its socket then; it counts as answered.
        if (row.difference == Difference::ExceptionBoxThenTrue)
            steps.Finish();
        return Outcome::Exception;
    }
}

} // namespace voltaro
