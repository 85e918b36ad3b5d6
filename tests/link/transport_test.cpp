#include "link/transport.h"

#include "base/platform_calls.h"
#include "base/waiting.h"
#include "link/document.h"
#include "link/frame.h"
#include "link/requests.h"
#include "simulator/server.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

using simulator::AgentServer;
using simulator::Fault;
using simulator::FaultKind;

// One operation name for all members: what a member sends is the caller's business.
constexpr const wchar_t* kOperation = L"GetSystemstatus";

std::wstring StatusRequest()
{
    return std::wstring(*SerialiseRequest(RequestElement(Plain(Operation::GetSystemStatus), NewMessageId())));
}

// What a kind of fault makes of an exchange.
struct FaultRow {
    Fault fault;
    Outcome outcome;            // by a member that has the room
    std::size_t capacity = 700; // what the answer takes, in bytes
};
const FaultRow kFaults[] = {
    {{FaultKind::None, {}}, Outcome::Answered},
    {{FaultKind::Refuse, {}}, Outcome::ClosedByAgent}, // a reset, which Wine reports as a close
    {{FaultKind::CloseAtOnce, {}}, Outcome::ClosedByAgent},
    {{FaultKind::CloseMidFrame, {}}, Outcome::ClosedByAgent},
    {{FaultKind::CloseMidFrame, L"7"}, Outcome::ClosedByAgent}, // within the length digits
    {{FaultKind::Silent, {}}, Outcome::TimedOut},
    {{FaultKind::Late, L"30"}, Outcome::Answered},
    {{FaultKind::Slow, L"3"}, Outcome::Answered},
    {{FaultKind::ByteByByte, {}}, Outcome::Answered},
    {{FaultKind::WrongLength, L"64"}, Outcome::ClosedByAgent}, // the rest never comes
    {{FaultKind::WrongLength, L"-8"}, Outcome::Damaged},
    {{FaultKind::HugeLength, {}}, Outcome::Damaged},
    {{FaultKind::NoNul, {}}, Outcome::Answered},
    {{FaultKind::Garbage, L"50"}, Outcome::Answered}, // well framed: the reader's concern
    {{FaultKind::NotWellFormed, {}}, Outcome::Answered},
    {{FaultKind::Doctype, {}}, Outcome::Answered, 1000},
    {{FaultKind::Status, L"Failure"}, Outcome::Answered},
};

TEST(TransportTest, EveryMemberAgainstEveryFault)
{
    timing.transportSecond = 10; // 60 s become 600 ms
    AgentServer agent;
    ASSERT_TRUE(agent.Start());
    const std::wstring request = StatusRequest();
    for (const MemberRow& member : kMembers) {
        for (const FaultRow& row : kFaults) {
            if (row.fault.kind == FaultKind::Silent && member.seconds > 20)
                continue; // one wait is like the other
            agent.SetFault(kOperation, row.fault);
            FieldText response;
            const ULONGLONG start = GetTickCount64();
            EXPECT_EQ(ServiceRequest(member.member, request.c_str(), response, agent.Port()),
                member.capacity >= row.capacity ? row.outcome : Outcome::Damaged)
                << static_cast<int>(member.member) << " fault " << static_cast<int>(row.fault.kind);
            EXPECT_LT(GetTickCount64() - start, 400U + static_cast<unsigned>(member.seconds) * 10U);
            EXPECT_LE(response.view().size(), member.capacity / 2);
        }
    }
    timing = Timing();
}

TEST(TransportTest, AnswersAboveTheCapacityFail)
{
    AgentServer agent;
    ASSERT_TRUE(agent.Start());
    for (const MemberRow& member : kMembers) {
        // A frame of exactly the capacity, and one unit more.
        const std::size_t fits = (member.capacity - kFrameOverheadBytes) / kBytesPerUnit;
        for (const std::size_t units : {fits, fits + 1}) {
            agent.ScriptReply(kOperation, std::wstring(units, L'x'));
            FieldText response;
            EXPECT_EQ(ServiceRequest(member.member, StatusRequest().c_str(), response, agent.Port()),
                units == fits ? Outcome::Answered : Outcome::Damaged)
                << static_cast<int>(member.member);
            EXPECT_EQ(response.view().size(), units == fits ? fits : 0U);
        }
    }
    agent.Stop();
    FieldText response;
    EXPECT_EQ(ServiceRequest(Member::StatusCheck, L"", response, agent.Port()), Outcome::CannotConnect);
}

// Waits that end: the first data's after the member's time, the connection's and the data's when the thread is to end.
TEST(TransportTest, EndsWithItsThread)
{
    static int waits = 0;
    static int end = 0;
    AgentServer agent;
    ASSERT_TRUE(agent.Start());
    for (int endAt = 1; endAt <= 3; ++endAt) {
        agent.SetFault(kOperation, {endAt < 3 ? FaultKind::Silent : FaultKind::Slow, L"300"});
        end = endAt;
        waits = 0;
        threadWait = [](HANDLE handle, DWORD milliseconds) {
            return ++waits == end ? Waited::Ending : WaitPlainly(handle, milliseconds);
        };
        FieldText response;
        EXPECT_EQ(
            ServiceRequest(Member::StatusCheck, StatusRequest().c_str(), response, agent.Port()), Outcome::Ending);
        EXPECT_TRUE(response.empty());
    }
    agent.ClearFaults();
    threadWait = [](HANDLE handle, DWORD milliseconds) {
        const Waited waited = WaitPlainly(handle, milliseconds);
        WSASetLastError(WSAENETDOWN); // of something else that was served meanwhile
        return waited;
    };
    FieldText answer;
    EXPECT_EQ(ServiceRequest(Member::StatusCheck, StatusRequest().c_str(), answer, agent.Port()), Outcome::Answered);
    threadWait = WaitPlainly;
}

// The platform's own counter is always 0 under Wine, so every handle answers for itself.
int OpenHandles()
{
    int count = 0;
    DWORD flags = 0;
    for (ULONG_PTR handle = 4; handle < 0x2000; handle += 4)
        count += GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags);
    return count;
}

TEST(TransportTest, KeepsHandles)
{
    AgentServer agent;
    ASSERT_TRUE(agent.Start());
    const std::wstring request = StatusRequest();
    const auto handlesAfter = [&](int exchanges, Outcome expected) {
        FieldText response;
        for (int i = 0; i < exchanges; ++i)
            EXPECT_EQ(ServiceRequest(Member::StatusCheck, request.c_str(), response, agent.Port()), expected);
        return OpenHandles();
    };
    const int before = handlesAfter(20, Outcome::Answered);
    EXPECT_LE(handlesAfter(200, Outcome::Answered), before + 10); // the simulator's own threads come and go
    agent.SetFault(kOperation, {FaultKind::CloseAtOnce, {}});
    EXPECT_LE(handlesAfter(100, Outcome::ClosedByAgent), before + 10); // the one failure that closes its socket
    agent.SetFault(kOperation, {FaultKind::HugeLength, {}});
    EXPECT_LE(handlesAfter(100, Outcome::Damaged), before + 120); // any other leaves its socket, and nothing else
}

} // namespace
} // namespace voltaro
