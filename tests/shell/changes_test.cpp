// What follows a change that is sent to the agent, in every window: its boxes, and what is read again.
#include "power/power_program.h"

namespace voltaro {

const Operations kCurrent = {L"GetCurrentpowersettings"}, kSaved = {L"GetPolicies", L"GetCurrentpowersettings"},
                 kAll = {L"GetPowerSchemes", L"GetPolicies", L"GetCurrentpowersettings"};

struct Change {
    const wchar_t* operation;
    int command;                // of the main window, where there is another one to open
    std::vector<Step> prepared; // before the control that sends it is used
    ControlName control;
    ExpectedBox failed;
    Operations readAfterSuccess;
    ExpectedBox done{};              // the box that tells of success, if there is one
    std::wstring unlicensed{};       // the caption for a refusal for want of a license, if it is no failure's
    const wchar_t* question = L"";   // asked first and answered with Yes
    ExpectedBox denied{};            // the box for "Permission denied", if it has one of its own
    Operations readAfterOthers = {}; // after an answer that says neither
    bool lenient = false;            // whatever is not "Failure" counts as done
};
// clang-format off
const Change kChanges[] = {
    {L"ApplyPowerScheme", 0, {{kChange}}, kSet, {L"Set Scheme Failed", L"Unable to Set Scheme."}, kCurrent, {}, L"Unable to Set Scheme", L"", {}, {}, true},
    {L"ApplyPowerSettings", kPowerScheme, {}, kSaveAndApply, {L"Save failed", L"Failed to save settings."}, kSaved, {}, {}, L"", {L"Permission denied", L"Access denied."}},
    {L"ApplyPowerScheme", kPowerScheme, {}, kApplyScheme, {L"Set scheme failed ", L"Unable to Set."}, kCurrent, {}, {}, L"", {}, kCurrent}, // may be active
    {L"CreateScheme", kPowerScheme, {{kNewScheme}, {kNewSchemeName, L"Mine"}}, kSaveNewScheme, {L"Save failed", L"Failed to save settings."}, kAll},
    {L"DeleteScheme", kPowerScheme, {{kEditorScheme, L"Minimum"}}, kDeleteScheme, {L"Delete failed ", L"Could not delete the scheme."}, kAll, {}, {}, L"Delete Scheme"},
    {L"SetPolicySettings", kPowerScheme, {{kPolicyList, L"Presentations"}, {kEditPolicy}}, kSavePolicy, {L"Failed to save", L"Unable to save application sensor policy settings"}, {L"GetPolicies"}},
    {L"CreatePolicy", kPowerScheme, {{kNewPolicy}, {kNewPolicyName, L"Games"}, {kAddRule}, {kRuleName, L"Chess.exe"}, {kSaveRule}}, kSavePolicy,
        {L"Failed to save ", L"Unable to save new policy settings"}, {L"GetPolicies"}},
    {L"DeletePolicy", kPowerScheme, {{kPolicyList, L"Presentations"}}, kDeletePolicy, {L"Delete failed ", L"Could not delete the policy."}, {L"GetPolicies"}, {}, {}, L"Delete Policy"},
    {L"ApplyPowerConsumptionData", kSavingsReport, {{L"&Power Consumption Settings"}, {L"Edit Settings"}, {L"Inbuilt"}}, L"Save", {L"Error", L"Unable to Set"},
        {L"GetCurrentPowerConsumptionData"}, {L"Power Consumption Settings", {}}, L"Unable to Set"},
    {L"ApplySchedulerSettings", kJobScheduler, {}, L"Remove All Scheduled Jobs", {L"Save failed", L"Unable to save the scheduled jobs."}, {L"GetCurrentSchedulerSettings"}, {}, {}, L"Delete all Jobs"},
    {L"ApplyHostSettings", kPorts, {}, L"Change", {L"Unable to Set", L"Unable to set access control settings"}, {L"GetCurrenthostsettings"}, {L"Restart Voltaro", {}}},
    {L"ApplyProxySettings", kProxy, {}, L"Change", {L"Error", L"Unable to Set"}, {L"GetCurrentProxySettings"}, {L"Proxy Connection Settings", {}}, L"Unable to Set"},
    {L"ApplySnoozeSettings", kSnooze, {}, L"Change", {L"Error", L"Unable to Set"}, {L"GetSnoozeSettings"}, {L"Snooze Settings", {}}, L"Unable to Set"},
    {L"ApplyDeviceSettings", kSecurity, {}, L"Apply", {L"Error", L"Unable to Set"}, {L"GetCurrentDeviceSettings"}, {L"System Security Settings", {}}, L"Unable to Set"},
};
// clang-format on

struct ChangesTest : testing::Test, LoadedProgram { };

TEST_F(ChangesTest, EveryAnswerToEveryChange)
{
    const std::wstring check = L"GetActivationstatus";
    for (const Change& change : kChanges) {
        const std::wstring operation = change.operation;
        const auto sent = [&](Operations readAgain) {
            readAgain.insert(readAgain.begin(), {check, operation});
            return readAgain;
        };
        const ExpectedBox& odd = change.lenient ? change.done : change.failed;
        const Operations readAfterOdd = change.lenient ? change.readAfterSuccess : Operations();
        const std::wstring& unlicensed = change.unlicensed.empty() ? change.failed.caption : change.unlicensed;
        const struct {
            const std::wstring& operation;
            const wchar_t* answer;
            ExpectedBox box;
            Operations asked;
        } rows[] = {
            {operation, L"Failure", change.failed, sent({})},
            {operation, L"Permission denied", change.denied.caption.empty() ? odd : change.denied,
                sent(change.lenient ? readAfterOdd : change.readAfterOthers)},
            {operation, kNoStatus, odd, sent(readAfterOdd)},
            {operation, L"Success", change.done, sent(change.readAfterSuccess)},
            {operation, L"success", change.done, sent(change.readAfterSuccess)},
            {operation, L"Not Activated", {unlicensed, L"'Localhost' is not activated."}, sent({check})},
            {check, L"License Expired", {unlicensed, L"The license of Voltaro on 'Localhost' has expired."}, {check}},
            {operation, kMalformed, odd, sent(readAfterOdd)},
            {operation, kNoAnswer, {L"Connection Issue", L"is not responding"}, sent({})},
        };
        for (const auto& row : rows) {
            SCOPED_TRACE(operation + L" " + row.answer);
            AnswerWith(row.operation, row.answer);
            while (Front() != main)
                Command(Front(), IDCANCEL);
            if (change.command != 0)
                MainCommand(change.command);
            for (const Step& step : change.prepared)
                Do({step});
            TakeOperations();
            const BoxScript script{{change.question, L"Are you sure", Answer::Yes}, row.box};
            Do({{change.control}});
            EXPECT_EQ(TakeOperations(), row.asked);
        }
    }
}

} // namespace voltaro
