#include "scheduler/job_editor_window.h"

#include "base/text.h"
#include "scheduler/scheduler_program.h"
#include "support/element_line.h"
#include "ui/file_dialog.h"
#include "ui/tabs.h"

namespace voltaro {
namespace {

HWND Tabs()
{
    return FindWindowExW(WindowOf(kEditor), nullptr, WC_TABCONTROLW, nullptr);
}

TEST(JobEditorWindowTest, RefusesWhatIsWrong)
{
    SchedulerProgram program;
    const auto expectRefused = [&](const Step& field, const wchar_t* button, const ExpectedBox& box) {
        program.boxes.Expect({box});
        program.Do({field, {field.window, button}});
        program.boxes.ExpectAllSeen();
        EXPECT_EQ(program.Text(field.window, field.control), L"");
        EXPECT_EQ(GetFocus(), program.Find(field.window, field.control));
    };
    program.Do({{kList, L"Add Job.."}});
    expectRefused({kEditor, L"Job Name :", L"nightly BACKUP"}, L"Save",
        {L"Job with name already in the list ", L"Job with name ' nightly BACKUP ' already exists"});
    ClickTab(Tabs(), 1);
    program.AddTask(L"C:\\a.exe");
    expectRefused({kTasks, L".exe/.bat File Path :", L"C:\\A.EXE"}, L"Add Task",
        {L"Application exe already in the list ", L"Application ' C:\\A.EXE ' already exists"});
    program.boxes.Expect(
        {{L"Invalid Schedule", L"day"}, {L"Invalid Schedule", L"month"}, {L"Invalid Schedule", L"cannot come after"}});
    program.Do({{kEditor, L"Job Name :", L"two words"}, {kEditor, L"Weekly"}, {kEditor, L"Save"}, {kEditor, L"Monthly"},
        {kEditor, L"Save"}, {kEditor, L"June"}, {kEditor, L"Job Start On :", L"20"}, {kEditor, L"Job End On :", L"19"},
        {kEditor, L"Save"}, {kEditor, L"Job End On :", L"20"}, {kEditor, L"Save"}});
    EXPECT_EQ(program.Column(program.Jobs(), 0), L"Morning wake up,Nightly backup,Quarter closing,two words");
}

TEST(JobEditorWindowTest, EachKindHasItsFace)
{
    constexpr const wchar_t* kFirst[] = {L"Runs every day. A second click on the chosen type above comes back to this.",
        L"Date :", L"Sunday", L"January"};
    constexpr struct {
        const wchar_t *click, *with;
        std::size_t face;
        const wchar_t* cell;
    } kSteps[] = {{L"On Date", L"Enable Job*", 1, L"On Date(2031-12-24)"}, {L"Weekly", L"Saturday", 2, L"Weekly"},
        {L"Monthly", L"May", 3, L"Monthly"}, {L"Monthly", L"Enable Job*", 0, L"*******"}};
    SchedulerProgram program;
    for (const auto& step : kSteps) {
        program.Edit(1);
        program.Do({{kEditor, step.click}, {kEditor, L"Date :", L"2031-12-24"}, {kEditor, step.with}});
        for (const wchar_t* radio :
            {L"On Date", L"Weekly", L"Monthly", L"Job Name :"}) // the focus alone chooses nothing
            SetFocus(Labelled(WindowOf(kEditor), radio));
        for (std::size_t face = 0; face < std::size(kFirst); ++face) {
            const HWND control = Labelled(WindowOf(kEditor), kFirst[face]);
            EXPECT_EQ(IsShown(face == 0 ? GetWindow(control, GW_HWNDPREV) : control), face == step.face);
        }
        program.Do({{kEditor, L"Update"}});
        EXPECT_EQ(CellOf(program.Jobs(), 1, 3), step.cell);
    }
}

TEST(JobEditorWindowTest, TasksUpToSeven)
{
    SchedulerProgram program;
    program.boxes.Expect({{L"Max Task limit reached.",
        L"\nWith the addition of this task, max. limit of 7 tasks per Job is reached.\nIf you need to schedule more "
        L"tasks, either use a new Job or remove existing tasks from the current Job."}});
    program.Edit(1);
    EXPECT_FALSE(program.IsOn(kTasks, L"Update Task") || program.IsOn(kTasks, L"Delete"));
    for (const wchar_t* path : {L"3.exe", L"4.exe", L"5.EXE", L"6.BAT", L"7.exe", L"8.exe"})
        program.AddTask(path);
    EXPECT_FALSE(program.IsOn(kTasks, L"Add Task"));
    EXPECT_EQ(RowCount(program.Tasks()), 7);
    program.Do({{kTasks, L".exe/.bat File Path :", L"9.exe"}});
    SetFocus(Labelled(WindowOf(kTasks), L".exe/.bat File Path :"));
    program.boxes.Expect({{L"Entered Exe details are not saved", {}, Answer::No},
        {L"Entered Exe details are not saved", L"Are you sure you want to cancel the changes?", Answer::Yes}});
    Press(VK_RETURN); // no room: the default button
    EXPECT_TRUE(program.IsOpen(kEditor));
    program.Do({{kEditor, L"Update"}});
    EXPECT_FALSE(program.IsOpen(kEditor));
    program.Edit(1);
    SelectRow(program.Tasks(), 0);
    program.Do({{kTasks, L"Delete"}});
    EXPECT_TRUE(program.IsOn(kTasks, L"Add Task"));
    EXPECT_EQ(program.Row(program.Tasks(), 0), L"C:\\Tools\\cleanup.bat\t23:30:00\t1 Hour");
    program.DoubleClick(program.Tasks(), 0);
    program.Do(
        {{kTasks, L".exe/.bat File Path :", L"D:\\c.bat"}, {kTasks, L"Repeat Interval :"}, {kTasks, L"Update Task"}});
    EXPECT_EQ(program.Row(program.Tasks(), 0), L"D:\\c.bat\t23:30:00\t");
    program.Do({{kEditor, L"Update"}});
    EXPECT_EQ(CellOf(program.Jobs(), 1, 4), L"6");
}

TEST(JobEditorWindowTest, AsksBeforeInputIsDropped)
{
    constexpr const wchar_t* kSure = L"Are you sure you want to cancel the changes?";
    SchedulerProgram program;
    const auto close = [&](std::initializer_list<ExpectedBox> expected, bool open) {
        program.boxes.Expect(expected);
        SendMessageW(WindowOf(kEditor), WM_CLOSE, 0, 0);
        program.boxes.ExpectAllSeen();
        EXPECT_EQ(program.IsOpen(kEditor), open);
    };
    program.Edit(2);
    close({}, false);
    program.Edit(2);
    program.Do({{kEditor, L"Enable Job*"}});
    close({{L"Changes not saved", kSure, Answer::No}}, true);
    program.Do({{kEditor, L"Enable Job*"}, {kTasks, L"Command Line Parameters :", L"-x"}});
    close({{L"Entered Exe details are not saved", kSure, Answer::No}}, true);
    program.Do({{kEditor, L"Enable Job*"}});
    close({{L"Changes not saved", {}, Answer::Yes}, {L"Entered Exe details are not saved", {}, Answer::Yes}}, false);
    program.Edit(2);
    EXPECT_EQ(program.Text(kTasks, L"Command Line Parameters :"), L"");
    program.Do({{kEditor, L"Update"}});
    EXPECT_FALSE(program.IsOn(kList, L"Save")); // nothing changed
    program.Add(L"Bare");
    program.boxes.Expect({{L"No Task Defined",
        L"This Job does not have any task defined.\nDo you want configure tasks for this job now?", Answer::Yes}});
    program.Do({{kEditor, L"Save"}});
    EXPECT_EQ(GetFocus(), Labelled(WindowOf(kTasks), L".exe/.bat File Path :"));
    close({{L"Changes not saved", {}, Answer::Yes}}, false);
    EXPECT_EQ(RowCount(program.Jobs()), 3);
}

TEST(JobEditorWindowTest, KeepsWhatNoChoiceHas)
{
    SchedulerProgram program;
    program.Do({{kList, L"Cancel"}});
    const std::wstring longText(300, L'x');
    program.AnswerWith(L"GetCurrentSchedulerSettings",
        Replaced(
            L"<vltp><response><details><Job_1><Name>Odd</Name><Description>*</Description><EnabledFlag>on</EnabledFlag>"
            L"<Schedule_1><StartTime>1:02:3</StartTime><StartDate>5</StartDate><EndDate>31</EndDate><Frequency_1>"
            L"<JobStart>Monthly</JobStart><Jan>Yes</Jan></Frequency_1></Schedule_1><Action_1><ApplyScheme>Gone"
            L"</ApplyScheme><PowerOff_1><type>Restart</type><idlefor>07</idlefor><AppSensor>Yes</AppSensor>"
            L"</PowerOff_1><RunTask_1><APP_11><Path>*.exe</Path><Parameters/><RDelay>045</RDelay><REndTime>late"
            L"</REndTime></APP_11></RunTask_1></Action_1></Job_1></details></response></vltp>",
            L"*", longText));
    program.Open();
    EXPECT_EQ(program.Row(program.Jobs(), 0), L"Odd\t" + longText + L"\t1:02:3\tMonthly\t1\tRestart\t10 Mins");
    program.Edit(0);
    EXPECT_EQ(program.Text(kActions, L"Power scheme"), L"Gone");
    EXPECT_EQ(program.Text(kEditor, L"Job Start On :"), L"5");
    program.Agent().ScriptReply(
        L"ApplySchedulerSettings", L"<vltp><response><status>Success</status></response></vltp>");
    program.Do({{kEditor, L"Update"}});
    EXPECT_FALSE(program.IsOn(kList, L"Save")); // nothing changed
    program.Edit(0);
    program.DoubleClick(program.Tasks(), 0);
    program.Do({{kTasks, L"Command Line Parameters :", L"-x"}, {kTasks, L"Update Task"},
        {kActions, L"Wake Up from Standby"}, {kEditor, L"Update"}, {kList, L"Save"}});
    const std::wstring request = program.LastRequest(L"ApplySchedulerSettings");
    const std::wstring kept[] = {L"<Description>" + longText + L"<", L"<Path>" + longText + L".exe<",
        L"<StartTime>1:02:3<", L"<Parameters>-x<", L"<REndTime>late<", L"<StartDate>5<", L"<ApplyScheme>Gone<",
        L"<type>Restart<", L"<idlefor>07<", L"<AppSensor>Yes<", L"<RDelay>045<", L"<EnabledFlag>on<", L"<PowerOn>Yes<"};
    for (const std::wstring& part : kept)
        EXPECT_NE(request.find(part), std::wstring::npos) << part;
}

TEST(JobEditorWindowTest, Keyboard)
{
    SchedulerProgram program;
    program.Edit(1);
    EXPECT_EQ(GetFocus(), Labelled(WindowOf(kEditor), L"Job Name :"));
    Press(VK_TAB, VK_CONTROL);
    EXPECT_TRUE(SelectedTab(Tabs()) == 1 && program.IsOpen(kTasks) && !program.IsOpen(kActions));
    const auto chooser = std::exchange(platformCalls.chooseFile,
        [](HWND, const FileDialog&) { return std::optional<std::wstring>(L"C:\\from dialog.exe"); });
    program.Do({{kTasks, L"..."}});
    platformCalls.chooseFile = chooser;
    Press(VK_RETURN); // in filled fields: adds the task
    EXPECT_EQ(CellOf(program.Tasks(), 2, 0), L"C:\\from dialog.exe");
    SetFocus(program.Tasks());
    SelectRow(program.Tasks(), 2);
    Press(VK_DELETE);
    EXPECT_EQ(RowCount(program.Tasks()), 2);
    EXPECT_EQ(SelectedRow(program.Tasks()), 1) << "the last one was deleted";
    Press(VK_RETURN); // on a task: loads it
    EXPECT_EQ(program.Text(kTasks, L".exe/.bat File Path :"), L"C:\\Tools\\cleanup.bat");
    SetFocus(Labelled(WindowOf(kEditor), L"Job Description :"));
    Press(VK_RETURN); // elsewhere: the default button
    EXPECT_FALSE(program.IsOpen(kEditor) || program.IsOn(kList, L"Save"));
}

} // namespace
} // namespace voltaro
