#include "power/power_program.h"
#include "resources/resource_ids.h"
#include "ui/file_dialog.h"
#include "ui/list_view.h"

namespace voltaro {
namespace {

constexpr WindowId kPolicy = WindowId::Policy;
constexpr WindowId kRule = WindowId::Rule;
constexpr WindowId kStrip = WindowId::SchemeProcessor;

HWND List()
{
    return ControlOf(WindowOf(kPolicy), kRuleList);
}

bool IsOpen(WindowId window)
{
    return IsWindowVisible(WindowOf(window)) != FALSE;
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
    EXPECT_TRUE(IsOpen(kPolicy));
    EXPECT_FALSE(IsWindowEnabled(WindowOf(WindowId::Scheme)));
    OpenSchemeWindow(WindowOf(WindowId::Main)); // it is open: what lies over it comes to the front
    EXPECT_EQ(GetForegroundWindow(), WindowOf(kPolicy));
    program.Type(kPolicy, kNewPolicyName, L"Games_1");
    program.Command(kPolicy, kAddRule);
    program.Type(kRule, kRuleName, L"Chess.exe");
    program.Type(kRule, kRuleDescription, L"Tea & thought");
    SendMessageW(ControlOf(WindowOf(kRule), kFirstRuleCheck + 3), BM_CLICK, 0, 0); // lock screen
    program.Command(kRule, kSaveRule);
    EXPECT_EQ(RowOf(0),
        (Names{L"Chess.exe", L"Tea & thought", L"Enabled", L"No", L"No", L"Yes", L"No", L"No", L"No", L"No", L"No"}));
    program.Agent().ClearRequests();
    program.Command(kPolicy, kSavePolicy);
    EXPECT_EQ(program.FieldsOf(L"CreatePolicy"),
        L"\t\t<details>\n\t\t\t<PolicyName>Games_1</PolicyName>\n\t\t\t<AppNo_1>\n\t\t\t\t<Application_Name>Chess.exe</"
        L"Application_Name>\n\t\t\t\t<Rule_Status>Enabled</Rule_Status>\n\t\t\t\t<Dim_Monitor>No</"
        L"Dim_Monitor>\n\t\t\t\t"
        L"<TO_Monitor>No</TO_Monitor>\n\t\t\t\t<Lock_Screen>Yes</Lock_Screen>\n\t\t\t\t<TO_Harddisk>No</TO_Harddisk>\n"
        L"\t\t\t\t<Logoff>No</Logoff>\n\t\t\t\t<Standby>No</Standby>\n\t\t\t\t<Hibernate>No</Hibernate>\n\t\t\t\t"
        L"<Shutdown>No</Shutdown>\n\t\t\t\t<Description>Tea &amp; thought</Description></AppNo_1></details>");
    EXPECT_EQ(program.TakeOperations(), (Names{L"GetActivationstatus", L"CreatePolicy", L"GetPolicies"}));
    EXPECT_FALSE(IsOpen(kPolicy));
    EXPECT_TRUE(IsWindowEnabled(WindowOf(WindowId::Scheme)));
    EXPECT_EQ(SelectedText(WindowOf(kStrip), kPolicyList), L"Games_1");
}

TEST(PolicyWindow, RulesAreModifiedAndDeletedByMouseAndKeyboard)
{
    PowerProgram program;
    program.Command(kStrip, kEditPolicy); // nothing is selected: nothing happens
    EXPECT_FALSE(IsOpen(kPolicy));
    OpenPresentations(program);
    EXPECT_EQ(program.FieldsOf(L"QueryPolicy"), L"\t\t<PolicyName>Presentations</PolicyName>");
    EXPECT_EQ(TextOf(WindowOf(kPolicy), kPolicyName), L"Presentations");
    EXPECT_EQ(RowOf(2),
        (Names{L"WhiteBoard.exe", L"", L"Disabled", L"Yes", L"Yes", L"No", L"Yes", L"No", L"No", L"No", L"No"}));
    EXPECT_FALSE(IsWindowEnabled(ControlOf(WindowOf(kPolicy), kModifyRule)));
    program.Command(kPolicy, kModifyRule);
    program.Command(kPolicy, kDeleteRule);
    EXPECT_FALSE(IsOpen(kRule));
    EXPECT_EQ(RowCount(List()), 3);

    SetForegroundWindow(WindowOf(kPolicy));
    SetFocus(List());
    SelectRow(List(), 1);
    EXPECT_TRUE(IsWindowEnabled(ControlOf(WindowOf(kPolicy), kModifyRule)));
    Press(VK_RETURN);
    EXPECT_TRUE(IsOpen(kRule));
    EXPECT_EQ(TextOf(WindowOf(kRule), kModifiedName), L"MeetingRoom.exe");
    program.Type(kRule, kRuleDescription, L"Calls");
    SendMessageW(ControlOf(WindowOf(kRule), kFirstRuleCheck), BM_CLICK, 0, 0);
    program.Command(kRule, kSaveRule); // its own name is no obstacle
    EXPECT_EQ(RowOf(1),
        (Names{L"MeetingRoom.exe", L"Calls", L"Disabled", L"No", L"No", L"No", L"Yes", L"No", L"No", L"No", L"No"}));

    NMITEMACTIVATE click{};
    click.hdr = {List(), kRuleList, static_cast<UINT>(NM_DBLCLK)};
    SendMessageW(WindowOf(kPolicy), WM_NOTIFY, kRuleList, reinterpret_cast<LPARAM>(&click));
    EXPECT_TRUE(IsOpen(kRule));
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
    EXPECT_TRUE(IsOpen(kRule)); // the list had the focus: Enter modifies
    program.Command(kRule, IDCANCEL);
    program.Command(kPolicy, kSavePolicy);
    const std::wstring sent = program.FieldsOf(L"SetPolicySettings");
    EXPECT_NE(sent.find(L"<Description>Calls</Description></AppNo_2></details>"), std::wstring::npos) << sent;
    EXPECT_FALSE(IsOpen(kPolicy));
    OpenPresentations(program);
    EXPECT_EQ(RowCount(List()), 2);
}

TEST(PolicyWindow, AnswersDecideWhatIsShownAndReadAgain)
{
    PowerProgram program;
    const auto save = [&](const wchar_t* failed, const wchar_t* text, const wchar_t* operation, auto open) {
        ExpectAnswers(program, operation, nullptr,
            {{L"Failure", failed, text, {}}, {L"no status", L"", L"", {}}, {L"Permission denied", L"", L"", {}},
                {L"Success", L"", L"", {L"GetPolicies"}}, {L"success", L"", L"", {L"GetPolicies"}}},
            [&] {
                if (!IsOpen(kPolicy))
                    open();
                program.Agent().ClearRequests();
                program.Command(kPolicy, kSavePolicy);
            });
        program.Command(kPolicy, IDCANCEL);
    };
    save(L"Failed to save", L"Unable to save application sensor policy settings", L"SetPolicySettings",
        [&] { OpenPresentations(program); });
    save(L"Failed to save ", L"Unable to save new policy settings", L"CreatePolicy", [&] {
        program.Command(kStrip, kNewPolicy);
        program.Type(kPolicy, kNewPolicyName, L"Games");
        AddRule(program, L"Chess.exe");
    });
    EXPECT_EQ(SelectedText(WindowOf(kStrip), kPolicyList), L"Presentations"); // the agent does not list the new one
    program.AnswerWith(L"QueryPolicy", L"malformed");
    OpenPresentations(program);
    EXPECT_FALSE(IsOpen(kPolicy));
}

TEST(PolicyWindow, FiftyRulesRoundTripAndNoMoreFit)
{
    PowerProgram program;
    program.Command(kStrip, kNewPolicy);
    program.Type(kPolicy, kNewPolicyName, L"abcdefghijklmnopqrstuvwxyz0123456789");
    for (int i = 1; i <= 50; ++i)
        AddRule(program, L"Tool" + std::to_wstring(i) + L".exe", std::wstring(i == 50 ? 1000 : 100, L'd'));
    program.boxes.Expect(
        {{L"Applications list max limit reached ", L"Applications limit per policy name is 50 applications ."}});
    program.Command(kPolicy, kAddRule);
    EXPECT_FALSE(IsOpen(kRule));
    program.Command(kPolicy, kSavePolicy);
    EXPECT_EQ(SelectedText(WindowOf(kStrip), kPolicyList), L"abcdefghijklmnopqrstuvwxyz012345");
    program.Command(kStrip, kEditPolicy);
    ASSERT_EQ(RowCount(List()), 50);
    EXPECT_EQ(RowOf(0)[0], L"Tool1.exe");
    EXPECT_EQ(RowOf(48)[1], std::wstring(100, L'd'));
    EXPECT_EQ(RowOf(49)[1], std::wstring(255, L'd')); // cut to the slot
}

TEST(PolicyWindow, PolicyNamesAndListsAreChecked)
{
    PowerProgram program;
    program.Command(kStrip, kNewPolicy);
    constexpr const wchar_t* kTyping = L"Invalid policy name ";
    ExpectRefused(program, kPolicy, kNewPolicyName, kSavePolicy, kTyping,
        {{L"a.", kTyping, L"Please follow the rules listed below while entering a 'Policy Name'"}, {L"a ", kTyping},
            {L"", L"Blank Input ", L"'Policy Name' cannot be blank."}, {L"_a", L"Invalid Policy name "},
            {L"a_", L"Invalid Policy name "}, {L"nightly_BACKUP", L"Policy name already present "}});
    program.Type(kPolicy, kNewPolicyName, L"Games");
    program.boxes.Expect({{L"Blank Applications List ", L"Application's list cann't be blank!\nPlease add"}});
    program.Command(kPolicy, kSavePolicy);
    program.Command(kPolicy, IDCANCEL);
    OpenPresentations(program);
    for (int i = 0; i < 3; ++i) {
        SelectRow(List(), 0);
        program.Command(kPolicy, kDeleteRule);
    }
    program.boxes.Expect({{L"Blank Applications List ", L"Application's list cannot be blank!\nPlease add"}});
    program.Command(kPolicy, kSavePolicy);
}

TEST(PolicyWindow, ExecutableNamesAreChecked)
{
    constexpr const wchar_t* kNotValid = L"Application exe name, not valid";
    PowerProgram program;
    OpenPresentations(program);
    program.Command(kPolicy, kAddRule);
    ExpectRefused(program, kRule, kRuleName, kSaveRule, {},
        {{L"", L"No Application name "},
            {L"voltaroconsolese.EXE", kNotValid, L"Voltaro Application’s Executable cannot be mentioned for tracking."},
            {L"VOLTARO", L"Process name, not valid"},
            {L" a.exe", kNotValid, L"Application’s executable name cannot begin with space."},
            {L"a.exe ", kNotValid, L"Application’s executable name cannot end with space."},
            {L"a.Exe", kNotValid, L"Application’s executable name should be mentioned along with an '.exe' extension."},
            {L"slideshow.exe", L"Application name already in the list ",
                L"Application ' slideshow.exe ' already exists"}});
    program.Command(kRule, IDCANCEL);
    AddRule(program, L"A tool.EXE");
    EXPECT_EQ(RowOf(3)[0], L"A tool.EXE");

    const FileChooser chooser = std::exchange(chooseFile, [](HWND, const FileDialog& dialog) {
        EXPECT_STREQ(dialog.title, L"Select an exe file");
        return std::optional<std::wstring>(L"C:\\Program Files\\Draw\\Draw.exe");
    });
    program.Command(kPolicy, kAddRule);
    program.Command(kRule, kRuleFile);
    chooseFile = chooser;
    EXPECT_EQ(TextOf(WindowOf(kRule), kRuleName), L"Draw.exe");
    program.Command(kRule, ID_RULE_CLEAR);
    EXPECT_EQ(TextOf(WindowOf(kRule), kRuleName), L"");
}

} // namespace
} // namespace voltaro
