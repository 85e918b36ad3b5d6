#include "console/connection_state.h"
#include "power/power_program.h"
#include "shell/workers.h"
#include "ui/combo_box.h"
#include "ui/menus.h"
#include "ui/tabs.h"
#include "ui/tooltip.h"

namespace voltaro {
namespace {

constexpr WindowId kEditor = WindowId::Scheme, kDisplayPage = WindowId::SchemeDisplay,
                   kPowerOffPage = WindowId::SchemePowerOff, kStrip = WindowId::SchemeProcessor;
const Names kReload = {L"GetPowerSchemes", L"GetPolicies", L"GetCurrentpowersettings"};
const Names kAfterSaving = {L"GetPolicies", L"GetCurrentpowersettings"}, kCurrent = {L"GetCurrentpowersettings"};

HWND In(WindowId window, int id)
{
    return ControlOf(WindowOf(window), id);
}

bool IsShown(int id)
{
    return voltaro::IsShown(In(kEditor, id));
}

std::wstring ShownIn(WindowId window, int id)
{
    return SelectedText(WindowOf(window), id);
}

Names EntriesOf(WindowId window, int id)
{
    Names entries;
    wchar_t text[50];
    for (int i = 0; i < ComboBox_GetCount(In(window, id)); ++i) {
        ComboBox_GetLBText(In(window, id), i, text);
        entries.emplace_back(text);
    }
    return entries;
}

void Slide(int slider, int position, int how = TB_THUMBTRACK)
{
    SendMessageW(In(kDisplayPage, slider), TBM_SETPOS, TRUE, position);
    SendMessageW(WindowOf(kDisplayPage), WM_HSCROLL, static_cast<WPARAM>(how),
        reinterpret_cast<LPARAM>(In(kDisplayPage, slider)));
}

bool IsATipShown()
{
    HWND tip = nullptr;
    do
        tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr);
    while (tip != nullptr && !IsWindowVisible(tip));
    return tip != nullptr;
}

// A value of a scheme as the agent holds it.
std::wstring Held(PowerProgram& program, const wchar_t* scheme, const wchar_t* element)
{
    for (const Element& details : program.Machine().schemes) {
        if (ChildText(details, 0) == scheme)
            return std::wstring(FindChild(details, element)->text);
    }
    return L"no such scheme";
}

TEST(SchemeWindow, SendsWhatTheControlsShow)
{
    PowerProgram program;
    Slide(kWorkingBrightness, 8);
    EXPECT_STREQ(TooltipOf(In(kDisplayPage, kWorkingBrightness)), L"128");
    EXPECT_TRUE(IsATipShown());
    Slide(kWorkingBrightness, 8, TB_ENDTRACK);
    EXPECT_FALSE(IsATipShown());
    Slide(kIdleBrightness, 1);
    program.Choose(kDisplayPage, kDim, L"After 45 Mins");
    EXPECT_EQ(EntriesOf(kDisplayPage, kMonitorOff).front(), L"After 1 Hr");
    program.Choose(kDisplayPage, kMonitorOff, L"After 7 Hrs");
    program.Choose(kDisplayPage, kLock, L"After 1 Min");
    program.Click(kDisplayPage, kScreenSaverOff);
    program.Choose(kPowerOffPage, kHardDisk, L"After 3 Mins");
    program.Choose(kPowerOffPage, kSchemeLogOff, L"After 13 Hrs");
    program.Choose(kPowerOffPage, kStandbyTime, L"After 14 Hrs");
    program.Choose(kPowerOffPage, kHibernateTime, L"After 15 Hrs");
    program.Click(kPowerOffPage, kShutdownChoice);
    program.Choose(kPowerOffPage, kShutdownTime, L"After 5 Mins");
    for (const int check : {kResumePassword, kScript, kDownloads, kPrinter, kCpuLoadCheck})
        program.Click(kPowerOffPage, check);
    EXPECT_FALSE(IsWindowEnabled(In(kPowerOffPage, kCpuLoad)));
    program.Choose(kPowerOffPage, kCpuLoad, L"99"); // sent although its condition is off
    program.Choose(kStrip, kProcessorSpeed, L"Maximum");
    program.Choose(kStrip, kPolicyList, L"Nightly_Backup");
    const std::wstring settings
        = L"<details>|<PowerScheme>Night_shift</PowerScheme>|<CPUSpeed>Maximum</CPUSpeed>|<Screensaver>Yes</"
          L"Screensaver>"
          L"|<LockScreentime>1</LockScreentime>|<Wbrightvalue>128</Wbrightvalue>|<Ibrightvalue>15</Ibrightvalue>"
          L"|<Dimtime>45</Dimtime>|<Monitortime>420</Monitortime>|<StandBytime>840</StandBytime>"
          L"|<Hibernatetime>900</Hibernatetime>|<HardDiskTimeOut>3</HardDiskTimeOut>|<Logofftime>780</Logofftime>"
          L"|<Shutdowntime>5</Shutdowntime>|<Shutdownflag>Yes</Shutdownflag>|<DownloadsFlag>No</DownloadsFlag>"
          L"|<PPasswordprotected>No</PPasswordprotected>|<Appsensorname>Nightly_Backup</Appsensorname>"
          L"|<RunScriptBeforePowerOff>Yes</RunScriptBeforePowerOff>|<IdleCPULoad>99</IdleCPULoad>"
          L"|<IdleCPULoadFlag>No</IdleCPULoadFlag>|<TrackingPrinterFlag>Yes</TrackingPrinterFlag></details>";

    program.Command(kEditor, kNewScheme);
    program.Type(kEditor, kNewSchemeName, L"Night_shift");
    program.Command(kEditor, IDOK);
    program.ExpectSent(L"CreateScheme", settings);
    EXPECT_FALSE(IsShown(kSaveNewScheme) || IsShown(kApplyScheme));

    program.Choose(kEditor, kEditorScheme, L"Night_shift");
    program.ExpectSent(L"QueryPowerScheme", L"<scheme>Night_shift</scheme>");
    EXPECT_EQ(ShownIn(kDisplayPage, kMonitorOff) + ShownIn(kDisplayPage, kLock), L"After 7 HrsAfter 1 Min");
    EXPECT_EQ(ShownIn(kPowerOffPage, kSchemeLogOff) + ShownIn(kPowerOffPage, kStandbyTime)
            + ShownIn(kPowerOffPage, kHibernateTime) + ShownIn(kPowerOffPage, kShutdownTime),
        L"After 13 HrsAfter 14 HrsAfter 15 HrsAfter 5 Mins");
    EXPECT_EQ(SendMessageW(In(kDisplayPage, kWorkingBrightness), TBM_GETPOS, 0, 0), 8);
    EXPECT_EQ(SendMessageW(In(kDisplayPage, kIdleBrightness), TBM_GETPOS, 0, 0), 1);
    program.Command(kEditor, kSaveAndApply);
    program.ExpectSent(L"ApplyPowerSettings", settings);
    EXPECT_EQ(SelectedText(WindowOf(WindowId::Main), 5001), L"Night_shift");

    program.Choose(kEditor, kEditorScheme, L"Minimum");
    EXPECT_TRUE(IsShown(kApplyScheme));
    program.Command(kEditor, kApplyScheme);
    program.ExpectSent(L"ApplyPowerScheme", L"<scheme>Minimum</scheme>");
    EXPECT_FALSE(IsShown(kApplyScheme));

    program.boxes.Expect({{L"Delete Scheme",
        L"Are you sure you want to delete the power scheme 'Night_shift'?\n Press 'Yes' to continue..", Answer::Yes}});
    program.Choose(kEditor, kEditorScheme, L"Night_shift");
    program.Command(kEditor, kDeleteScheme);
    program.ExpectSent(L"DeleteScheme", L"<scheme>Night_shift</scheme>");
    EXPECT_EQ(EntriesOf(kEditor, kEditorScheme),
        (Names{L"Balanced", L"MaxPowerSaver", L"Minimum", L"Baseline", L"Office_Hours"}));

    program.boxes.Expect({{L"Delete Policy",
        L"Are you sure you want to delete the policy 'Nightly_Backup'?\n Press 'Yes' to Continue..", Answer::Yes}});
    program.Choose(kStrip, kPolicyList, L"Nightly_Backup");
    program.Command(kStrip, kDeletePolicy);
    program.ExpectSent(L"DeletePolicy", L"<policy>Nightly_Backup</policy>");
    EXPECT_EQ(EntriesOf(kStrip, kPolicyList), (Names{L"(None)", L"Presentations"}));
    EXPECT_EQ(ShownIn(kStrip, kPolicyList), L"(None)");
}

TEST(SchemeWindow, AnswersDecideWhatIsShownAndReadAgain)
{
    PowerProgram program;
    const ExpectedBox notSaved = {L"Save failed", L"Failed to save settings."};
    program.ExpectAnswers(
        {L"ApplyPowerSettings", nullptr, notSaved, kAfterSaving, {}, {L"Permission denied", L"Access denied."}},
        [&] { program.Command(kEditor, kSaveAndApply); });
    program.ExpectAnswers(
        {L"ApplyPowerScheme", nullptr, {L"Set scheme failed ", L"Unable to Set."}, kCurrent, kCurrent}, // may be active
        [&] { program.Command(kEditor, kApplyScheme); });
    program.ExpectAnswers({L"CreateScheme", nullptr, notSaved, kReload}, [&] {
        program.Command(kEditor, kNewScheme);
        program.Type(kEditor, kNewSchemeName, L"Mine");
        program.Command(kEditor, kSaveNewScheme);
    });
    program.ExpectAnswers(
        {L"DeleteScheme", L"Delete Scheme", {L"Delete failed ", L"Could not delete the scheme."}, kReload}, [&] {
            SelectExact(WindowOf(kEditor), kEditorScheme, L"Minimum");
            program.Command(kEditor, kDeleteScheme);
        });
    program.Choose(kStrip, kPolicyList, L"Presentations");
    program.ExpectAnswers(
        {L"DeletePolicy", L"Delete Policy", {L"Delete failed ", L"Could not delete the policy."}, {L"GetPolicies"}},
        [&] { program.Command(kStrip, kDeletePolicy); });
}

TEST(SchemeWindow, WhatIsActiveIsNotDeleted)
{
    PowerProgram program;
    program.boxes.Expect(
        {{L"Cannot delete current active scheme ",
             L"Scheme 'Balanced' cannot be deleted as it is the current active scheme!\n\nHint: To delete "},
            {L"Delete Scheme", L"'Minimum'", Answer::No}, {L"Delete Policy", L"'Presentations'", Answer::No},
            {L"Policy In Use.",
                L"'Presentations' Policy cannot be deleted.\nIt is associated with the active power scheme."}});
    program.Command(kEditor, kDeleteScheme);
    program.Choose(kEditor, kEditorScheme, L"Minimum");
    program.Command(kEditor, kDeleteScheme);
    program.Choose(kStrip, kPolicyList, L"Presentations");
    program.Command(kStrip, kDeletePolicy);
    program.Choose(kEditor, kEditorScheme, L"Office_Hours");
    program.Command(kEditor, kApplyScheme);
    program.Command(kStrip, kDeletePolicy);
    for (const std::wstring& operation : program.TakeOperations())
        EXPECT_TRUE(!operation.starts_with(L"Delete")) << operation;
}

TEST(SchemeWindow, AMachineThatCannotSleepShowsDisabled)
{
    PowerProgram program(*simulator::FindScenario(L"limited"));
    EXPECT_EQ(EntriesOf(kPowerOffPage, kStandbyTime), Names{L"Disabled"});
    EXPECT_EQ(EntriesOf(kPowerOffPage, kHibernateTime), Names{L"Disabled"});
    program.Command(kEditor, kSaveAndApply);
    EXPECT_EQ(Held(program, L"Balanced", L"StandBytime") + Held(program, L"Balanced", L"Hibernatetime"), L"00");
}

TEST(SchemeWindow, WhatTheUserDidNotChangeGoesBackAsRead)
{
    PowerProgram program;
    std::vector<Element> fields = program.Machine().schemes[1].children;
    for (std::size_t i = 1; i < fields.size(); ++i)
        fields[i].text = L"07 " + std::to_wstring(i); // no control can show it
    fields[1].text = std::wstring(300, L'x');
    fields[6].text = L"60"; // the list that follows the dim time does not hold 10 minutes
    fields[7].text = L"10";
    program.Machine().schemes[1].children = fields;
    program.Agent().ScriptReply(L"ApplyPowerSettings", L"<vltp><response><status>Success</status></response></vltp>");
    program.Choose(kEditor, kEditorScheme, L"MaxPowerSaver");
    EXPECT_EQ(ShownIn(kPowerOffPage, kHardDisk), L"After 10 Mins");
    EXPECT_EQ(ShownIn(kDisplayPage, kMonitorOff), L"After 2 Hrs");
    program.Choose(kPowerOffPage, kHardDisk, L"After 5 Mins");
    program.Command(kEditor, kSaveAndApply);
    fields[10].text = L"5";
    std::wstring expected;
    for (const Element& field : fields)
        expected += L"|<" + field.name + L">" + std::wstring(field.text) + L"</" + field.name + L">";
    program.ExpectSent(L"ApplyPowerSettings", L"<details>" + expected + L"</details>");
}

TEST(SchemeWindow, NamesAreCheckedTypedAndPasted)
{
    PowerProgram program;
    program.Command(kEditor, kNewScheme);
    constexpr const wchar_t* kTyping = L"Invalid Scheme Name ";
    ExpectRefused(program, kEditor, kNewSchemeName, kSaveNewScheme, kTyping,
        {{L"a ", kTyping, L"Please follow the rules listed below while entering a 'Scheme Name':\n\n (1) Only"},
            {L"", L"Blank Input "}, {L"bALANCED", L"Scheme name already present "}});
    EXPECT_EQ(program.LastRequest(L"CreateScheme"), L"");
    const std::wstring longName = L"abcdefghijklmnopqrstuvwxyz0123456789";
    program.TypeUnits(kEditor, kNewSchemeName, longName);
    EXPECT_EQ(TextOf(WindowOf(kEditor), kNewSchemeName), longName.substr(0, 32));
    SetText(WindowOf(kEditor), kNewSchemeName, longName);
    program.Command(kEditor, kSaveNewScheme);
    EXPECT_EQ(Held(program, L"abcdefghijklmnopqrstuvwxyz012345", L"Dimtime"), L"5");
}

TEST(SchemeWindow, AnUnreadableSchemeLeavesTheWindowAsItWas)
{
    PowerProgram program;
    for (const wchar_t* answer : {kMalformed, kNoStatus, L"Failure"}) {
        program.AnswerWith(L"QueryPowerScheme", answer);
        program.Choose(kEditor, kEditorScheme, L"Baseline");
        EXPECT_EQ(ShownIn(kEditor, kEditorScheme), L"Balanced");
        EXPECT_EQ(ShownIn(kDisplayPage, kDim), L"After 5 Mins");
        EXPECT_FALSE(IsShown(kApplyScheme));
    }
    // Current settings that cannot be read leave what is on screen, which is not sent again before a readable answer.
    for (const wchar_t* answer : {kMalformed, L"Failure"}) {
        program.AnswerWith(L"GetCurrentpowersettings", answer);
        program.Choose(kDisplayPage, kDim, L"After 20 Mins");
        program.Command(kEditor, kSaveAndApply);
        EXPECT_EQ(ShownIn(kDisplayPage, kDim), L"After 20 Mins");
        EXPECT_FALSE(IsWindowEnabled(In(kEditor, kSaveAndApply)) || IsWindowEnabled(In(kEditor, kApplyScheme))
            || IsWindowEnabled(In(kEditor, kSaveNewScheme)));
        program.AnswerWith(L"GetPolicies", kNoStatus); // readable, without a name
        connection.connected = false;
        program.Command(kEditor, kEditorRefresh);
        EXPECT_TRUE(IsWindowEnabled(In(kEditor, kSaveAndApply)) && IsWindowEnabled(In(kEditor, kSaveNewScheme)));
        EXPECT_EQ(EntriesOf(kStrip, kPolicyList), Names{L"(None)"});
    }
}

TEST(SchemeWindow, ModesAndTheWaysOut)
{
    PowerProgram program;
    SetForegroundWindow(WindowOf(kEditor));
    SetFocus(In(kEditor, kEditorScheme));
    Press(VK_TAB, VK_CONTROL);
    EXPECT_EQ(SelectedTab(In(kEditor, kSchemeTab)), 1);
    EXPECT_TRUE(program.IsOpen(kPowerOffPage) && !program.IsOpen(kDisplayPage));
    ClickTab(In(kEditor, kSchemeTab), 0);
    EXPECT_TRUE(program.IsOpen(kDisplayPage) && !program.IsOpen(kPowerOffPage));
    program.Choose(kDisplayPage, kDim, L"After 20 Mins");
    program.Command(kEditor, kNewScheme);
    EXPECT_TRUE(IsShown(kNewSchemeName) && IsShown(kSaveNewScheme));
    EXPECT_FALSE(IsWindowEnabled(In(kEditor, kSaveAndApply)) || IsWindowEnabled(In(kEditor, kDeleteScheme)));
    EXPECT_EQ(ShownIn(kDisplayPage, kDim), L"After 20 Mins");
    program.Command(kEditor, kEditSettings);
    EXPECT_FALSE(IsShown(kNewSchemeName) || IsShown(kSaveNewScheme));
    EXPECT_TRUE(IsWindowEnabled(In(kEditor, kSaveAndApply)));

    program.Agent().ClearRequests();
    Press(VK_RETURN);
    EXPECT_FALSE(program.IsOpen(kEditor));
    EXPECT_EQ(WaitForSingleObject(SchemeWindowClosed(), 0), WAIT_OBJECT_0);
    EXPECT_EQ(program.TakeOperations(), Names{});
    program.Command(WindowId::Main, 9002);
    EXPECT_EQ(program.TakeOperations(), kReload);
    EXPECT_EQ(ShownIn(kDisplayPage, kDim), L"After 5 Mins");
    EXPECT_EQ(WaitForSingleObject(SchemeWindowClosed(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
    Press(VK_ESCAPE);
    EXPECT_FALSE(program.IsOpen(kEditor));
    EXPECT_EQ(program.TakeOperations(), kAfterSaving);
}

TEST(SchemeWindow, RefreshesInTheBackground)
{
    PowerProgram program;
    const auto isReady = [] { return IsItemEnabled(GetMenu(WindowOf(kEditor)), kEditorRefresh); };
    const auto refresh = [&] {
        program.Command(kEditor, kNewScheme);
        SendMessageW(WindowOf(kEditor), WM_COMMAND, kEditorRefresh, 0);
        EXPECT_FALSE(
            isReady() || IsWindowEnabled(In(kDisplayPage, kDim)) || IsWindowEnabled(In(kEditor, kSaveAndApply)));
        for (int i = 0; i < 200 && !isReady(); ++i) {
            Sleep(10);
            Pump();
        }
        Pump();
        EXPECT_TRUE(isReady() && IsWindowEnabled(In(kDisplayPage, kDim)));
        EXPECT_FALSE(IsShown(kEditorBusy) || IsShown(kSaveNewScheme));
    };
    ASSERT_TRUE(StartWorkers());
    program.Choose(kDisplayPage, kDim, L"After 20 Mins");
    refresh();
    EXPECT_EQ(program.TakeOperations(), kReload);
    EXPECT_EQ(ShownIn(kDisplayPage, kDim), L"After 5 Mins");
    program.boxes.Expect({{L"Connection Issue", L"is not responding"}});
    program.Agent().SetFault(L"GetPolicies", {FaultKind::CloseAtOnce, {}});
    program.Choose(kDisplayPage, kDim, L"After 20 Mins");
    refresh();
    EXPECT_EQ(ShownIn(kDisplayPage, kDim), L"After 20 Mins");
    EXPECT_FALSE(IsWindowEnabled(In(kEditor, kSaveAndApply)));
    StopWorkers(StopOrder::MainWindowDestroyed);
}

} // namespace
} // namespace voltaro
