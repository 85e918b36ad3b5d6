#include "power/power_program.h"
#include "resources/resource_ids.h"
#include "ui/file_dialog.h"

namespace voltaro {

struct PolicyWindow : testing::Test, PowerProgram {
    const HWND m_list = Find(kRuleList, kPolicy);

    void OpenPresentations() { Do({{kPolicyList, L"Presentations"}, {kEditPolicy}}); }
    void DoOnRow(int row, std::initializer_list<Step> steps)
    {
        SelectRow(m_list, row);
        Do(steps);
    }
};

TEST_F(PolicyWindow, SendsANewPolicyAndShowsItInTheEditor)
{
    Do({{kNewPolicy}});
    OpenSchemeWindow(WindowOf(WindowId::Main)); // it is open: what lies over it comes to the front
    EXPECT_EQ(GetForegroundWindow(), WindowOf(kPolicy));
    Do({{kNewPolicyName, L"Games_1"}, {kAddRule}, {kRuleName, L"Chess.exe"}, {kRuleDescription, L"Tea & thought"},
        {kFirstRuleCheck + 3}, {kSaveRule}}); // lock screen
    Agent().ClearRequests();
    Do({{kSavePolicy}});
    ExpectSent(L"CreatePolicy",
        L"details[PolicyName=Games_1 AppNo_1[Application_Name=Chess.exe Rule_Status=Enabled Dim_Monitor=No "
        L"TO_Monitor=No Lock_Screen=Yes TO_Harddisk=No Logoff=No Standby=No Hibernate=No Shutdown=No "
        L"Description=Tea & thought]]");
    EXPECT_EQ(TakeOperations(), (Operations{L"GetActivationstatus", L"CreatePolicy", L"GetPolicies"}));
    EXPECT_TRUE(!IsOpen(kPolicy) && IsEnabled(WindowOf(kEditor)) && Shown(kPolicyList) == L"Games_1");
}

TEST_F(PolicyWindow, RulesAreModifiedAndDeletedByMouseAndKeyboard)
{
    Machine().policies[0].children[2].children[5].text = L"yes"; // no word of the hard disk's check box
    OpenPresentations();
    ExpectSent(L"QueryPolicy", L"PolicyName=Presentations");
    EXPECT_TRUE(Shown(kPolicyName) == L"Presentations" && !IsOn(kModifyRule));
    SetForegroundWindow(WindowOf(kPolicy));
    SetFocus(m_list);
    SelectRow(m_list, 1);
    EXPECT_TRUE(IsOn(kModifyRule));
    Press(VK_RETURN);
    EXPECT_EQ(Shown(kModifiedName), L"MeetingRoom.exe");
    Do({{kRuleDescription, L"Calls"}, {kFirstRuleCheck}, {kFirstRuleCheck + 6}, {kSaveRule}});
    EXPECT_EQ(ListText(m_list, true), L"MeetingRoom.exe\tCalls\tDisabled\tNo\tNo\tNo\tyes\tNo\tYes\tNo\tNo\r\n");
    for (int check = 1; check <= 8; ++check) {
        DoubleClick(m_list, 0);
        Do({{ID_RULE_CLEAR}});
        Do({{kFirstRuleCheck + check}, {kSaveRule}, {kSavePolicy}});
        OpenPresentations();
        for (int field = 1; field <= 8; ++field) {
            EXPECT_EQ(CellOf(m_list, 0, field + 2), field == check ? L"Yes" : L"No") << check;
            EXPECT_EQ(At(Machine().policies[0], {1, field + 1U}).text, CellOf(m_list, 0, field + 2)) << check;
        }
    }

    DoubleClick(m_list, 1);
    Do({{ID_RULE_CLEAR}});
    EXPECT_EQ(Shown(kRuleDescription) + Shown(kModifiedName), L"MeetingRoom.exe");
    Do({{IDCANCEL}});
    EXPECT_EQ(CellOf(m_list, 1, 1), L"Calls");
    SetFocus(m_list);
    Press(L'A', VK_CONTROL); // all of them, for a copy
    Press(VK_DELETE);
    EXPECT_EQ(RowCount(m_list), 3);
    SelectRow(m_list, 2);
    Press(VK_DELETE);
    Do({{IDOK}});
    EXPECT_TRUE(IsOpen(kRule)); // the list had the focus: Enter modifies
    Do({{IDCANCEL}, {kSavePolicy}});
    const std::wstring sent = LastRequest(L"SetPolicySettings");
    EXPECT_NE(sent.find(L"<Description>Calls</Description></AppNo_2></details>"), std::wstring::npos) << sent;
    EXPECT_TRUE(!IsOpen(kPolicy) && SelectedRow(m_list) == 1);
    OpenPresentations();
    EXPECT_EQ(SelectedRow(m_list), -1);
}

TEST_F(PolicyWindow, APolicyThatCannotBeReadIsNotOpened)
{
    for (const wchar_t* answer : {kMalformed, L"Failure"}) {
        AnswerWith(L"QueryPolicy", answer);
        boxes.Expect({{L"Application Sensor Policy", L"Could not read the settings of the policy 'Pres"}});
        OpenPresentations();
        EXPECT_FALSE(IsOpen(kPolicy));
    }
}

TEST_F(PolicyWindow, MoreRulesAndLongerTextsThanAllowedAreShownAndKept)
{
    Element& policy = Machine().policies[0];
    for (int i = 4; i <= 51; ++i) {
        Element rule = policy.children[1];
        rule.name = L"AppNo_" + std::to_wstring(i);
        rule.children[0].text = L"Tool" + std::to_wstring(i) + L".Exe"; // could not be entered
        rule.children[10].text = std::wstring(500, L'<');               // long on the wire
        policy.children.push_back(rule);
    }
    OpenPresentations();
    ASSERT_EQ(RowCount(m_list), 51);
    EXPECT_EQ(CellOf(m_list, 50, 0), L"Tool51.Exe");
    boxes.Expect({{L"Applications List Exceeded Limitation", L"Application's list cannot contain more than 50"},
        {L"Applications list max limit reached ", L"Applications limit per policy name is 50 applications ."}});
    Do({{kSavePolicy}});
    DoOnRow(0, {{kDeleteRule}, {kAddRule}});
    EXPECT_FALSE(IsOpen(kRule));
    DoOnRow(2, {{kModifyRule}, {kFirstRuleCheck + 8}, {kSaveRule}});
    const std::wstring longText(1000, L'd');
    DoOnRow(0,
        {{kDeleteRule}, {kAddRule}, {kRuleName, L"Last.exe"}, {kRuleDescription, longText.c_str()}, {kSaveRule},
            {kSavePolicy}});
    const std::vector<Element> saved = Machine().policies[0].children;
    ASSERT_EQ(saved.size(), 51U);
    EXPECT_EQ(saved[2].children[10].text, std::wstring(500, L'<'));
    EXPECT_EQ(saved[50].children[10].text, longText.substr(0, 255)); // as long as one may be entered
}

TEST_F(PolicyWindow, NothingReachesAWindowUnderAnotherOne)
{
    Machine().policies[0].children[0].text = L"PRESENTATIONS"; // the list of policies spells it otherwise
    OpenPresentations();
    DoOnRow(1, {{kModifyRule}});
    Agent().ClearRequests();
    for (const HWND window : {WindowOf(kPolicy), WindowOf(kEditor), WindowOf(WindowId::SchemeProcessor)}) {
        SendMessageW(window, WM_CLOSE, 0, 0);
        for (const WPARAM command : std::initializer_list<WPARAM>{
                 IDCANCEL, kDeleteRule, kSavePolicy, kEditorOk, kEditorRefresh, kNewPolicy, kEditPolicy})
            SendMessageW(window, WM_COMMAND, command, 0);
    }
    NMLVKEYDOWN key{{m_list, kRuleList, static_cast<UINT>(LVN_KEYDOWN)}, VK_DELETE, 0};
    SendMessageW(WindowOf(kPolicy), WM_NOTIFY, kRuleList, reinterpret_cast<LPARAM>(&key));
    for (const WindowId window : {kEditor})
        EXPECT_TRUE(IsOpen(window) && !IsEnabled(WindowOf(window)));
    EXPECT_EQ(TakeOperations(), Operations{});
    Do({{kSaveRule}});
    EXPECT_TRUE(RowCount(m_list) == 3 && Shown(kPolicyName) == L"Presentations");
}

TEST_F(PolicyWindow, NamesAndListsAreChecked)
{
    Do({{kNewPolicy}});
    const ExpectedBox typing = {L"Invalid policy name ", L"rules listed below while entering a 'Policy Name'"};
    ExpectRefused(typing, {{kNewPolicyName, L"abcdefghijklmnopqrstuvwxyz01234."}});
    ExpectRefused({L"Invalid Policy name ", {}}, {{kNewPolicyName, L"a_"}, {kSavePolicy}});
    ExpectRefused({L"Policy name already present ", {}}, {{kNewPolicyName, L"nightly_BACKUP"}, {kSavePolicy}});
    boxes.Expect({typing});
    TypeUnits(kNewPolicyName, L"a.");
    EXPECT_EQ(Shown(kNewPolicyName), L"");
    boxes.Expect({{L"Blank Applications List ", L"Application's list cann't be blank!\nPlease add"}});
    Do({{kNewPolicyName, L"Games"}, {kSavePolicy}, {kAddRule}, {kRuleName, L"A tool.EXE"}, {kSaveRule}});
    SetText(WindowOf(kPolicy), kNewPolicyName, L"abcdefghijklmnopqrstuvwxyz0123456789");
    Do({{kSavePolicy}});
    EXPECT_EQ(Shown(kPolicyList), L"abcdefghijklmnopqrstuvwxyz012345");
    Do({{kEditPolicy}, {kAddRule}});
    ExpectRefused({L"No Application name ", {}}, {{kRuleName, L""}, {kSaveRule}});
    ExpectRefused({L"Application name already in the list ", L"Application ' a Tool.exe ' already exists"},
        {{kRuleName, L"a Tool.exe"}, {kSaveRule}});
    static std::wstring chosen;
    platformCalls.chooseFile = [](HWND, const FileDialog& dialog) {
        EXPECT_STREQ(dialog.title, L"Select an exe file");
        return std::optional(chosen);
    };
    chosen = L"C:\\" + std::wstring(251, L'd') + L"\\D.exe"; // 260 units
    boxes.Expect({{L"Path too long", L"is longer than 259 characters"}});
    Do({{kRuleFile}});
    EXPECT_EQ(Shown(kRuleName), L"");
    chosen.erase(3, 1);
    Do({{kRuleFile}});
    EXPECT_EQ(Shown(kRuleName), L"D.exe");
    Do({{IDCANCEL}});
    boxes.Expect({{L"Blank Applications List ", L"Application's list cannot be blank!\nPlease add"}});
    DoOnRow(0, {{kDeleteRule}, {kSavePolicy}});
}

} // namespace voltaro
