#include "power/power_program.h"

namespace voltaro {

const Operations kReload = {L"GetPowerSchemes", L"GetPolicies", L"GetCurrentpowersettings"};
const Operations kAfterSaving = {L"GetPolicies", L"GetCurrentpowersettings"};

struct SchemeWindow : testing::Test, PowerProgram {
    static void Slide(int slider, int position)
    {
        SendMessageW(Find(slider), TBM_SETPOS, TRUE, position);
        SendMessageW(GetParent(Find(slider)), WM_HSCROLL, TB_THUMBTRACK, reinterpret_cast<LPARAM>(Find(slider)));
    }
};

TEST_F(SchemeWindow, SendsWhatTheControlsShow)
{
    Slide(kWorkingBrightness, 8);
    EXPECT_STREQ(TooltipOf(Find(kWorkingBrightness)), L"128");
    Slide(kIdleBrightness, 1);
    Do({{kScreenSaverOff}, {kShutdownChoice}, {kResumePassword}, {kScript}, {kDownloads}, {kPrinter}, {kCpuLoadCheck},
        {kEditSettings}});
    EXPECT_FALSE(IsOn(kCpuLoad)); // sent although its condition is off
    EXPECT_EQ(Shown(L"Folder of the script"), programTexts.binDirectory.view());
    // clang-format off
    const std::pair<int, const wchar_t*> kChosen[] = {
        {kDim,          L"After 45 Mins"}, {kMonitorOff,     L"After 7 Hrs"},  {kLock,      L"After 1 Min"},
        {kSchemeLogOff, L"After 13 Hrs"},  {kStandbyTime,    L"After 14 Hrs"}, {kHardDisk,  L"After 3 Mins"},
        {kShutdownTime, L"After 5 Mins"},  {kHibernateTime,  L"After 15 Hrs"}, {kCpuLoad,   L"99"},
        {kPolicyList, L"Nightly_Backup"},  {kProcessorSpeed, L"Maximum"},
    };
    // clang-format on
    for (const auto& [id, text] : kChosen)
        Do({{id, text}});
    const std::wstring settings
        = L"details[PowerScheme=Night_shift CPUSpeed=Maximum Screensaver=Yes LockScreentime=1 Wbrightvalue=128 "
          L"Ibrightvalue=15 Dimtime=45 Monitortime=420 StandBytime=840 Hibernatetime=900 HardDiskTimeOut=3 "
          L"Logofftime=780 Shutdowntime=5 Shutdownflag=Yes DownloadsFlag=No PPasswordprotected=No "
          L"Appsensorname=Nightly_Backup RunScriptBeforePowerOff=Yes IdleCPULoad=99 IdleCPULoadFlag=No "
          L"TrackingPrinterFlag=Yes]";

    Do({{kNewScheme}, {kNewSchemeName, L"Night_shift"}, {IDOK}});
    ExpectSent(L"CreateScheme", settings);
    EXPECT_FALSE(IsShown(Find(kSaveNewScheme)) || IsShown(Find(kApplyScheme)));
    Do({{kEditorScheme, L"Night_shift"}});
    ExpectSent(L"QueryPowerScheme", L"scheme=Night_shift");
    for (const auto& [id, text] : kChosen)
        EXPECT_EQ(Shown(id), text) << id;
    Do({{kSaveAndApply}});
    ExpectSent(L"ApplyPowerSettings", settings);
    EXPECT_EQ(SelectedText(WindowOf(WindowId::Main), 5001), L"Night_shift");
    Do({{kEditorScheme, L"Minimum"}});
    EXPECT_TRUE(IsShown(Find(kApplyScheme)));
    Do({{kApplyScheme}});
    ExpectSent(L"ApplyPowerScheme", L"scheme=Minimum");
    EXPECT_FALSE(IsShown(Find(kApplyScheme)));

    boxes.Expect({{L"Delete Scheme", L"sure you want to delete the power scheme 'Night_shift'?\n Press 'Yes' to c",
                      Answer::Yes},
        {L"Delete Policy", L"sure you want to delete the policy 'Nightly_Backup'?\n Press 'Yes' to Con", Answer::Yes}});
    Do({{kEditorScheme, L"Night_shift"}, {kDeleteScheme}});
    ExpectSent(L"DeleteScheme", L"scheme=Night_shift");
    EXPECT_EQ(ComboBox_GetCount(Find(kEditorScheme)), 5);
    Do({{kPolicyList, L"Nightly_Backup"}, {kDeletePolicy}});
    ExpectSent(L"DeletePolicy", L"policy=Nightly_Backup");
    EXPECT_TRUE(ComboBox_GetCount(Find(kPolicyList)) == 2 && Shown(kPolicyList) == L"(None)");
    EXPECT_FALSE(IsOn(kEditPolicy) || IsOn(kDeletePolicy));
}

TEST_F(SchemeWindow, EachCheckBoxIsAFieldOfItsOwn)
{
    for (const auto& [id, field] : {std::pair(kScreenSaverOff, 2U), {kDownloads, 14}, {kResumePassword, 15},
             {kScript, 17}, {kCpuLoadCheck, 19}, {kPrinter, 20}}) {
        const std::vector<Element> before = Machine().schemes[0].children;
        Do({{id}, {kSaveAndApply}});
        const std::vector<Element>& after = Machine().schemes[0].children;
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_EQ(after[i].text == before[i].text, i != field) << id << " " << after[i].name;
    }
}

TEST_F(SchemeWindow, WhatIsActiveIsNotDeleted)
{
    boxes.Expect({{L"Cannot delete current active scheme ",
                      L"Scheme 'Balanced' cannot be deleted as it is the current active scheme!\n\nHint: To delete "},
        {L"Delete Scheme", L"'Minimum'", Answer::No}, {L"Delete Policy", L"'Presentations'", Answer::No},
        {L"Policy In Use.", L"'Presentations' Policy cannot be deleted.\nIt is associated with"}});
    Do({{kDeleteScheme}, {kEditorScheme, L"Minimum"}, {kDeleteScheme}, {kPolicyList, L"Presentations"}, {kDeletePolicy},
        {kEditorScheme, L"Office_Hours"}, {kApplyScheme}, {kDeletePolicy}});
    for (const std::wstring& operation : TakeOperations())
        EXPECT_TRUE(!operation.starts_with(L"Delete")) << operation;
}

TEST(LimitedMachine, ThatCannotSleepShowsDisabled)
{
    PowerProgram program(L"limited");
    EXPECT_EQ(program.Shown(kStandbyTime) + program.Shown(kHibernateTime), L"DisabledDisabled");
    program.Do({{kSaveAndApply}});
    for (const wchar_t* sent : {L"<StandBytime>0<", L"<Hibernatetime>0<"})
        EXPECT_NE(program.LastRequest(L"ApplyPowerSettings").find(sent), std::wstring::npos) << sent;
}

TEST_F(SchemeWindow, WhatTheUserDidNotChangeGoesBackAsRead)
{
    Element scheme = Machine().schemes[1];
    std::vector<Element>& fields = scheme.children;
    for (std::size_t i = 1; i < fields.size(); ++i)
        fields[i].text = L"07 " + std::to_wstring(i); // no control can show it
    fields[1].text = std::wstring(300, L'x');
    fields[6].text = L"60"; // the list that follows the dim time does not hold 10 minutes
    fields[7].text = L"10";
    fields[16].text = L"nightly_BACKUP"; // of another spelling than the list's
    Machine().schemes[1] = scheme;
    Agent().ScriptReply(L"ApplyPowerSettings", L"<vltp><response><status>Success</status></response></vltp>");
    Do({{kEditorScheme, L"MaxPowerSaver"}});
    EXPECT_EQ(Shown(kHardDisk) + Shown(kMonitorOff) + Shown(kPolicyList), L"After 10 MinsAfter 2 HrsNightly_Backup");
    Do({{kHardDisk, L"After 5 Mins"}, {kSaveAndApply}});
    fields[10].text = L"5";
    ExpectSent(L"ApplyPowerSettings", Line(scheme));
    Machine().schemes[0].children[16].text = Machine().schemes[1].children[16].text = L"Gone"; // no longer listed
    Machine().schemes[0].children[7].text = L"0"; // with which the screen is not locked either
    Do({{kEditorScheme, L"MaxPowerSaver"}, {kEditorOk}});
    MainCommand(kPowerScheme);
    EXPECT_EQ(Shown(kEditorScheme) + Shown(kPolicyList), L"Balanced");
    EXPECT_EQ(Shown(kMonitorOff) + Shown(kLock), L"NeverNever");
}

TEST_F(SchemeWindow, AnUnreadableSchemeLeavesTheWindowAsItWas)
{
    for (const wchar_t* answer : {kMalformed, kNoStatus, L"Failure"}) {
        AnswerWith(L"QueryPowerScheme", answer);
        Do({{kEditorScheme, L"Baseline"}});
        EXPECT_EQ(Shown(kEditorScheme) + Shown(kDim), L"BalancedAfter 5 Mins");
    }
    // Current settings that cannot be read leave what is on screen, which is not sent again before a readable answer.
    for (const wchar_t* answer : {kMalformed, L"Failure"}) {
        AnswerWith(L"GetCurrentpowersettings", answer);
        Do({{kDim, L"After 20 Mins"}, {kSaveAndApply}});
        EXPECT_EQ(Shown(kDim), L"After 20 Mins");
        EXPECT_FALSE(IsOn(kSaveAndApply) || IsOn(kApplyScheme) || IsOn(kSaveNewScheme));
        Do({{kNewScheme}, {kNewSchemeName, L"Mine"}, {IDOK}});
        EXPECT_EQ(LastRequest(L"CreateScheme"), L"");
        AnswerWith(L"GetPolicies", kNoStatus); // readable, without a name
        connection.connected = false;
        Do({{kEditorRefresh}});
        EXPECT_TRUE(IsOn(kSaveAndApply) && IsOn(kSaveNewScheme));
        EXPECT_EQ(ComboBox_GetCount(Find(kPolicyList)), 1); // "(None)"
    }
}

TEST_F(SchemeWindow, ANewNameIsCheckedAndTheWaysOut)
{
    Do({{kDim, L"After 20 Mins"}, {kNewScheme}});
    EXPECT_TRUE(
        IsShown(Find(kNewSchemeName)) && IsShown(Find(kSaveNewScheme)) && !IsOn(kSaveAndApply) && !IsOn(kDeleteScheme));
    const ExpectedBox typing = {L"Invalid Scheme Name ", L"below while entering a 'Scheme Name':\n\n (1) Only"};
    ExpectRefused(typing, {{kNewSchemeName, L"a "}});
    ExpectRefused({L"Blank Input ", {}}, {{kNewSchemeName, L""}, {kSaveNewScheme}});
    ExpectRefused({L"Scheme name already present ", {}}, {{kNewSchemeName, L"bALANCED"}, {kSaveNewScheme}});
    boxes.Expect({typing});
    TypeUnits(kNewSchemeName, L"a ");
    EXPECT_EQ(Shown(kNewSchemeName), L"");
    TypeUnits(kNewSchemeName, L"abcdefghijklmnopqrstuvwxyz0123456789");
    EXPECT_EQ(Shown(kNewSchemeName), L"abcdefghijklmnopqrstuvwxyz012345");
    Do({{kEditSettings}});
    EXPECT_TRUE(!IsShown(Find(kNewSchemeName)) && !IsShown(Find(kSaveNewScheme)) && Shown(kDim) == L"After 20 Mins");
    SetForegroundWindow(WindowOf(kEditor));
    SetFocus(Find(kEditorScheme));
    Press(VK_RETURN);
    EXPECT_TRUE(!IsOpen(kEditor) && WaitForSingleObject(SchemeWindowClosed(), 0) == WAIT_OBJECT_0);
    EXPECT_EQ(TakeOperations(), Operations{});
    MainCommand(kPowerScheme);
    EXPECT_TRUE(TakeOperations() == kReload && Shown(kDim) == L"After 5 Mins");
    EXPECT_EQ(WaitForSingleObject(SchemeWindowClosed(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
    Press(VK_ESCAPE);
    EXPECT_EQ(TakeOperations(), kAfterSaving);
}

TEST_F(SchemeWindow, RefreshesInTheBackground)
{
    const auto isReady = [] { return IsItemEnabled(GetMenu(WindowOf(kEditor)), kEditorRefresh); };
    const auto refresh = [&] {
        Do({{kNewScheme}});
        for (int i = 0; i < 2; ++i) // the second during the first
            SendMessageW(WindowOf(kEditor), WM_COMMAND, kEditorRefresh, 0);
        for (const int id : std::initializer_list<int>{kDim, kSaveAndApply, kSleepChoice, kNewPolicy, kEditPolicy})
            EXPECT_FALSE(IsOn(id)) << id;
        EXPECT_TRUE(WaitFor(isReady) && IsOn(kDim) && !IsShown(Find(kEditorBusy)) && !IsShown(Find(kSaveNewScheme)));
    };
    ASSERT_TRUE(StartWorkers());
    Do({{kDim, L"After 20 Mins"}});
    refresh();
    EXPECT_TRUE(TakeOperations() == kReload && Shown(kDim) == L"After 5 Mins");
    boxes.Expect({{L"Connection Issue", L"is not responding"}});
    Agent().SetFault(L"GetPolicies", {FaultKind::CloseAtOnce, {}});
    Do({{kDim, L"After 20 Mins"}});
    OnPowerRefreshed(ReadResult::Read); // of a refresh that nobody waits for any more
    refresh();
    EXPECT_EQ(TakeOperations(), (Operations{L"GetPowerSchemes", L"GetPolicies"}));
    EXPECT_TRUE(Shown(kDim) == L"After 20 Mins" && !IsOn(kSaveAndApply));
    connection.connected = true;
    Agent().SetFault(L"GetSystemDetails", {FaultKind::Late, L"150"});
    RequestBackgroundRefresh(kRefreshSystemDetails);
    EXPECT_TRUE(WaitFor([&] { return !Agent().Requests().empty(); }));
    SendMessageW(WindowOf(kEditor), WM_COMMAND, kEditorRefresh, 0);
    connection.connected = false; // before the worker comes to it
    EXPECT_TRUE(WaitFor(isReady));
    StopWorkers(StopOrder::MainWindowDestroyed);
}

} // namespace voltaro
