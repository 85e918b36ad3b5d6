#include "link/transport.h"

#include "base/platform_calls.h"
#include "link/frame.h"
#include "simulator/server.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

#include <thread>

namespace voltaro {
namespace {

using simulator::AgentServer;
using simulator::FaultKind;

// One operation name for all members: what a member sends is the caller's business.
constexpr const wchar_t* kOperation = L"GetSystemstatus";

constexpr wchar_t kStatusRequest[] = L"<?xml version=\"1.0\"?><vltp version=\"1.0\"><request>"
                                     L"<MessageId>{00000000-0000-0000-0000-000000000000}</MessageId>"
                                     L"<operation>GetSystemstatus</operation></request></vltp>";

// What behaviours of the agent make of an exchange by a member that has room for so many bytes; 15 end in the digits.
// clang-format off
const struct { Outcome outcome; std::vector<const wchar_t*> faults; std::size_t bytes = 700; } kBehaviours[] = {
    {Outcome::Answered, {L"none", L"late:30", L"slow:60", L"byte-by-byte", L"pieces", L"no-nul", L"inner-nul", L"garbage:50", L"status"}},
    {Outcome::Answered, {L"entities"}, 1000},
    {Outcome::ClosedByAgent, {L"close", L"close-mid-frame:1", L"close-mid-frame:15", L"close-mid-frame:16", L"close-mid-frame:17", L"close-mid-frame", L"refuse", L"reset-mid-frame", L"wrong-length:64"}},
    {Outcome::TimedOut, {L"silent"}},
    {Outcome::Damaged, {L"wrong-length:-8", L"length:0", L"length:17", L"length:-1", L"length:text", L"length", L"http"}},
};
// clang-format on

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
    const auto tryMembers = [&](const wchar_t* fault, Outcome expected, std::size_t bytes) {
        SCOPED_TRACE(fault);
        agent.SetFault(kOperation, *simulator::ParseFault(fault));
        timing.transportSecond = expected == Outcome::TimedOut ? 3 : 40; // 60 s become 180 ms or 2.4 s
        for (const MemberRow& member : kMembers) {
            if (member.seconds > 10 && std::wstring_view(fault).starts_with(L"slow"))
                continue;
            FieldText response;
            const ULONGLONG start = GetTickCount64();
            probes = 0;
            Outcome outcome = ServiceRequest(member.member, kStatusRequest, response, agent.Port());
            if (outcome == Outcome::CannotComplete) // a reset, when it did not pass for a close
                outcome = Outcome::ClosedByAgent;
            EXPECT_EQ(outcome, member.capacity >= bytes ? expected : Outcome::Damaged)
                << static_cast<int>(member.member);
            const ULONGLONG took = GetTickCount64() - start;
            constexpr unsigned kBusyMachine = 1'000; // ms
            EXPECT_LT(took, kBusyMachine + static_cast<unsigned>(member.seconds) * timing.transportSecond);
            EXPECT_TRUE(took < 100 || probes > 0) << "the windows did not answer";
            EXPECT_LE(response.view().size(), member.capacity / 2);
        }
    };
    for (const auto& [outcome, faults, bytes] : kBehaviours) {
        for (const wchar_t* fault : faults)
            tryMembers(fault, outcome, bytes);
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
            const Outcome outcome = ServiceRequest(member.member, kStatusRequest, response, agent.Port());
            EXPECT_EQ(outcome, units <= fits ? Outcome::Answered : Outcome::Damaged) << static_cast<int>(member.member);
            EXPECT_EQ(response.view().size(), units <= fits ? units : 0U);
        }
    }
}

// Waits that end: the first data's after the member's time, the connection's and the data's when the thread is to end.
TEST(TransportTest, EndsWithItsThread)
{
    static int waits = 0, end = 0;
    static DWORD limit = 0; // of the wait that ends
    AgentServer agent;
    ASSERT_TRUE(agent.Start());
    for (int endAt = 1; endAt <= 3; ++endAt) {
        agent.SetFault(kOperation, {endAt < 3 ? FaultKind::Silent : FaultKind::Slow, L"300"});
        end = endAt;
        waits = 0;
        threadWait = [](HANDLE handle, DWORD milliseconds) {
            limit = milliseconds;
            return ++waits == end ? Waited::Ending : WaitPlainly(handle, milliseconds);
        };
        FieldText response;
        EXPECT_EQ(ServiceRequest(Member::StatusCheck, kStatusRequest, response, agent.Port()), Outcome::Ending);
        EXPECT_TRUE(response.empty());
        EXPECT_EQ(limit == INFINITE, endAt == 3) << "an answer that has begun may take its time";
    }
    threadWait = WaitPlainly;
}

} // namespace
} // namespace voltaro
