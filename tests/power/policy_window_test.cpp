#include "power/power_program.h"
#include "resources/resource_ids.h"
#include "ui/combo_box.h"
#include "ui/file_dialog.h"

namespace voltaro {
namespace {

constexpr WindowId kPolicy = WindowId::Policy;
constexpr WindowId kRule = WindowId::Rule;
constexpr WindowId kStrip = WindowId::SchemeProcessor;

HWND List()
{
    return ControlOf(WindowOf(kPolicy), kRuleList);
}

void AddRule(PowerProgram& program, std::wstring_view name, std::wstring_view description = {})
{
    program.Command(kPolicy, kAddRule);
    program.Type(kRule, kRuleName, name);
    program.Type(kRule, kRuleDescription, description);
    program.Command(kRule, IDOK);
}

void OpenPresentations(PowerProgram& program)
{
    program.Choose(kStrip, kPolicyList, L"Presentations");
    program.Command(kStrip, kEditPolicy);
}

Names RowOf(int row)
{
    Names cells;
    for (int column = 0; column < 11; ++column)
        cells.push_back(CellOf(List(), row, column));
    return cells;
}

TEST(PolicyWindow, SendsANewPolicyAndShowsItInTheEditor)
{
    PowerProgram program;
    program.Command(kStrip, kNewPolicy);
    EXPECT_TRUE(program.IsOpen(kPolicy));
    EXPECT_FALSE(IsWindowEnabled(WindowOf(WindowId::Scheme)));
    OpenSchemeWindow(WindowOf(WindowId::Main)); // it is open: what lies over it comes to the front
    EXPECT_EQ(GetForegroundWindow(), WindowOf(kPolicy));
    program.Type(kPolicy, kNewPolicyName, L"Games_1");
    program.Command(kPolicy, kAddRule);
    program.Type(kRule, kRuleName, L"Chess.exe");
    program.Type(kRule, kRuleDescription, L"Tea & thought");
    program.Click(kRule, kFirstRuleCheck + 3); // lock screen
    program.Command(kRule, kSaveRule);
    program.Agent().ClearRequests();
    program.Command(kPolicy, kSavePolicy);
    program.ExpectSent(L"CreatePolicy",
        L"<details>|<PolicyName>Games_1</PolicyName>|<AppNo_1>|\t<Application_Name>Chess.exe</Application_Name>"
        L"|\t<Rule_Status>Enabled</Rule_Status>|\t<Dim_Monitor>No</Dim_Monitor>|\t<TO_Monitor>No</TO_Monitor>"
        L"|\t<Lock_Screen>Yes</Lock_Screen>|\t<TO_Harddisk>No</TO_Harddisk>|\t<Logoff>No</Logoff>"
        L"|\t<Standby>No</Standby>|\t<Hibernate>No</Hibernate>|\t<Shutdown>No</Shutdown>"
        L"|\t<Description>Tea &amp; thought</Description></AppNo_1></details>");
    EXPECT_EQ(program.TakeOperations(), (Names{L"GetActivationstatus", L"CreatePolicy", L"GetPolicies"}));
    EXPECT_FALSE(program.IsOpen(kPolicy));
    EXPECT_TRUE(IsWindowEnabled(WindowOf(WindowId::Scheme)));
    EXPECT_EQ(SelectedText(WindowOf(kStrip), kPolicyList), L"Games_1");
}

TEST(PolicyWindow, RulesAreModifiedAndDeletedByMouseAndKeyboard)
{
    PowerProgram program;
    program.Command(kStrip, kEditPolicy); // nothing is selected: nothing happens
    EXPECT_FALSE(program.IsOpen(kPolicy));
    program.Machine().policies[0].children[2].children[5].text = L"yes"; // no word of the hard disk's check box
    OpenPresentations(program);
    program.ExpectSent(L"QueryPolicy", L"<PolicyName>Presentations</PolicyName>");
    EXPECT_EQ(TextOf(WindowOf(kPolicy), kPolicyName), L"Presentations");
    EXPECT_FALSE(IsWindowEnabled(ControlOf(WindowOf(kPolicy), kModifyRule)));
    program.Command(kPolicy, kModifyRule);
    program.Command(kPolicy, kDeleteRule);
    EXPECT_FALSE(program.IsOpen(kRule));
    EXPECT_EQ(RowCount(List()), 3);

    SetForegroundWindow(WindowOf(kPolicy));
    SetFocus(List());
    SelectRow(List(), 1);
    EXPECT_TRUE(IsWindowEnabled(ControlOf(WindowOf(kPolicy), kModifyRule)));
    Press(VK_RETURN);
    EXPECT_TRUE(program.IsOpen(kRule));
    EXPECT_EQ(TextOf(WindowOf(kRule), kModifiedName), L"MeetingRoom.exe");
    program.Type(kRule, kRuleDescription, L"Calls");
    program.Click(kRule, kFirstRuleCheck);
    program.Command(kRule, kSaveRule); // its own name is no obstacle
    EXPECT_EQ(RowOf(1),
        (Names{L"MeetingRoom.exe", L"Calls", L"Disabled", L"No", L"No", L"No", L"yes", L"No", L"No", L"No", L"No"}));

    NMITEMACTIVATE click{};
    click.hdr = {List(), kRuleList, static_cast<UINT>(NM_DBLCLK)};
    SendMessageW(WindowOf(kPolicy), WM_NOTIFY, kRuleList, reinterpret_cast<LPARAM>(&click));
    EXPECT_TRUE(program.IsOpen(kRule));
    program.Command(kRule, ID_RULE_CLEAR);
    EXPECT_EQ(TextOf(WindowOf(kRule), kRuleDescription), L"");
    EXPECT_EQ(TextOf(WindowOf(kRule), kModifiedName), L"MeetingRoom.exe");
    program.Command(kRule, IDCANCEL);
    EXPECT_EQ(RowOf(1)[1], L"Calls");

    SetFocus(List());
    SelectRow(List(), 2);
    Press(L'A', VK_CONTROL); // all of them, for a copy
    Press(VK_DELETE);
    EXPECT_EQ(RowCount(List()), 3);
    SelectRow(List(), 2);
    Press(VK_DELETE);
    EXPECT_EQ(RowCount(List()), 2);
    program.Agent().ClearRequests();
    program.Command(kPolicy, IDOK);
    EXPECT_TRUE(program.IsOpen(kRule)); // the list had the focus: Enter modifies
    program.Command(kRule, IDCANCEL);
    program.Command(kPolicy, kSavePolicy);
    const std::wstring sent = program.LastRequest(L"SetPolicySettings");
    EXPECT_NE(sent.find(L"<Description>Calls</Description></AppNo_2></details>"), std::wstring::npos) << sent;
    EXPECT_FALSE(program.IsOpen(kPolicy));
    OpenPresentations(program);
    EXPECT_EQ(RowCount(List()), 2);
}

TEST(PolicyWindow, AnswersDecideWhatIsShownAndReadAgain)
{
    PowerProgram program;
    const auto expectAnswers = [&](const wchar_t* operation, const ExpectedBox& failed, auto open) {
        program.ExpectAnswers({operation, nullptr, failed, {L"GetPolicies"}}, [&] {
            if (!program.IsOpen(kPolicy))
                open();
            program.Agent().ClearRequests();
            program.Command(kPolicy, kSavePolicy);
        });
        program.Command(kPolicy, IDCANCEL);
    };
    expectAnswers(L"SetPolicySettings", {L"Failed to save", L"Unable to save application sensor policy settings"},
        [&] { OpenPresentations(program); });
    expectAnswers(L"CreatePolicy", {L"Failed to save ", L"Unable to save new policy settings"}, [&] {
        program.Command(kStrip, kNewPolicy);
        program.Type(kPolicy, kNewPolicyName, L"Games");
        AddRule(program, L"Chess.exe");
    });
    EXPECT_EQ(SelectedText(WindowOf(kStrip), kPolicyList), L"Presentations"); // the agent does not list the new one
    for (const wchar_t* answer : {kMalformed, L"Failure"}) {
        program.AnswerWith(L"QueryPolicy", answer);
        program.boxes.Expect({{L"Application Sensor Policy", L"Could not read the settings of the policy 'Pres"}});
        OpenPresentations(program);
        EXPECT_FALSE(program.IsOpen(kPolicy));
    }
}

TEST(PolicyWindow, MoreRulesAndLongerTextsThanAllowedAreShownAndKept)
{
    PowerProgram program;
    Element& policy = program.Machine().policies[0];
    for (int i = 4; i <= 51; ++i) {
        Element rule = policy.children[1];
        rule.name = L"AppNo_" + std::to_wstring(i);
        rule.children[0].text = L"Tool" + std::to_wstring(i) + L".Exe"; // could not be entered
        rule.children[10].text = std::wstring(500, L'<');               // long on the wire
        policy.children.push_back(rule);
    }
    OpenPresentations(program);
    ASSERT_EQ(RowCount(List()), 51);
    EXPECT_EQ(RowOf(50)[0], L"Tool51.Exe");
    program.boxes.Expect({{L"Applications List Exceeded Limitation", L"Application's list cannot contain more than 50"},
        {L"Applications list max limit reached ", L"Applications limit per policy name is 50 applications ."}});
    program.Command(kPolicy, kSavePolicy);
    SelectRow(List(), 0);
    program.Command(kPolicy, kDeleteRule);
    program.Command(kPolicy, kAddRule);
    EXPECT_FALSE(program.IsOpen(kRule));
    SelectRow(List(), 0);
    program.Command(kPolicy, kDeleteRule);
    AddRule(program, L"Last.exe", std::wstring(1000, L'd'));
    SelectRow(List(), 1);
    program.Command(kPolicy, kModifyRule);
    program.Click(kRule, kFirstRuleCheck);
    program.Command(kRule, kSaveRule);
    program.Command(kPolicy, kSavePolicy);
    const std::vector<Element> saved = program.Machine().policies[0].children;
    ASSERT_EQ(saved.size(), 51U);
    EXPECT_EQ(saved[2].children[1].text, L"Disabled");
    EXPECT_EQ(saved[2].children[10].text, std::wstring(500, L'<'));
    EXPECT_EQ(saved[50].children[10].text, std::wstring(255, L'd')); // as long as one may be entered
}

TEST(PolicyWindow, NothingReachesAWindowUnderAnotherOne)
{
    PowerProgram program;
    OpenPresentations(program);
    const auto isOpen = [&](WindowId window) { return program.IsOpen(window) && !IsWindowEnabled(WindowOf(window)); };
    SelectRow(List(), 1);
    program.Command(kPolicy, kModifyRule);
    program.Agent().ClearRequests();
    SendPastDisabled(kPolicy, {IDCANCEL, kDeleteRule, kSavePolicy});
    NMLVKEYDOWN key{{List(), kRuleList, static_cast<UINT>(LVN_KEYDOWN)}, VK_DELETE, 0};
    SendMessageW(WindowOf(kPolicy), WM_NOTIFY, kRuleList, reinterpret_cast<LPARAM>(&key));
    SendPastDisabled(WindowId::Scheme, {IDCANCEL, kEditorOk, kEditorRefresh});
    program.Command(kStrip, kNewPolicy);
    program.Command(kStrip, kEditPolicy);
    EXPECT_TRUE(isOpen(kPolicy) && isOpen(WindowId::Scheme));
    EXPECT_EQ(program.TakeOperations(), Names{});
    program.Command(kRule, kSaveRule);
    EXPECT_EQ(RowCount(List()), 3);
    EXPECT_EQ(TextOf(WindowOf(kPolicy), kPolicyName), L"Presentations");
}

TEST(PolicyWindow, NamesAndListsAreChecked)
{
    PowerProgram program;
    program.Command(kStrip, kNewPolicy);
    constexpr const wchar_t* kTyping = L"Invalid policy name ";
    ExpectRefused(program, kPolicy, kNewPolicyName, kSavePolicy, kTyping,
        {{L"a.", kTyping, L"Please follow the rules listed below while entering a 'Policy Name'"},
            {L"a_", L"Invalid Policy name "}, {L"nightly_BACKUP", L"Policy name already present "}});
    program.Type(kPolicy, kNewPolicyName, L"Games");
    program.boxes.Expect({{L"Blank Applications List ", L"Application's list cann't be blank!\nPlease add"}});
    program.Command(kPolicy, kSavePolicy);
    AddRule(program, L"A tool.EXE");
    SetText(WindowOf(kPolicy), kNewPolicyName, L"abcdefghijklmnopqrstuvwxyz0123456789");
    program.Command(kPolicy, kSavePolicy);
    EXPECT_EQ(SelectedText(WindowOf(kStrip), kPolicyList), L"abcdefghijklmnopqrstuvwxyz012345");
    program.Command(kStrip, kEditPolicy);
    EXPECT_EQ(RowOf(0)[0], L"A tool.EXE");

    program.Command(kPolicy, kAddRule);
    ExpectRefused(program, kRule, kRuleName, kSaveRule, {},
        {{L"", L"No Application name "},
            {L"a Tool.exe", L"Application name already in the list ", L"Application ' a Tool.exe ' already exists"}});
    static std::wstring chosen;
    const auto chooser = std::exchange(platformCalls.chooseFile, [](HWND, const FileDialog& dialog) {
        EXPECT_STREQ(dialog.title, L"Select an exe file");
        return std::optional(chosen);
    });
    chosen = L"C:\\" + std::wstring(251, L'd') + L"\\D.exe"; // 260 units
    program.boxes.Expect({{L"Path too long", L"is longer than 259 characters"}});
    program.Command(kRule, kRuleFile);
    EXPECT_EQ(TextOf(WindowOf(kRule), kRuleName), L"");
    chosen.erase(3, 1);
    program.Command(kRule, kRuleFile);
    platformCalls.chooseFile = chooser;
    EXPECT_EQ(TextOf(WindowOf(kRule), kRuleName), L"D.exe");
    program.Command(kRule, ID_RULE_CLEAR);
    EXPECT_EQ(TextOf(WindowOf(kRule), kRuleName), L"");
    program.Command(kRule, IDCANCEL);

    SelectRow(List(), 0);
    program.Command(kPolicy, kDeleteRule);
    program.boxes.Expect({{L"Blank Applications List ", L"Application's list cannot be blank!\nPlease add"}});
    program.Command(kPolicy, kSavePolicy);
}

} // namespace
} // namespace voltaro
