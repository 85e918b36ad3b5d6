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
    const std::wstring good = Request(L"Pause", L"<duration>3</duration>");
    const std::wstring declared = L"<?xml version=\"1.0\"?>";
    // clang-format off
    const struct { std::wstring text, complaint; } kCases[] = {
        {good, L""}, {L"", L"Not well-formed: an element is missing at unit 0."},
        {good.substr(23), L"The document does not begin with its declaration."},
        {declared + L"<vltp><request/></vltp>", L"The root is not vltp of version 1.0."},
        {declared + L"<vltp version=\"1.0\"><a/></vltp>", L"Element 1 of vltp is a, expected was request."},
        {Document(L"<a>Pause</a>" + kId), L"Element 1 of request is a, expected was MessageId."},
        {Document(L"<MessageId>{0123abcd-4567-89EF-0123-456789ABCDEF}</MessageId><operation>Resume</operation>"),
            L"MessageId is not an identifier in braces."},
        {Request(L"resume"), L"The operation is not known."},
        {Request(L"Pause"), L"request lacks its element 3, duration."},
        {Request(L"Pause", L"<duration>6</duration>"), L"duration must be 1 to 5."},
        {Request(L"logoff", L"<monitoroff>1</monitoroff>"), L"monitoroff must be Yes or No."},
        {Request(L"GetVLTEvents", L"<fordate>22112026</fordate>"), L"fordate must be a day as MMDDYYYY."},
        {Request(L"success"), L"No power action is waiting."},
        {Request(L"CreatePolicy", L"<details><PolicyName>P</PolicyName></details>"),
            L"details has 1 elements, expected were 2 to 51."},
        {Request(L"ApplySchedulerSettings", L"<details><Job_2/></details>"),
            L"Element 1 of details is Job_2, expected was Job_1."},
    };
    // clang-format on
    Machine machine = MachineOf(L"battery");
    for (const auto& row : kCases) {
        const Outcome outcome = machine.Answer(row.text);
        EXPECT_EQ(StatusOf(outcome), row.complaint.empty() ? L"Success" : L"Failure") << row.text;
        EXPECT_EQ(outcome.complaint, row.complaint) << row.text;
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
