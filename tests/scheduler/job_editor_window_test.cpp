#include "scheduler/job_editor_window.h"

#include "scheduler/scheduler_program.h"

namespace voltaro {

struct JobEditorWindowTest : testing::Test, SchedulerProgram {
    const HWND m_tabs = FindWindowExW(WindowOf(kEditor), nullptr, WC_TABCONTROLW, nullptr);
};

TEST_F(JobEditorWindowTest, RefusesWhatIsWrong)
{
    Do({{L"Add Job.."}});
    ExpectRefused({L"Job with name already in the list ", L"Job with name ' nightly BACKUP ' already exists"},
        {{L"Job Name :", L"nightly BACKUP"}, {L"Save"}});
    ClickTab(m_tabs, 1);
    AddTask(L"C:\\a.exe");
    ExpectRefused({L"Application exe already in the list ", L"Application ' C:\\A.EXE ' already exists"},
        {{L".exe/.bat File Path :", L"C:\\A.EXE"}, {L"Add Task"}});
    boxes.Expect(
        {{L"Invalid Schedule", L"day"}, {L"Invalid Schedule", L"month"}, {L"Invalid Schedule", L"come after"}});
    Do({{L"Job Name :", L"two words"}, {L"Weekly"}, {L"Save"}, {L"Monthly"}, {L"Save"}, {L"June"},
        {L"Job Start On :", L"20"}, {L"Job End On :", L"19"}, {L"Save"}, {L"Job End On :", L"20"}, {L"Save"}});
    EXPECT_EQ(Column(Jobs(), 0), L"Morning wake up,Nightly backup,Quarter closing,two words");
}

TEST_F(JobEditorWindowTest, EachKindHasItsControls)
{
    constexpr const wchar_t* kFirst[] = {L"Runs every day. A second click on the chosen type above comes back to this.",
        L"Date :", L"Sunday", L"January"};
    // clang-format off
    constexpr struct { const wchar_t *click, *with; std::size_t shown; const wchar_t *cell, *stored; } kSteps[] = {
        {L"On Date", L"Enable Job*", 1, L"On Date(2031-12-24)", L"StartDate=2031-12-24 EndDate=2031-12-24 Frequency_2[JobStart=AST]"},
        {L"Weekly", L"Saturday", 2, L"Weekly", L"StartDate=NULL EndDate=NULL Frequency_2[JobStart=Weekly Sun=No Mon=No Tue=No Wed=No Thu=No Fri=No Sat=Yes]"},
        {L"Monthly", L"May", 3, L"Monthly", L"StartDate=01 EndDate=31 Frequency_2[JobStart=Monthly"},
        {L"Monthly", L"Enable Job*", 0, L"*******", L"StartDate=NULL EndDate=NULL Frequency_2[JobStart=AST]"}};
    // clang-format on
    for (const auto& step : kSteps) {
        Edit(1);
        Do({{step.click}, {L"Date :", L"2031-12-24"}, {step.with}});
        for (const wchar_t* radio :
            {L"On Date", L"Weekly", L"Monthly", L"Job Name :"}) // the focus alone chooses nothing
            SetFocus(Find(radio));
        for (std::size_t i = 0; i < std::size(kFirst); ++i) {
            const HWND control = Find(kFirst[i]);
            EXPECT_EQ(IsShown(i == 0 ? GetWindow(control, GW_HWNDPREV) : control), i == step.shown);
        }
        Do({{L"Update"}});
        EXPECT_EQ(CellOf(Jobs(), 1, 3), step.cell);
        Do({{L"Save"}});
        EXPECT_NE(Line(Machine().jobs.children[1]).find(step.stored), std::wstring::npos) << step.stored;
    }
}

TEST_F(JobEditorWindowTest, TasksUpToSeven)
{
    boxes.Expect({{L"Max Task limit reached.", L"max. limit of 7 tasks per Job is reached."}});
    Edit(1);
    EXPECT_FALSE(IsOn(L"Update Task") || IsOn(L"Delete"));
    for (const wchar_t* path : {L"3.exe", L"4.exe", L"5.EXE", L"6.BAT", L"7.exe", L"8.exe"})
        AddTask(path);
    EXPECT_TRUE(!IsOn(L"Add Task") && RowCount(Tasks()) == 7);
    Do({{L".exe/.bat File Path :", L"9.exe"}});
    SetFocus(Find(L".exe/.bat File Path :"));
    boxes.Expect({{L"Entered Exe details are not saved", {}, Answer::No},
        {L"Entered Exe details are not saved", L"Are you sure you want to cancel the changes?", Answer::Yes}});
    Press(VK_RETURN); // no room: the default button
    EXPECT_TRUE(IsOpen(kEditor));
    Do({{L"Update"}});
    Edit(1);
    DoubleClick(Tasks(), 1);
    SelectRow(Tasks(), 0);
    Do({{L"Delete"}}); // above the loaded one
    EXPECT_TRUE(IsOn(L"Add Task") && Row(Tasks(), 0) == L"C:\\Tools\\cleanup.bat\t23:30:00\t1 Hour");
    Do({{L".exe/.bat File Path :", L"D:\\c.bat"}, {L"Repeat Interval :"}, {L"Update Task"}});
    EXPECT_EQ(Row(Tasks(), 0), L"D:\\c.bat\t23:30:00\t");
    Do({{L"Update"}});
    EXPECT_EQ(CellOf(Jobs(), 1, 4), L"6");
}

TEST_F(JobEditorWindowTest, AsksBeforeInputIsDropped)
{
    constexpr const wchar_t* kSure = L"Are you sure you want to cancel the changes?";
    const auto close = [&](std::initializer_list<ExpectedBox> expected, bool open) {
        boxes.Expect(expected);
        SendMessageW(WindowOf(kEditor), WM_CLOSE, 0, 0);
        boxes.ExpectAllSeen();
        EXPECT_EQ(IsOpen(kEditor), open);
    };
    Edit(2);
    for (const wchar_t* label :
        {L"Power scheme", L"Kind of power off", L"Upon Idleness Of :", L"Enable Application Sensor Policy "})
        EXPECT_EQ(
            IsOn(label), Button_GetCheck(Find(*label == L'P' ? L"Select Power Scheme" : L"Enable Power Off **")) != 0)
            << label;
    close({}, false);
    Edit(2);
    Do({{L"Enable Job*"}});
    close({{L"Changes not saved", kSure, Answer::No}}, true);
    Do({{L"Enable Job*"}, {L"Command Line Parameters :", L"-x"}});
    close({{L"Entered Exe details are not saved", kSure, Answer::No}}, true);
    Do({{L"Enable Job*"}});
    close({{L"Changes not saved", {}, Answer::Yes}, {L"Entered Exe details are not saved", {}, Answer::Yes}}, false);
    Edit(2);
    EXPECT_EQ(Shown(L"Command Line Parameters :"), L"");
    Do({{L"Update"}});
    EXPECT_FALSE(IsOn(L"Save")); // nothing changed
    Add(L"Bare");
    boxes.Expect({{L"No Task Defined",
        L"This Job does not have any task defined.\nDo you want configure tasks for this job now?", Answer::Yes}});
    Do({{L"Save"}});
    EXPECT_EQ(GetFocus(), Find(L".exe/.bat File Path :"));
    close({{L"Changes not saved", {}, Answer::Yes}}, false);
}

TEST_F(JobEditorWindowTest, KeepsWhatNoChoiceHas)
{
    Do({{L"Cancel"}});
    const std::wstring longText(300, L'x');
    AnswerWith(L"GetCurrentSchedulerSettings",
        Replaced(
            L"<vltp><response><details><Job_1><Name>Odd</Name><Description>*</Description><EnabledFlag>on</EnabledFlag>"
            L"<Schedule_1><StartTime>1:02:3</StartTime><StartDate>5</StartDate><EndDate>31</EndDate><Frequency_1>"
            L"<JobStart>Monthly</JobStart><Jan>Yes</Jan></Frequency_1></Schedule_1><Action_1><ApplyScheme>Gone"
            L"</ApplyScheme><PowerOff_1><type>Restart</type><idlefor>07</idlefor><AppSensor>Yes</AppSensor>"
            L"</PowerOff_1><RunTask_1><APP_11><Path>*.exe</Path><Parameters/><RDelay>045</RDelay><REndTime>late"
            L"</REndTime></APP_11></RunTask_1></Action_1></Job_1></details></response></vltp>",
            L"*", longText));
    Open();
    EXPECT_EQ(Row(Jobs(), 0), L"Odd\t" + longText + L"\t1:02:3\tMonthly\t1\tRestart\t10 Mins");
    Edit(0);
    EXPECT_EQ(Shown(L"Power scheme") + Shown(L"Job Start On :"), L"Gone5");
    Agent().ScriptReply(L"ApplySchedulerSettings", L"<vltp><response><status>Success</status></response></vltp>");
    Do({{L"Update"}});
    EXPECT_FALSE(IsOn(L"Save")); // nothing changed
    Edit(0);
    DoubleClick(Tasks(), 0);
    Do({{L"Command Line Parameters :", L"-x"}, {L"Update Task"}, {L"Wake Up from Standby"}, {L"Update"}, {L"Save"}});
    ExpectSent(L"ApplySchedulerSettings",
        L"details[Job_1[Name=Odd Description=" + longText
            + L" EnabledFlag=on Schedule_1[StartTime=1:02:3 StartDate=5 "
              L"EndDate=31 Frequency_1[JobStart=Monthly Jan=Yes Feb=No Mar=No Apr=No May=No Jun=No Jul=No Aug=No "
              L"Sep=No Oct=No Nov=No Dec=No]] Action_1[PowerOn=Yes ApplyScheme=Gone PowerOff_1[type=Restart idlefor=07 "
              L"AppSensor=Yes] RunTask_1[APP_11[Path="
            + longText + L".exe Parameters=-x RDelay=045 REndTime=late]]]]]");
}

TEST_F(JobEditorWindowTest, Keyboard)
{
    Edit(1);
    EXPECT_EQ(GetFocus(), Find(L"Job Name :"));
    Press(VK_TAB, VK_CONTROL);
    platformCalls.chooseFile
        = [](HWND, const FileDialog&) { return std::optional<std::wstring>(L"C:\\from dialog.exe"); };
    Do({{L"..."}});
    Press(VK_RETURN); // in filled fields: adds the task
    EXPECT_EQ(CellOf(Tasks(), 2, 0), L"C:\\from dialog.exe");
    SetFocus(Tasks());
    SelectRow(Tasks(), 2);
    Press(VK_DELETE);
    EXPECT_EQ(RowCount(Tasks()), 2);
    EXPECT_EQ(SelectedRow(Tasks()), 1) << "the last one was deleted";
    Press(VK_RETURN); // on a task: loads it
    EXPECT_EQ(Shown(L".exe/.bat File Path :"), L"C:\\Tools\\cleanup.bat");
    Press(VK_RETURN); // in its fields: stores it
    EXPECT_TRUE(Shown(L".exe/.bat File Path :").empty() && IsOpen(kEditor) && RowCount(Tasks()) == 2);
    DoubleClick(Tasks(), 1);
    Do({{L"Delete"}});
    EXPECT_TRUE(Shown(L".exe/.bat File Path :").empty() && !IsOn(L"Update Task"));
}

} // namespace voltaro
