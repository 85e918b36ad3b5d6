#include "simulator/machine.h"

#include "base/text.h"
#include "simulator/events.h"
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
    return Document(kId + L"\n\t\t<operation>" + operation + L"</operation>" + body);
}

static Outcome Ask(Machine& machine, const std::wstring& operation, const std::wstring& body = {})
{
    return machine.Answer(Request(operation, body));
}

static std::wstring StatusOf(const Outcome& outcome)
{
    return std::wstring(ChildText(outcome.response, 0));
}

static Element DetailsOf(const Outcome& outcome)
{
    const Element* details = FindChild(outcome.response, L"details");
    EXPECT_NE(details, nullptr) << outcome.operation << outcome.complaint;
    return details == nullptr ? Element{} : *details;
}

// The elements as they stand in a document.
static std::wstring Written(const Element& element)
{
    const std::wstring text = ReplyText(element);
    constexpr std::size_t kHead = 21 + 20; // declaration and root
    return text.substr(kHead, text.size() - kHead - 7);
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
        {Request(L"Resume", L"<x/>"), L"request has 3 elements, expected were 2 to 2."},
        {Request(L"Pause", L"<duration>6</duration>"), L"duration must be 1 to 5."},
        {Request(L"Pause", L"<duration><x/></duration>"), L"duration must hold only text."},
        {Request(L"logoff", L"<monitoroff>1</monitoroff>"), L"monitoroff must be Yes or No."},
        {Request(L"GetVLTEvents", L"<fordate>22112026</fordate>"), L"fordate must be a day as MMDDYYYY."},
        {Request(L"success"), L"No power action is waiting."},
        {Request(L"CreatePolicy", L"<details><PolicyName>P</PolicyName></details>"),
            L"details has 1 elements, expected were 2 to 51."},
        {Request(L"ApplySchedulerSettings", L"<details>x</details>"), L"details must not hold text."},
        {Request(L"ApplySchedulerSettings", L"<details><Job_2/></details>"),
            L"Element 1 of details is Job_2, expected was Job_1."},
    };
    // clang-format on
    Machine machine = MachineOf(L"battery");
    for (const auto& row : kCases) {
        const Outcome outcome = machine.Answer(row.text);
        EXPECT_EQ(StatusOf(outcome), row.complaint.empty() ? L"Success" : L"Failure") << row.text;
        EXPECT_EQ(outcome.complaint, row.complaint) << row.text;
        EXPECT_EQ(ChildText(outcome.response, 1), row.complaint);
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
    Machine machine = MachineOf(L"manyjobs");
    for (const auto& [read, store, changed, wrong] : kCases) {
        const Element details = DetailsOf(Ask(machine, read));
        EXPECT_EQ(StatusOf(Ask(machine, store, Written(details))), L"Success") << store;
        Element swapped = details, other = details;
        std::swap(swapped.children[0], swapped.children[1]);
        other.children[changed].text = wrong;
        for (const Element& refused : {swapped, other})
            EXPECT_EQ(StatusOf(Ask(machine, store, Written(refused))), L"Failure") << store;
        EXPECT_EQ(DetailsOf(Ask(machine, read)), details) << read;
    }
    Element broken = DetailsOf(Ask(machine, L"GetCurrentSchedulerSettings"));
    At(broken, {2, 4, 2, 0}).children.pop_back(); // a task without its end
    EXPECT_EQ(StatusOf(Ask(machine, L"ApplySchedulerSettings", Written(broken))), L"Failure");
}

TEST(AgentMachineTest, PausesAndActsAndActivates)
{
    DateTime now = kNow;
    Machine machine(*FindScenario(L"busy"), [&now] { return now; });
    EXPECT_EQ(StatusOf(Ask(machine, L"Pause", L"<duration>2</duration>")), L"Success");
    for (const wchar_t* status : {L"2", L"1", L"Resumed"}) {
        EXPECT_EQ(WholeText(Ask(machine, L"PauseStatus").response), status);
        now.second += 3601;
    }

    const Outcome refused = Ask(machine, L"shutdown");
    EXPECT_EQ(StatusOf(refused), L"Failure");
    EXPECT_EQ(refused.response.children.size(), 3u); // with two activities
    EXPECT_EQ(StatusOf(Ask(machine, L"failure")), L"Success");
    EXPECT_TRUE(machine.State().actions.empty());
    Ask(machine, L"Restart");
    Ask(machine, L"success");
    EXPECT_EQ(machine.State().actions, std::vector<std::wstring>{L"Restart"});

    Machine limited = MachineOf(L"limited"), paused = MachineOf(L"paused");
    EXPECT_EQ(StatusOf(Ask(limited, L"standby")), L"Standby Not Support");
    EXPECT_EQ(StatusOf(Ask(limited, L"hibernate")), L"Hibernation Not Support");
    EXPECT_EQ(WholeText(Ask(paused, L"PauseStatus").response), L"3");
    Machine expired = MachineOf(L"expired");
    EXPECT_EQ(StatusOf(Ask(expired, L"DeleteScheme", L"<scheme>Minimum</scheme>")), L"License Expired");
}

