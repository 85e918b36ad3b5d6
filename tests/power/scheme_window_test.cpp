#include "console/help.h"
#include "power/power_program.h"
#include "shell/workers.h"
#include "ui/menus.h"
#include "ui/tabs.h"
#include "ui/tooltip.h"

#include <cwchar>

namespace voltaro {
namespace {

constexpr WindowId kEditor = WindowId::Scheme;
constexpr WindowId kDisplayPage = WindowId::SchemeDisplay;
constexpr WindowId kPowerOffPage = WindowId::SchemePowerOff;
constexpr WindowId kStrip = WindowId::SchemeProcessor;
const Names kReload = {L"GetPowerSchemes", L"GetPolicies", L"GetCurrentpowersettings"};
const Names kAfterSaving = {L"GetPolicies", L"GetCurrentpowersettings"};
const Names kCurrent = {L"GetCurrentpowersettings"};

HWND In(WindowId window, int id)
{
    return ControlOf(WindowOf(window), id);
}

bool IsShown(int id)
{
    return (GetWindowLongW(In(kEditor, id), GWL_STYLE) & WS_VISIBLE) != 0;
}

std::wstring ShownIn(WindowId window, int id)
{
    return SelectedText(WindowOf(window), id);
}

Names EntriesOf(WindowId window, int id)
{
    Names entries;
    const int selected = SelectedIndex(WindowOf(window), id);
    for (int i = 0; i < SendMessageW(In(window, id), CB_GETCOUNT, 0, 0); ++i) {
        SelectIndex(WindowOf(window), id, i);
        entries.push_back(ShownIn(window, id));
    }
    SelectIndex(WindowOf(window), id, selected);
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

void Click(WindowId window, int id)
{
    SendMessageW(In(window, id), BM_CLICK, 0, 0);
}

// A value of the scheme as the agent holds it.
std::wstring Held(PowerProgram& program, const wchar_t* scheme, const wchar_t* element)
{
    return program.Agent().WithMachine([&](simulator::Machine& machine) -> std::wstring {
        for (const Element& details : machine.State().schemes) {
            if (ChildText(details, 0) == scheme)
                return FindChild(details, element)->text;
        }
        return L"no such scheme";
    });
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
    Click(kDisplayPage, kScreenSaverOff);
    program.Choose(kPowerOffPage, kHardDisk, L"After 3 Mins");
    program.Choose(kPowerOffPage, kSchemeLogOff, L"After 13 Hrs");
    program.Choose(kPowerOffPage, kStandbyTime, L"After 14 Hrs");
    program.Choose(kPowerOffPage, kHibernateTime, L"After 15 Hrs");
    Click(kPowerOffPage, kShutdownChoice);
    program.Choose(kPowerOffPage, kShutdownTime, L"After 5 Mins");
    for (const int check : {kResumePassword, kScript, kDownloads, kPrinter, kCpuLoadCheck})
        Click(kPowerOffPage, check);
    EXPECT_FALSE(IsWindowEnabled(In(kPowerOffPage, kCpuLoad)));
    program.Choose(kPowerOffPage, kCpuLoad, L"99"); // sent although its condition is off
    program.Choose(kStrip, kProcessorSpeed, L"Maximum");
    program.Choose(kStrip, kPolicyList, L"Nightly_Backup");
    const std::wstring settings
        = L"<CPUSpeed>Maximum</CPUSpeed>\n\t\t\t<Screensaver>Yes</Screensaver>\n\t\t\t<LockScreentime>1</"
          L"LockScreentime>\n\t\t\t<Wbrightvalue>128</Wbrightvalue>\n\t\t\t<Ibrightvalue>15</Ibrightvalue>\n\t\t\t"
          L"<Dimtime>45</Dimtime>\n\t\t\t<Monitortime>420</Monitortime>\n\t\t\t<StandBytime>840</StandBytime>\n\t\t\t"
          L"<Hibernatetime>900</Hibernatetime>\n\t\t\t<HardDiskTimeOut>3</HardDiskTimeOut>\n\t\t\t<Logofftime>780</"
          L"Logofftime>\n\t\t\t<Shutdowntime>5</Shutdowntime>\n\t\t\t<Shutdownflag>Yes</Shutdownflag>\n\t\t\t"
          L"<DownloadsFlag>No</DownloadsFlag>\n\t\t\t<PPasswordprotected>No</PPasswordprotected>\n\t\t\t"
          L"<Appsensorname>Nightly_Backup</Appsensorname>\n\t\t\t<RunScriptBeforePowerOff>Yes</"
          L"RunScriptBeforePowerOff>\n\t\t\t<IdleCPULoad>99</IdleCPULoad>\n\t\t\t<IdleCPULoadFlag>No</"
          L"IdleCPULoadFlag>\n\t\t\t<TrackingPrinterFlag>Yes</TrackingPrinterFlag></details>";

    program.Command(kEditor, kNewScheme);
    program.Type(kEditor, kNewSchemeName, L"Night_shift");
    program.Command(kEditor, IDOK);
    EXPECT_EQ(program.FieldsOf(L"CreateScheme"),
        L"\t\t<details>\n\t\t\t<PowerScheme>Night_shift</PowerScheme>\n\t\t\t" + settings);
    EXPECT_EQ(Held(program, L"Night_shift", L"Monitortime"), L"420");
    EXPECT_FALSE(IsShown(kSaveNewScheme) || IsShown(kApplyScheme));

    program.Choose(kEditor, kEditorScheme, L"Night_shift");
    EXPECT_EQ(program.FieldsOf(L"QueryPowerScheme"), L"\t\t<scheme>Night_shift</scheme>");
    program.Command(kEditor, kSaveAndApply);
    EXPECT_EQ(program.FieldsOf(L"ApplyPowerSettings"),
        L"\t\t<details>\n\t\t\t<PowerScheme>Night_shift</PowerScheme>\n\t\t\t" + settings);
    EXPECT_EQ(SelectedText(WindowOf(WindowId::Main), 5001), L"Night_shift");

    program.Choose(kEditor, kEditorScheme, L"Minimum");
    EXPECT_TRUE(IsShown(kApplyScheme));
    program.Agent().ClearRequests();
    program.Command(kEditor, kApplyScheme);
    EXPECT_EQ(program.FieldsOf(L"ApplyPowerScheme"), L"\t\t<scheme>Minimum</scheme>");
    EXPECT_FALSE(IsShown(kApplyScheme));

    program.boxes.Expect({{L"Delete Scheme",
        L"Are you sure you want to delete the power scheme 'Night_shift'?\n Press 'Yes' to continue..", Answer::Yes}});
    program.Choose(kEditor, kEditorScheme, L"Night_shift");
    program.Command(kEditor, kDeleteScheme);
    EXPECT_EQ(program.FieldsOf(L"DeleteScheme"), L"\t\t<scheme>Night_shift</scheme>");
    EXPECT_EQ(EntriesOf(kEditor, kEditorScheme),
        (Names{L"Balanced", L"MaxPowerSaver", L"Minimum", L"Baseline", L"Office_Hours"}));

    program.boxes.Expect({{L"Delete Policy",
        L"Are you sure you want to delete the policy 'Nightly_Backup'?\n Press 'Yes' to Continue..", Answer::Yes}});
    program.Choose(kStrip, kPolicyList, L"Nightly_Backup");
    program.Command(kStrip, kDeletePolicy);
    EXPECT_EQ(program.FieldsOf(L"DeletePolicy"), L"\t\t<policy>Nightly_Backup</policy>");
    EXPECT_EQ(EntriesOf(kStrip, kPolicyList), (Names{L"(None)", L"Presentations"}));
    EXPECT_EQ(ShownIn(kStrip, kPolicyList), L"(None)");
}

TEST(SchemeWindow, AnswersDecideWhatIsShownAndReadAgain)
{
    PowerProgram program;
    constexpr const wchar_t* kNotSaved = L"Failed to save settings.";
    ExpectAnswers(program, L"ApplyPowerSettings", nullptr,
        {{L"Failure", L"Save failed", kNotSaved, {}},
            {L"Permission denied", L"Permission denied", L"Access denied.", {}}, {L"no status", L"", L"", {}},
            {L"Success", L"", L"", kAfterSaving}, {L"success", L"", L"", kAfterSaving}},
        [&] { program.Command(kEditor, kSaveAndApply); });
    ExpectAnswers(program, L"ApplyPowerScheme", nullptr,
        {{L"Failure", L"Set scheme failed ", L"Unable to Set.", {}}, {L"Permission denied", L"", L"", kCurrent},
            {L"no status", L"", L"", kCurrent}, {L"Success", L"", L"", kCurrent}, {L"success", L"", L"", kCurrent}},
        [&] { program.Command(kEditor, kApplyScheme); });
    ExpectAnswers(program, L"CreateScheme", nullptr,
        {{L"Failure", L"Save failed", kNotSaved, {}}, {L"Permission denied", L"", L"", {}},
            {L"no status", L"", L"", {}}, {L"Success", L"", L"", kReload}, {L"success", L"", L"", kReload}},
        [&] {
            program.Command(kEditor, kNewScheme);
            program.Type(kEditor, kNewSchemeName, L"Mine");
            program.Command(kEditor, kSaveNewScheme);
        });
    program.Choose(kEditor, kEditorScheme, L"Minimum");
    ExpectAnswers(program, L"DeleteScheme", L"Delete Scheme",
        {{L"Failure", L"Delete failed ", L"Could not delete the scheme.", {}}, {L"no status", L"", L"", {}},
            {L"Success", L"", L"", kReload}, {L"success", L"", L"", kReload}},
        [&] {
            SelectExact(WindowOf(kEditor), kEditorScheme, L"Minimum");
            program.Command(kEditor, kDeleteScheme);
        });
    program.Choose(kStrip, kPolicyList, L"Presentations");
    ExpectAnswers(program, L"DeletePolicy", L"Delete Policy",
        {{L"Failure", L"Delete failed ", L"Could not delete the policy.", {}}, {L"no status", L"", L"", {}},
            {L"Success", L"", L"", {L"GetPolicies"}}, {L"success", L"", L"", {L"GetPolicies"}}},
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

// The minutes of a choice's text: "After 2 Hrs" is 120.
std::wstring MinutesOf(const std::wstring& text)
{
    int count = 0;
    if (std::swscanf(text.c_str(), L"After %d", &count) != 1)
        return L"0";
    return std::to_wstring(text.find(L" Hr") != std::wstring::npos ? count * 60 : count);
}

TEST(SchemeWindow, EveryChoiceComesBackFromTheAgent)
{
    struct Row {
        WindowId page;
        int control;
        int count; // of its whole list
        const wchar_t* element;
    };
    constexpr Row kRows[] = {
        {kDisplayPage, kDim, 16, L"Dimtime"},
        {kDisplayPage, kMonitorOff, 16, L"Monitortime"},
        {kDisplayPage, kLock, 10, L"LockScreentime"},
        {kPowerOffPage, kHardDisk, 14, L"HardDiskTimeOut"},
        {kPowerOffPage, kSchemeLogOff, 22, L"Logofftime"},
        {kPowerOffPage, kStandbyTime, 22, L"StandBytime"},
        {kPowerOffPage, kHibernateTime, 22, L"Hibernatetime"},
        {kPowerOffPage, kShutdownTime, 22, L"Shutdowntime"},
    };
    constexpr const wchar_t* kSteps[] = {L"0", L"15", L"30", L"45", L"60", L"75", L"90", L"105", L"128"};
    PowerProgram program;
    for (int round = 0; round < 100; ++round) {
        SCOPED_TRACE(round);
        std::vector<std::wstring> texts;
        for (const Row& row : kRows) {
            const bool leads = row.control == kDim || row.control == kStandbyTime;
            const auto count = static_cast<int>(SendMessageW(In(row.page, row.control), CB_GETCOUNT, 0, 0));
            EXPECT_TRUE(count == row.count || round < 22 || row.control == kLock) << row.element;
            // Later the first stages stay at "Never", so that the following ones have their whole lists.
            SelectIndex(WindowOf(row.page), row.control, leads && round >= 22 ? row.count - 1 : round % count);
            program.Command(row.page, row.control, CBN_SELCHANGE);
            texts.push_back(ShownIn(row.page, row.control));
        }
        const std::wstring load = std::to_wstring(round);
        program.Choose(kPowerOffPage, kCpuLoad, load);
        Slide(kWorkingBrightness, round % 9);
        Slide(kIdleBrightness, 8 - round % 9);
        const Names speeds = {L"Adaptive", L"Minimum", L"Maximum"};
        program.Choose(kStrip, kProcessorSpeed, speeds[static_cast<std::size_t>(round % 3)]);
        program.Command(kEditor, kSaveAndApply);
        for (std::size_t i = 0; i < std::size(kRows); ++i) {
            EXPECT_EQ(Held(program, L"Balanced", kRows[i].element), MinutesOf(texts[i])) << kRows[i].element;
            EXPECT_EQ(ShownIn(kRows[i].page, kRows[i].control), texts[i]);
        }
        EXPECT_EQ(Held(program, L"Balanced", L"IdleCPULoad"), load);
        EXPECT_EQ(ShownIn(kPowerOffPage, kCpuLoad), load);
        EXPECT_EQ(Held(program, L"Balanced", L"Wbrightvalue"), kSteps[round % 9]);
        EXPECT_EQ(Held(program, L"Balanced", L"Ibrightvalue"), kSteps[8 - round % 9]);
        EXPECT_EQ(SendMessageW(In(kDisplayPage, kWorkingBrightness), TBM_GETPOS, 0, 0), round % 9);
        EXPECT_EQ(Held(program, L"Balanced", L"CPUSpeed"), speeds[static_cast<std::size_t>(round % 3)]);
    }
}

TEST(SchemeWindow, LaterStagesFollowEarlierOnes)
{
    PowerProgram program;
    const Names monitor = {L"After 3 Mins", L"After 5 Mins", L"After 10 Mins", L"After 15 Mins", L"After 20 Mins",
        L"After 25 Mins", L"After 30 Mins", L"After 45 Mins", L"After 1 Hr", L"After 2 Hrs", L"After 3 Hrs",
        L"After 4 Hrs", L"After 5 Hrs", L"After 6 Hrs", L"After 7 Hrs", L"Never"};
    Names hibernate(monitor.begin() + 2, monitor.end() - 1);
    for (int hours = 8; hours <= 15; ++hours)
        hibernate.push_back(L"After " + std::to_wstring(hours) + L" Hrs");
    hibernate.push_back(L"Never");
    const auto expectFollowing = [&](WindowId page, int first, int second, const Names& all) {
        for (std::size_t k = 0; k < all.size(); ++k) {
            SelectIndex(WindowOf(page), first, static_cast<int>(k));
            program.Command(page, first, CBN_SELCHANGE);
            const Names rest(all.begin() + static_cast<std::ptrdiff_t>(k + 1 < all.size() ? k : 0), all.end());
            EXPECT_EQ(EntriesOf(page, second), rest) << k;
        }
    };
    expectFollowing(kDisplayPage, kDim, kMonitorOff, monitor);
    expectFollowing(kPowerOffPage, kStandbyTime, kHibernateTime, hibernate);
    program.Choose(kDisplayPage, kMonitorOff, L"Never");
    EXPECT_EQ(EntriesOf(kDisplayPage, kLock), Names{L"Never"});
    EXPECT_EQ(ShownIn(kDisplayPage, kLock), L"Never");
    program.Choose(kDisplayPage, kMonitorOff, L"After 1 Hr");
    EXPECT_EQ(EntriesOf(kDisplayPage, kLock).size(), 10U);
    EXPECT_EQ(ShownIn(kDisplayPage, kLock), L"Never");
}

TEST(SchemeWindow, AMachineThatCannotSleepShowsDisabled)
{
    PowerProgram program(*simulator::FindScenario(L"limited"));
    EXPECT_EQ(EntriesOf(kPowerOffPage, kStandbyTime), Names{L"Disabled"});
    EXPECT_EQ(EntriesOf(kPowerOffPage, kHibernateTime), Names{L"Disabled"});
    EXPECT_EQ(ShownIn(kPowerOffPage, kHibernateTime), L"Disabled");
    program.Command(kEditor, kSaveAndApply);
    EXPECT_EQ(Held(program, L"Balanced", L"StandBytime") + Held(program, L"Balanced", L"Hibernatetime"), L"00");
}

TEST(SchemeWindow, WhatNoChoiceHasStaysUntilTheUserChangesIt)
{
    PowerProgram program;
    program.Agent().WithMachine([](simulator::Machine& machine) {
        Element& scheme = machine.State().schemes[1];
        for (Element& field : scheme.children) {
            if (field.name == L"Dimtime" || field.name == L"Logofftime" || field.name == L"HardDiskTimeOut")
                field.text = L"7";
            if (field.name == L"Shutdowntime")
                field.text = L"5000";
        }
    });
    program.Choose(kEditor, kEditorScheme, L"MaxPowerSaver");
    EXPECT_EQ(ShownIn(kDisplayPage, kDim), L"After 10 Mins");
    EXPECT_EQ(ShownIn(kPowerOffPage, kShutdownTime), L"Never");
    program.Choose(kPowerOffPage, kHardDisk, L"After 5 Mins");
    program.Command(kEditor, kSaveAndApply);
    EXPECT_EQ(Held(program, L"MaxPowerSaver", L"Dimtime"), L"7");
    EXPECT_EQ(Held(program, L"MaxPowerSaver", L"Logofftime"), L"7");
    EXPECT_EQ(Held(program, L"MaxPowerSaver", L"HardDiskTimeOut"), L"5");
    EXPECT_EQ(Held(program, L"MaxPowerSaver", L"Shutdowntime"), L"5000");
}

TEST(SchemeWindow, NamesAreCheckedTypedAndPasted)
{
    PowerProgram program;
    program.Command(kEditor, kNewScheme);
    constexpr const wchar_t* kTyping = L"Invalid Scheme Name ";
    ExpectRefused(program, kEditor, kNewSchemeName, kSaveNewScheme, kTyping,
        {{L"a-", kTyping, L"Please follow the rules listed below while entering a 'Scheme Name':\n\n (1) Only"},
            {L"a ", kTyping}, {L" ", kTyping}, {L"\"", kTyping}, {L"", L"Blank Input "},
            {L"___", L"Invalid scheme name "}, {L"_a", L"Invalid scheme name "}, {L"a_", L"Invalid scheme name "},
            {L"bALANCED", L"Scheme name already present "}});
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
    for (const wchar_t* answer : {L"malformed", L"no status", L"Failure"}) {
        program.AnswerWith(L"QueryPowerScheme", answer);
        program.Choose(kEditor, kEditorScheme, L"Baseline");
        EXPECT_EQ(ShownIn(kEditor, kEditorScheme), L"Balanced");
        EXPECT_EQ(ShownIn(kDisplayPage, kDim), L"After 5 Mins");
        EXPECT_FALSE(IsShown(kApplyScheme));
    }
    program.AnswerWith(L"GetCurrentpowersettings", L"malformed");
    program.Choose(kDisplayPage, kDim, L"After 20 Mins");
    program.Command(kEditor, kSaveAndApply);
    EXPECT_EQ(ShownIn(kDisplayPage, kDim), L"After 20 Mins");
}

TEST(SchemeWindow, ModesAndTheWaysOut)
{
    static int helps = 0;
    PowerProgram program;
    const HWND window = WindowOf(kEditor);
    const HelpViewer viewer = std::exchange(helpViewer, [](HWND, const std::wstring& topic) {
        helps += topic.ends_with(L"\\docs\\help\\Voltaro_Help_SE.chm::/advanced.htm") ? 1 : 100;
    });
    program.Command(kEditor, kEditorHelp);
    HELPINFO help{};
    help.cbSize = sizeof help;
    SendMessageW(In(kDisplayPage, kDim), WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
    helpViewer = viewer;
    EXPECT_EQ(helps, 2);

    SetForegroundWindow(window);
    SetFocus(In(kEditor, kEditorScheme));
    Press(VK_TAB, VK_CONTROL);
    EXPECT_EQ(SelectedTab(In(kEditor, kSchemeTab)), 1);
    EXPECT_TRUE(IsWindowVisible(WindowOf(kPowerOffPage)) && !IsWindowVisible(WindowOf(kDisplayPage)));
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
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(WaitForSingleObject(SchemeWindowClosed(), 0), WAIT_OBJECT_0);
    EXPECT_EQ(program.TakeOperations(), Names{});
    program.Command(WindowId::Main, 9002);
    EXPECT_EQ(program.TakeOperations(), kReload);
    EXPECT_EQ(ShownIn(kDisplayPage, kDim), L"After 5 Mins");
    EXPECT_EQ(WaitForSingleObject(SchemeWindowClosed(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
    Press(VK_ESCAPE);
    EXPECT_FALSE(IsWindowVisible(window));
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
    program.Agent().SetFault(L"GetPolicies", {simulator::FaultKind::CloseAtOnce, {}});
    program.Choose(kDisplayPage, kDim, L"After 20 Mins");
    refresh();
    EXPECT_EQ(ShownIn(kDisplayPage, kDim), L"After 20 Mins");
    StopWorkers(StopOrder::MainWindowDestroyed);
}

} // namespace
} // namespace voltaro
