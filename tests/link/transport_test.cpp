#include "link/transport.h"

#include "base/platform_calls.h"
#include "base/waiting.h"
#include "link/document.h"
#include "link/frame.h"
#include "link/requests.h"
#include "simulator/server.h"
#include "support/test_window.h"
#include "ui/waiting.h"

#include <gtest/gtest.h>

#include <thread>

namespace voltaro {
namespace {

using simulator::AgentServer;
using simulator::FaultKind;

// One operation name for all members: what a member sends is the caller's business.
constexpr const wchar_t* kOperation = L"GetSystemstatus";

std::wstring StatusRequest()
{
    return std::wstring(*SerialiseRequest(RequestElement(Plain(Operation::GetSystemStatus), NewMessageId())));
}

// What a behaviour of the agent makes of an exchange by a member that has the room.
const struct {
    const wchar_t* fault;
    Outcome outcome;
    std::size_t bytes = 700; // that the answer takes
} kBehaviours[] = {
    {L"none", Outcome::Answered},
    {L"close", Outcome::ClosedByAgent},
    {L"close-mid-frame:1", Outcome::ClosedByAgent},
    {L"close-mid-frame:15", Outcome::ClosedByAgent}, // within the length digits
    {L"close-mid-frame:16", Outcome::ClosedByAgent},
    {L"close-mid-frame:17", Outcome::ClosedByAgent},
    {L"close-mid-frame", Outcome::ClosedByAgent},
    {L"refuse", Outcome::ClosedByAgent}, // once the request is read
    {L"reset-mid-frame", Outcome::ClosedByAgent},
    {L"silent", Outcome::TimedOut},
    {L"late:30", Outcome::Answered},
    {L"slow:60", Outcome::Answered}, // longer than the time-out of the members that it is tried with
    {L"byte-by-byte", Outcome::Answered},
    {L"pieces", Outcome::Answered},
    {L"wrong-length:64", Outcome::ClosedByAgent}, // the rest never comes
    {L"wrong-length:-8", Outcome::Damaged},
    {L"length:0", Outcome::Damaged},
    {L"length:17", Outcome::Damaged},
    {L"length:-1", Outcome::Damaged},
    {L"length:text", Outcome::Damaged},
    {L"length", Outcome::Damaged},
    {L"no-nul", Outcome::Answered},
    {L"inner-nul", Outcome::Answered},
    {L"http", Outcome::Damaged},
    {L"garbage:50", Outcome::Answered}, // well framed: the reader's concern
    {L"entities", Outcome::Answered, 1000},
    {L"status", Outcome::Answered},
};

TEST(TransportTest, EveryMemberAgainstEveryBehaviour)
{
    int probes = 0;
    const TestWindow window([&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        probes += message == WM_NULL;
        return std::nullopt;
    });
    std::jthread prober([&](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            SendNotifyMessageW(window.Get(), WM_NULL, 0, 0);
            Sleep(10);
        }
    });
    threadWait = WaitServingWindows;
    AgentServer agent;
    ASSERT_TRUE(agent.Start());
    const std::wstring request = StatusRequest();
    for (const auto& row : kBehaviours) {
        SCOPED_TRACE(row.fault);
        agent.SetFault(kOperation, *simulator::ParseFault(row.fault));
        timing.transportSecond = row.outcome == Outcome::TimedOut ? 3 : 40; // 60 s become 180 ms or 2.4 s
        for (const MemberRow& member : kMembers) {
            if (member.seconds > 10 && std::wstring_view(row.fault).starts_with(L"slow"))
                continue;
            FieldText response;
            const ULONGLONG start = GetTickCount64();
            probes = 0;
            Outcome outcome = ServiceRequest(member.member, request.c_str(), response, agent.Port());
            if (outcome == Outcome::CannotComplete) // a reset, when it did not pass for a close
                outcome = Outcome::ClosedByAgent;
            EXPECT_EQ(outcome, member.capacity >= row.bytes ? row.outcome : Outcome::Damaged)
                << static_cast<int>(member.member);
            const ULONGLONG took = GetTickCount64() - start;
            constexpr unsigned kBusyMachine = 1'000; // ms
            EXPECT_LT(took, kBusyMachine + static_cast<unsigned>(member.seconds) * timing.transportSecond);
            EXPECT_TRUE(took < 100 || probes > 0) << "the windows did not answer";
            EXPECT_LE(response.view().size(), member.capacity / 2);
        }
    }
    threadWait = WaitPlainly;
    timing = Timing();
}

TEST(TransportTest, AnswersAboveTheCapacityFail)
{
    AgentServer agent;
    ASSERT_TRUE(agent.Start());
    for (const MemberRow& member : kMembers) {
        // Frames around the capacity, and one ten times as long.
        const std::size_t fits = (member.capacity - kFrameOverheadBytes) / kBytesPerUnit;
        for (const std::size_t units : {fits - 1, fits, fits + 1, fits * 10}) {
            agent.ScriptReply(kOperation, std::wstring(units, L'x'));
            FieldText response;
            EXPECT_EQ(ServiceRequest(member.member, StatusRequest().c_str(), response, agent.Port()),
                units <= fits ? Outcome::Answered : Outcome::Damaged)
                << static_cast<int>(member.member);
            EXPECT_EQ(response.view().size(), units <= fits ? units : 0U);
        }
    }
    agent.SetFault(L"*", {FaultKind::Refuse, {}});
    for (const MemberRow& member : kMembers) {
        FieldText response;
        EXPECT_EQ(ServiceRequest(member.member, L"", response, agent.Port()), Outcome::CannotConnect);
    }
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

} // namespace
} // namespace voltaro
