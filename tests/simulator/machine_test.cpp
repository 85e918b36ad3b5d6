#include "simulator/frame.h"
#include "simulator/machine.h"
#include "simulator/xml.h"

#include <gtest/gtest.h>

namespace voltaro::simulator {
namespace {

constexpr DateTime kNow{2026, 11, 21, 43200};
const std::wstring kId = L"<MessageId>{0123ABCD-4567-89EF-0123-456789ABCDEF}</MessageId>";

Machine MachineOf(const wchar_t* scenario)
{
    return Machine(*FindScenario(scenario), [] { return kNow; });
}

std::wstring Document(const std::wstring& inside)
{
    return L"<?xml version=\"1.0\"?>\r\n<vltp version=\"1.0\">\n\t<request>\n\t\t" + inside
        + L"\n\t</request>\n</vltp>\r\n";
}

Outcome Ask(Machine& machine, const std::wstring& operation, const std::wstring& body = {})
{
    return machine.Answer(Document(kId + L"\n\t\t<operation>" + operation + L"</operation>" + body));
}

std::wstring StatusOf(const Outcome& outcome)
{
    return std::wstring(ChildText(outcome.response, 0));
}

Element DetailsOf(const Outcome& outcome)
{
    const Element* details = FindChild(outcome.response, L"details");
    EXPECT_NE(details, nullptr) << outcome.operation << outcome.complaint;
    return details == nullptr ? Element{} : *details;
}

// The elements as they stand in a document.
std::wstring Written(const Element& element)
{
    const std::wstring text = ReplyText(element);
    constexpr std::size_t kHead = 21 + 20; // declaration and root
    return text.substr(kHead, text.size() - kHead - 7);
}

TEST(AgentMachineTest, AnswersEveryOperation)
{
    // "": the answer is a status; else the element that holds the texts.
    const struct {
        const wchar_t *operation, *body, *holder;
        std::size_t count;
        const wchar_t *first, *last;
    } kCases[] = {
        {L"GetSystemstatus", L"", L"", 2, L"Success", L"Running"},
        {L"GetBatteryInfo", L"", L"", 7, L"On AC", L"Li-ion"},
        {L"GetVoltaroInfo", L"", L"details", 4, L"1.06.006.000", L"Running"},
        {L"GetPatchDetails", L"", L"details", 3, L"1.06.006.000", L"Installed"},
        {L"GetVoltaroSavingsTillDate", L"", L"details", 5, L"2026-11-21", L"246.999 kWh"},
        {L"CheckForUpdates", L"", L"", 2, L"Failure", L"You are already using the latest version of Voltaro."},
        {L"GetPowerSchemes", L"", L"details", 5, L"Balanced", L"Office_Hours"},
        {L"GetCurrentpowersettings", L"", L"details", 21, L"Balanced", L"No"},
        {L"QueryPowerScheme", L"<scheme>maxpowersaver</scheme>", L"details", 21, L"MaxPowerSaver", L"No"},
        {L"GetPolicies", L"", L"details", 2, L"Presentations", L"Nightly_Backup"},
        {L"QueryPolicy", L"<PolicyName>Presentations</PolicyName>", L"details", 4, L"Presentations", L""},
        {L"GetSnoozeSettings", L"", L"details", 5, L"Yes", L"30"},
        {L"GetCurrentProxySettings", L"", L"details", 7, L"Yes", L"No"},
        {L"GetCurrenthostsettings", L"", L"details", 12, L"Yes", L"Yes"},
        {L"GetCurrentDeviceSettings", L"", L"details", 10, L"NO", L"NO"},
        {L"GetCurrentPowerConsumptionData", L"", L"details", 13, L"No", L"Fieldbook 14 G3"},
        {L"GetManualPowerConsumptionData", L"", L"details", 13, L"Yes", L"Fieldbook 14 G3"},
        {L"GetAutoPowerConsumptionData", L"", L"details", 13, L"No", L"Fieldbook 14 G3"},
        {L"GetCurrentSchedulerSettings", L"", L"details", 3, L"", L""},
        {L"GetSystemDetails", L"<type>Refresh</type>", L"details", 6, L"", L""},
        {L"GetVLTEvents", L"<fordate>11222026</fordate>", L"", 2, L"Failure", L"That day has not come yet."},
        {L"GetVLTEvents", L"<fordate>22112026</fordate>", L"", 2, L"Failure", L"fordate must be a day as MMDDYYYY."},
        {L"GetActivationstatus", L"", L"", 1, L"Activated", L"Activated"},
        {L"GetLicenseInfo", L"", L"details", 6, L"Activated", L"2028-11-02"},
        {L"ActivateLicense", L"<ActivationKey>0000-0000-0000-0000</ActivationKey>", L"", 2, L"Failure",
            L"The activation key is not valid."},
        {L"Resume", L"", L"", 1, L"Success", L"Success"},
        {L"PauseStatus", L"", L"details", 1, L"Resumed", L"Resumed"},
        {L"standby", L"", L"", 1, L"Success", L"Success"},
        {L"hibernate", L"", L"", 1, L"Success", L"Success"},
        {L"shutdown", L"", L"", 1, L"Success", L"Success"},
        {L"Restart", L"", L"", 1, L"Success", L"Success"},
        {L"logoff", L"<monitoroff>No</monitoroff>", L"", 1, L"Success", L"Success"},
        {L"LockScreen", L"<monitoroff>Yes</monitoroff>", L"", 1, L"Success", L"Success"},
        {L"success", L"", L"", 2, L"Failure", L"No power action is waiting."},
        {L"failure", L"", L"", 2, L"Failure", L"No power action is waiting."},
    };
    Machine machine = MachineOf(L"battery");
    for (const auto& row : kCases) {
        const Outcome outcome = Ask(machine, row.operation, row.body);
        const Element holder = *row.holder == L'\0' ? outcome.response : DetailsOf(outcome);
        EXPECT_EQ(holder.children.size(), row.count) << row.operation;
        EXPECT_EQ(ChildText(holder, 0), row.first) << row.operation;
        EXPECT_EQ(ChildText(holder, row.count - 1), row.last) << row.operation;
    }
    EXPECT_GT(DetailsOf(Ask(machine, L"GetVLTEvents", L"<fordate>11202026</fordate>")).children.size(), 15u);
}

TEST(AgentMachineTest, RefusesWrongRequests)
{
    const std::wstring good = kId + L"<operation>Pause</operation><duration>3</duration>";
    const std::wstring snooze = kId + L"<operation>ApplySnoozeSettings</operation><details>";
    const struct {
        std::wstring text, complaint;
    } kCases[] = {
        {Document(good), L""},
        {L"", L"Not well-formed: an element is missing at unit 0."},
        {Document(good).substr(23), L"The document does not begin with its declaration."},
        {L"<?xml version=\"1.0\"?><vltp><request>" + good + L"</request></vltp>",
            L"The root is not vltp of version 1.0."},
        {L"<?xml version=\"1.0\"?><vltp version=\"1.0\"/>", L"vltp has 0 elements, expected were 1 to 1."},
        {L"<?xml version=\"1.0\"?><vltp version=\"1.0\"><response/></vltp>",
            L"Element 1 of vltp is response, expected was request."},
        {Document(L""), L"request lacks its element 1, MessageId."},
        {Document(L"<operation>Pause</operation>" + kId),
            L"Element 1 of request is operation, expected was MessageId."},
        {Document(L"<MessageId></MessageId><operation>Resume</operation>"),
            L"MessageId is not an identifier in braces."},
        {Document(L"<MessageId>{0123abcd-4567-89EF-0123-456789ABCDEF}</MessageId><operation>Resume</operation>"),
            L"MessageId is not an identifier in braces."},
        {Document(kId + L"<operation>resume</operation>"), L"The operation is not known."},
        {Document(kId + L"<operation>Resume</operation><x/>"), L"request has 3 elements, expected were 2 to 2."},
        {Document(kId + L"<operation>Pause</operation>"), L"request lacks its element 3, duration."},
        {Document(kId + L"<operation>Pause</operation><duration>6</duration>"), L"duration must be 1 to 5."},
        {Document(good + L"<duration>3</duration>"), L"request has 4 elements, expected were 3 to 3."},
        {Document(kId + L"<operation>Pause</operation><duration><x/></duration>"), L"duration must hold only text."},
        {Document(kId + L"<operation>logoff</operation><monitoroff>1</monitoroff>"), L"monitoroff must be Yes or No."},
        {Document(kId + L"<operation>GetSystemDetails</operation><type>All</type>"), L"type must be Refresh."},
        {Document(snooze + L"</details>"), L"details lacks its element 1, SnoozeForIdlePwrAction."},
        {Document(snooze + L"<SnoozeForIdlePwrAction>1</SnoozeForIdlePwrAction></details>"),
            L"SnoozeForIdlePwrAction must be Yes or No."},
        {Document(snooze + L"<SnoozeForSchedulerPwrAction>No</SnoozeForSchedulerPwrAction></details>"),
            L"Element 1 of details is SnoozeForSchedulerPwrAction, expected was SnoozeForIdlePwrAction."},
        {Document(kId + L"<operation>CreatePolicy</operation><details><PolicyName>P</PolicyName></details>"),
            L"details has 1 elements, expected were 2 to 51."},
        {Document(kId + L"<operation>CreatePolicy</operation><details><PolicyName>P</PolicyName><AppNo_2/></details>"),
            L"Element 2 of details is AppNo_2, expected was AppNo_1."},
        {Document(kId + L"<operation>ApplySchedulerSettings</operation><details>x</details>"),
            L"details must not hold text."},
        {Document(kId + L"<operation>ApplySchedulerSettings</operation><details><Job_2/></details>"),
            L"Element 1 of details is Job_2, expected was Job_1."},
    };
    Machine machine = MachineOf(L"battery");
    for (const auto& row : kCases) {
        const Outcome outcome = machine.Answer(row.text);
        EXPECT_EQ(outcome.complaint, row.complaint) << row.text;
        EXPECT_EQ(StatusOf(outcome), row.complaint.empty() ? L"Success" : L"Failure") << row.text;
        EXPECT_EQ(ChildText(outcome.response, 1), row.complaint);
    }
}

// What is stored is read back; the element changed must be checked for its kind.
TEST(AgentMachineTest, ReadsBackWhatWasStored)
{
    const struct {
        const wchar_t *read, *store;
        std::size_t changed;
        const wchar_t *value, *wrong;
    } kCases[] = {
        {L"GetSnoozeSettings", L"ApplySnoozeSettings", 4, L"60", L"1 Hour"},
        {L"GetCurrentProxySettings", L"ApplyProxySettings", 1, L"a&b<c>", nullptr},
        {L"GetCurrenthostsettings", L"ApplyHostSettings", 1, L"65535", L"65536"},
        {L"GetCurrentDeviceSettings", L"ApplyDeviceSettings", 4, L"na", L"Maybe"},
        {L"GetCurrentPowerConsumptionData", L"ApplyPowerConsumptionData", 3, L"999.99", L"1000"},
        {L"GetCurrentpowersettings", L"ApplyPowerSettings", 1, L"Maximum", L"Fast"},
        {L"GetCurrentpowersettings", L"ApplyPowerSettings", 18, L"99", L"100"},
        {L"GetCurrentpowersettings", L"ApplyPowerSettings", 16, L"Nightly_Backup", L"Nowhere"},
    };
    Machine machine = MachineOf(L"manyjobs");
    for (const auto& row : kCases) {
        Element details = DetailsOf(Ask(machine, row.read));
        details.children[row.changed].text = row.value;
        EXPECT_EQ(StatusOf(Ask(machine, row.store, Written(details))), L"Success") << row.store;
        EXPECT_EQ(DetailsOf(Ask(machine, row.read)), details) << row.read;
        if (row.wrong == nullptr)
            continue;
        Element wrong = details;
        wrong.children[row.changed].text = row.wrong;
        EXPECT_EQ(StatusOf(Ask(machine, row.store, Written(wrong))), L"Failure") << row.store;
        std::swap(wrong.children[0], wrong.children[1]);
        EXPECT_EQ(StatusOf(Ask(machine, row.store, Written(wrong))), L"Failure") << row.store;
        EXPECT_EQ(DetailsOf(Ask(machine, row.read)), details) << row.read;
    }
    Element jobs = DetailsOf(Ask(machine, L"GetCurrentSchedulerSettings"));
    ASSERT_EQ(jobs.children.size(), 10u);
    EXPECT_EQ(StatusOf(Ask(machine, L"ApplySchedulerSettings", Written(jobs))), L"Success");
    Element broken = jobs;
    broken.children[2].children[4].children.back().children[0].children.pop_back(); // a task without its end
    EXPECT_EQ(
        Ask(machine, L"ApplySchedulerSettings", Written(broken)).complaint, L"APP_31 lacks its element 4, REndTime.");
    EXPECT_EQ(DetailsOf(Ask(machine, L"GetCurrentSchedulerSettings")), jobs);
    EXPECT_EQ(StatusOf(Ask(machine, L"ApplySchedulerSettings", L"<details>\n\t\t</details>")), L"Success");
    EXPECT_TRUE(DetailsOf(Ask(machine, L"GetCurrentSchedulerSettings")).children.empty());
}

TEST(AgentMachineTest, SchemesAndPoliciesComeAndGo)
{
    Machine machine = MachineOf(L"battery");
    Element scheme = DetailsOf(Ask(machine, L"QueryPowerScheme", L"<scheme>Office_Hours</scheme>"));
    scheme.children[0].text = L"Night";
    Element policy = DetailsOf(Ask(machine, L"QueryPolicy", L"<PolicyName>presentations</PolicyName>"));
    policy.children[0].text = L"Talks";
    const struct {
        const wchar_t* operation;
        std::wstring body;
        const wchar_t* status;
    } kSteps[] = {
        {L"CreateScheme", Written(scheme), L"Success"},
        {L"CreateScheme", Written(scheme), L"Failure"}, // already there
        {L"ApplyPowerScheme", L"<scheme>Nowhere</scheme>", L"Failure"},
        {L"ApplyPowerScheme", L"<scheme>NIGHT</scheme>", L"Success"},
        {L"DeleteScheme", L"<scheme>night</scheme>", L"Failure"},         // active
        {L"DeletePolicy", L"<policy>presentations</policy>", L"Failure"}, // in use by the active scheme
        {L"ApplyPowerScheme", L"<scheme>Baseline</scheme>", L"Success"},
        {L"DeletePolicy", L"<policy>presentations</policy>", L"Success"},
        {L"DeletePolicy", L"<policy>presentations</policy>", L"Failure"},
        {L"DeleteScheme", L"<scheme>Minimum</scheme>", L"Success"},
        {L"SetPolicySettings", Written(policy), L"Failure"}, // not there yet
        {L"CreatePolicy", Written(policy), L"Success"},
        {L"SetPolicySettings", Written(policy), L"Success"},
    };
    for (const auto& step : kSteps)
        EXPECT_EQ(StatusOf(Ask(machine, step.operation, step.body)), step.status) << step.operation << step.body;
    EXPECT_EQ(Written(DetailsOf(Ask(machine, L"GetPowerSchemes"))),
        L"<details><PowerScheme>Balanced</PowerScheme><PowerScheme>MaxPowerSaver</PowerScheme>"
        L"<PowerScheme>Baseline</PowerScheme><PowerScheme>Office_Hours</PowerScheme><PowerScheme>Night</PowerScheme>"
        L"</details>");
    EXPECT_EQ(Written(DetailsOf(Ask(machine, L"GetPolicies"))),
        L"<details><PolicyName>Nightly_Backup</PolicyName><PolicyName>Talks</PolicyName></details>");
    scheme.children[16].text.clear(); // its policy is gone
    EXPECT_EQ(DetailsOf(Ask(machine, L"QueryPowerScheme", L"<scheme>Night</scheme>")), scheme);
    EXPECT_EQ(ChildText(DetailsOf(Ask(machine, L"GetCurrentpowersettings")), 0), L"Baseline");
}

TEST(AgentMachineTest, PausesAndActsAndActivates)
{
    DateTime now = kNow;
    Machine machine(*FindScenario(L"busy"), [&now] { return now; });
    const auto status = [&] { return std::wstring(ChildText(DetailsOf(Ask(machine, L"PauseStatus")), 0)); };
    EXPECT_EQ(StatusOf(Ask(machine, L"Pause", L"<duration>2</duration>")), L"Success");
    EXPECT_EQ(status(), L"2");
    now.second += 3601;
    EXPECT_EQ(status(), L"1");
    now.second += 3600;
    EXPECT_EQ(status(), L"Resumed");

    const Outcome refused = Ask(machine, L"shutdown");
    EXPECT_EQ(StatusOf(refused), L"Failure");
    EXPECT_EQ(refused.response.children.size(), 3u); // with two activities
    EXPECT_EQ(StatusOf(Ask(machine, L"failure")), L"Success");
    EXPECT_TRUE(machine.State().actions.empty());
    Ask(machine, L"Restart");
    Ask(machine, L"success");
    EXPECT_EQ(machine.State().actions, std::vector<std::wstring>{L"Restart"});

    Machine limited = MachineOf(L"limited");
    EXPECT_EQ(StatusOf(Ask(limited, L"standby")), L"Standby Not Support");
    EXPECT_EQ(StatusOf(Ask(limited, L"hibernate")), L"Hibernation Not Support");
    Machine paused = MachineOf(L"paused");
    EXPECT_EQ(ChildText(DetailsOf(Ask(paused, L"PauseStatus")), 0), L"3");

    const std::pair<const wchar_t*, const wchar_t*> kLicences[]
        = {{L"notactivated", L"Not Activated"}, {L"expired", L"License Expired"}};
    for (const auto& [scenario, word] : kLicences) {
        Machine unlicensed = MachineOf(scenario);
        EXPECT_EQ(StatusOf(Ask(unlicensed, L"GetActivationstatus")), word);
        EXPECT_EQ(StatusOf(Ask(unlicensed, L"DeleteScheme", L"<scheme>Minimum</scheme>")), word);
        EXPECT_EQ(StatusOf(Ask(unlicensed, L"Pause", L"<duration>1</duration>")), word);
        EXPECT_EQ(DetailsOf(Ask(unlicensed, L"GetPowerSchemes")).children.size(), 5u);
        const std::wstring key = L"<ActivationKey>HX4F-20VT-7K3M-99QA</ActivationKey>";
        EXPECT_EQ(StatusOf(Ask(unlicensed, L"ActivateLicense", key)), L"Success");
        EXPECT_EQ(StatusOf(Ask(unlicensed, L"DeleteScheme", L"<scheme>Minimum</scheme>")), L"Success");
    }
}

// The console's buffers are fixed; so are the tables of the system details.
TEST(AgentMachineTest, AnswersFitTheirReaders)
{
    const std::pair<const wchar_t*, std::size_t> kMost[] = {{L"GetBatteryInfo", 700}, {L"GetPatchDetails", 700},
        {L"CheckForUpdates", 700}, {L"GetActivationstatus", 700}, {L"GetVoltaroSavingsTillDate", 1224},
        {L"GetVoltaroInfo", 2048}, {L"standby", 3072}, {L"GetPolicies", 4000}, {L"GetPowerSchemes", 4000},
        {L"GetCurrentPowerConsumptionData", 4096}, {L"GetCurrentProxySettings", 4096}, {L"GetSnoozeSettings", 4096},
        {L"GetCurrentpowersettings", 4096}, {L"GetCurrenthostsettings", 6096}, {L"GetLicenseInfo", 8192},
        {L"GetCurrentSchedulerSettings", 90000}, {L"GetSystemDetails", 284000}, {L"GetCurrentDeviceSettings", 3000}};
    for (const Scenario& scenario : Scenarios()) {
        Machine machine(scenario);
        for (const auto& [operation, most] : kMost)
            EXPECT_LE(FrameOf(ReplyText(Ask(machine, operation).response)).size(), most) << operation << scenario.name;
    }
    Machine large = MachineOf(L"large");
    const Outcome outcome = Ask(large, L"GetSystemDetails");
    EXPECT_GE(FrameOf(ReplyText(outcome.response)).size(), 275'000u);
    const std::size_t kRows[] = {100, 100, 500};
    const Element details = DetailsOf(outcome);
    for (std::size_t section = 3; section < 6; ++section) {
        std::size_t rows = 0;
        for (const Element& group : details.children[section].children) {
            rows += group.children.size() + 1;
            for (const Element& field : group.children)
                EXPECT_TRUE(field.name.size() <= 49 && field.text.size() <= 119) << field.name;
        }
        EXPECT_EQ(rows, kRows[section - 3]);
    }
}

} // namespace
} // namespace voltaro::simulator
