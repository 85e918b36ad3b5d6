#include "simulator/machine.h"

#include "base/text.h"
#include "simulator/frame.h"
#include "simulator/xml.h"
#include "support/element_line.h"

#include <gtest/gtest.h>

namespace voltaro::simulator {

constexpr DateTime kNow{2026, 11, 21, 43200};
const std::wstring kId = L"<MessageId>{0123ABCD-4567-89EF-0123-456789ABCDEF}</MessageId>";

static Machine MachineOf(const wchar_t* scenario)
{
    return Machine(*FindScenario(scenario), [] { return kNow; });
}

static std::wstring Document(const std::wstring& inside)
{
    return L"<?xml version=\"1.0\"?>\r\n<vltp version=\"1.0\">\n\t<request>" + inside + L"\n\t</request>\n</vltp>\r\n";
}

// The request for an operation with the elements that follow it.
static std::wstring Request(const std::wstring& operation, const std::wstring& body = {})
{
    return Document(kId + L"<operation>" + operation + L"</operation>" + body);
}

static std::wstring StatusOf(const Outcome& outcome)
{
    return std::wstring(ChildText(outcome.response, 0));
}

TEST(AgentMachineTest, RefusesWrongRequests)
{
    const std::wstring good = Request(L"Pause", L"<duration>3</duration>"), declared = good.substr(0, 21);
    Machine machine = MachineOf(L"battery");
    EXPECT_EQ(StatusOf(machine.Answer(good)), L"Success");
    for (const std::wstring& wrong : {std::wstring(), good.substr(23), declared + L"<vltp><request/></vltp>",
             declared + L"<vltp version=\"1.0\"><a/></vltp>", Document(L"<a>Pause</a>" + kId),
             Document(L"<MessageId>{0123abcd-4567-89EF-0123-456789ABCDEF}</MessageId><operation>Resume</operation>"),
             Request(L"resume"), Request(L"Pause"), Request(L"Resume", L"<x/>"),
             Request(L"Pause", L"<duration>6</duration>"), Request(L"Pause", L"<duration><x/></duration>"),
             Request(L"logoff", L"<monitoroff>1</monitoroff>"), Request(L"success"),
             Request(L"GetVLTEvents", L"<fordate>22112026</fordate>"),
             Request(L"CreatePolicy", L"<details><PolicyName>P</PolicyName></details>"),
             Request(L"ApplySchedulerSettings", L"<details>x</details>"),
             Request(L"ApplySchedulerSettings", L"<details><Job_2/></details>")}) {
        const Outcome outcome = machine.Answer(wrong);
        EXPECT_TRUE(StatusOf(outcome) == L"Failure" && !outcome.complaint.empty()) << wrong;
    }
}

// Each store refuses a value of the wrong kind and elements in another order, and keeps what it had.
TEST(AgentMachineTest, RefusesWrongRecords)
{
    const std::tuple<const wchar_t*, const wchar_t*, std::size_t, const wchar_t*> kCases[]
        = {{L"GetSnoozeSettings", L"ApplySnoozeSettings", 4, L"1 Hour"},
            {L"GetCurrentProxySettings", L"ApplyProxySettings", 0, L"1"},
            {L"GetCurrenthostsettings", L"ApplyHostSettings", 1, L"65536"},
            {L"GetCurrentDeviceSettings", L"ApplyDeviceSettings", 4, L"Maybe"},
            {L"GetCurrentPowerConsumptionData", L"ApplyPowerConsumptionData", 3, L"1000"},
            {L"GetCurrentpowersettings", L"ApplyPowerSettings", 18, L"100"},
            {L"GetCurrentpowersettings", L"ApplyPowerSettings", 16, L"Nowhere"}};
    Machine machine = MachineOf(L"battery");
    for (const auto& [read, store, changed, wrong] : kCases) {
        const Element before = machine.Answer(Request(read)).response;
        const Element right = *FindChild(before, L"details");
        Element swapped = right, other = right;
        std::swap(swapped.children[0], swapped.children[1]);
        other.children[changed].text = wrong;
        for (const Element& sent : {right, swapped, other}) {
            const std::wstring text = ReplyText(sent);
            constexpr std::size_t kHead = 21 + 20; // declaration and root
            const std::wstring body = text.substr(kHead, text.size() - kHead - 7);
            EXPECT_EQ(StatusOf(machine.Answer(Request(store, body))), sent == right ? L"Success" : L"Failure") << store;
        }
        EXPECT_EQ(machine.Answer(Request(read)).response, before) << read;
    }
}

// The console's buffers are fixed. The fullest answers come within a twentieth of them.
TEST(AgentMachineTest, AnswersFitTheirReaders)
{
    const struct {
        const wchar_t *operation, *body, *fullest;
        std::size_t limit;
    } kCases[] = {
        {L"GetPatchDetails", L"", nullptr, 700},
        {L"GetBatteryInfo", L"", L"crowded", 3'000},
        {L"GetPowerSchemes", L"", L"crowded", 4'000},
        {L"GetPolicies", L"", L"crowded", 4'000},
        {L"QueryPolicy", L"<PolicyName>Presentations</PolicyName>", L"crowded", 300'000},
        {L"GetCurrentSchedulerSettings", L"", L"crowded", 90'000},
        {L"GetVLTEvents", L"<fordate>11202026</fordate>", L"crowded", 200'000},
        {L"GetSystemDetails", L"", L"large", 284'000},
    };
    for (const Scenario& scenario : Scenarios()) {
        Machine machine = MachineOf(scenario.name);
        for (const auto& row : kCases) {
            const std::size_t bytes
                = FrameOf(ReplyText(machine.Answer(Request(row.operation, row.body)).response)).size();
            EXPECT_LE(bytes, row.limit) << row.operation << scenario.name;
            const bool fullest = row.fullest != nullptr && scenario.name == std::wstring_view(row.fullest);
            EXPECT_TRUE(!fullest || bytes > row.limit * 19 / 20) << row.operation << bytes;
        }
    }
}

} // namespace voltaro::simulator