// The console's buffers are fixed. The fullest answers come within a twentieth of them.
TEST(AgentMachineTest, AnswersFitTheirReaders)
{
    const struct {
        const wchar_t *operation, *body, *fullest;
        std::size_t limit;
    } kCases[] = {
        {L"GetPatchDetails", L"", nullptr, 700},
        {L"CheckForUpdates", L"", nullptr, 700},
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
            const std::size_t bytes = FrameOf(ReplyText(Ask(machine, row.operation, row.body).response)).size();
            EXPECT_LE(bytes, row.limit) << row.operation << scenario.name;
            const bool fullest = row.fullest != nullptr && scenario.name == std::wstring_view(row.fullest);
            EXPECT_TRUE(!fullest || bytes > row.limit * 19 / 20) << row.operation << bytes;
        }
    }
}

// The whole of each day is told by events that begin and end in their order, the consumption last.
TEST(AgentEventsTest, EveryDayIsWellFormed)
{
    for (int number = 0; number < 12 * 28; ++number) {
        const DateTime date{2025, number / 28 + 1, number % 28 + 1, 0};
        const std::wstring day = Format(L" # %04d/%02d/%02d ", date.year, date.month, date.day);
        const std::vector<std::wstring> lines = EventsOf(date, kNow);
        ASSERT_EQ(lines, EventsOf(date, kNow));
        ASSERT_TRUE(lines.size() >= 12 && lines.size() <= 60);
        EXPECT_EQ(lines[lines.size() - 2].substr(0, 9) + lines.back().substr(0, 9), L"Pwrcon # Pwrsav # ");
        std::wstring last;
        bool idle = false;
        for (std::size_t i = 0; i + 2 < lines.size(); ++i) {
            SCOPED_TRACE(lines[i]);
            const std::wstring code = lines[i].substr(0, 6);
            if (code == L"Istime" || code == L"Ietime") {
                EXPECT_NE(idle, code == L"Istime");
                idle = !idle;
            }
            if (code == L"Duratn")
                continue;
            EXPECT_EQ(lines[i].substr(6, 14), day);
            EXPECT_TRUE(lines[i].size() == 28 && lines[i].substr(20) >= last && lines[i].substr(20) < L"24");
            last = lines[i].substr(20);
        }
        EXPECT_FALSE(idle);
    }
}

TEST(AgentEventsTest, TodayEndsNowAndTomorrowIsEmpty)
{
    const std::vector<std::wstring> today = EventsOf(kNow, kNow), whole = EventsOf(kNow, {2026, 11, 22, 0});
    ASSERT_TRUE(today.size() > 2 && today.size() < whole.size());
    for (std::size_t i = 0; i + 2 < today.size(); ++i)
        EXPECT_TRUE(today[i] == whole[i] && (today[i].size() < 28 || today[i].substr(20) <= L"12:00:00")) << today[i];
    EXPECT_TRUE(EventsOf({2026, 11, 22, 0}, kNow).empty());
}

TEST(AgentEventsTest, ReadsDays)
{
    const std::optional<DateTime> leapDay = ParseMonthDayYear(L"02292024");
    ASSERT_TRUE(leapDay);
    EXPECT_EQ(DayOf(*leapDay).time_since_epoch().count(), 19782);
    for (const wchar_t* wrong : {L"02292025", L"13012025", L"00012025", L"1012025", L"010120255", L"0101202x", L""})
        EXPECT_FALSE(ParseMonthDayYear(wrong)) << wrong;
}

} // namespace voltaro::simulator
