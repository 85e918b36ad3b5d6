#include "link/transport.h"

#include "base/timing.h"
#include "link/document.h"
#include "link/frame.h"
#include "link/requests.h"
#include "simulator/server.h"
#include "support/box_script.h"
#include "support/test_window.h"
#include "ui/ui_thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

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
    bool succeeds; // by a member that has the room
    bool closedBeforeTheEnd = false;
    std::size_t capacity = 700; // what the answer takes, in bytes
};
const FaultRow kFaults[] = {
    {{FaultKind::None, {}}, true},
    {{FaultKind::Refuse, {}}, false, true}, // a reset, which Wine reports as a close
    {{FaultKind::CloseAtOnce, {}}, false, true},
    {{FaultKind::CloseMidFrame, {}}, false, true},
    {{FaultKind::CloseMidFrame, L"7"}, false, true}, // within the length digits
    {{FaultKind::Silent, {}}, false},
    {{FaultKind::Late, L"30"}, true},
    {{FaultKind::Slow, L"3"}, true},
    {{FaultKind::ByteByByte, {}}, true},
    {{FaultKind::WrongLength, L"64"}, false, true}, // the agent closes, the rest never comes
    {{FaultKind::WrongLength, L"-8"}, false},
    {{FaultKind::HugeLength, {}}, false},
    {{FaultKind::NoNul, {}}, true},
    {{FaultKind::Garbage, L"50"}, true}, // well framed: the reader's concern
    {{FaultKind::NotWellFormed, {}}, true},
    {{FaultKind::Doctype, {}}, true, false, 1000},
    {{FaultKind::Status, L"Failure"}, true},
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
            SCOPED_TRACE(static_cast<int>(row.fault.kind));
            BoxScript boxes{};
            if (member.differences & kClosedBox && row.closedBeforeTheEnd)
                boxes.Expect({{L"Connection Closed !", L"Connection Closed : Please check"}});
            agent.SetFault(kOperation, row.fault);
            FieldText response;
            const ULONGLONG start = GetTickCount64();
            const bool done = ServiceRequest(member.member, request.c_str(), response, "127.0.0.1", agent.Port());
            EXPECT_EQ(done, row.succeeds && member.capacity >= row.capacity)
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
            EXPECT_EQ(ServiceRequest(member.member, StatusRequest().c_str(), response, "127.0.0.1", agent.Port()),
                units == fits)
                << static_cast<int>(member.member);
            EXPECT_EQ(response.view().size(), units == fits ? fits : 0U);
        }
    }
}

TEST(TransportTest, NobodyListens)
{
    AgentServer agent;
    ASSERT_TRUE(agent.Start());
    agent.Stop();
    for (const MemberRow& member : kMembers) {
        BoxScript boxes{};
        if (member.differences & kConnectBox)
            boxes.Expect({{L"Connection Closed !", L"Please check if Voltaro Service is started ?"}});
        FieldText response;
        EXPECT_FALSE(ServiceRequest(member.member, L"", response, "127.0.0.1", agent.Port()));
    }
}

TEST(TransportTest, TheFrameOnTheWire)
{
    AgentServer agent;
    ASSERT_TRUE(agent.Start());
    FieldText response;
    const std::wstring request = StatusRequest();
    EXPECT_TRUE(ServiceRequest(Member::StatusCheck, request.c_str(), response, "127.0.0.1", agent.Port()));
    const auto received = agent.Requests();
    ASSERT_EQ(received.size(), 1U);
    EXPECT_EQ(received[0].text, request);
    wchar_t digits[9] = {};
    _snwprintf(digits, 9, L"%08d", static_cast<int>(request.size() * 2 + 18));
    EXPECT_EQ(received[0].header, digits);
}

// The platform's own counter is always 0 under Wine, so every handle answers for itself.
int OpenHandles()
{
    int count = 0;
    DWORD flags = 0;
    for (ULONG_PTR handle = 4; handle < 0x10000; handle += 4)
        count += GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags);
    return count;
}

TEST(TransportTest, KeepsHandles)
{
    AgentServer agent;
    ASSERT_TRUE(agent.Start());
    const std::wstring request = StatusRequest();
    const auto handlesAfter = [&](int exchanges, bool expected) {
        FieldText response;
        for (int i = 0; i < exchanges; ++i)
            EXPECT_EQ(
                ServiceRequest(Member::StatusCheck, request.c_str(), response, "127.0.0.1", agent.Port()), expected);
        return OpenHandles();
    };
    const int before = handlesAfter(20, true);
    EXPECT_LE(handlesAfter(1000, true), before + 10); // the simulator's own threads come and go
    agent.SetFault(kOperation, {FaultKind::CloseAtOnce, {}});
    EXPECT_LE(handlesAfter(200, false), before + 10); // the one failure that closes its socket
    agent.SetFault(kOperation, {FaultKind::HugeLength, {}});
    EXPECT_LE(handlesAfter(1000, false), before + 1020); // any other leaves its socket, and nothing else
}

TEST(TransportTest, WindowsStayAliveWhileARequestHangs)
{
    AdoptUiThread();
    AllowWaits();
    AgentServer agent;
    ASSERT_TRUE(agent.Start());
    agent.ScriptReply(kOperation, std::wstring(250, L'x'));
    const Fault hanging[] = {{FaultKind::Late, L"2000"}, {FaultKind::ByteByByte, L"1"}};
    for (const Fault& fault : hanging) {
        agent.SetFault(kOperation, fault);
        const TestWindow window;
        std::atomic<bool> done = false;
        int probes = 0;
        int answered = 0;
        std::thread prober([&] {
            for (Sleep(60); !done && probes < 20; Sleep(40)) {
                DWORD_PTR result = 0;
                ++probes;
                answered += SendMessageTimeoutW(window.Get(), WM_NULL, 0, 0, SMTO_NORMAL, 50, &result) != 0 ? 1 : 0;
            }
        });
        FieldText response;
        EXPECT_TRUE(ServiceRequest(Member::StatusCheck, StatusRequest().c_str(), response, "127.0.0.1", agent.Port()));
        done = true;
        prober.join();
        EXPECT_GE(probes, 10);
        EXPECT_GE(answered, probes - 1) << "the last one may come after the answer";
    }
}

} // namespace
} // namespace voltaro
