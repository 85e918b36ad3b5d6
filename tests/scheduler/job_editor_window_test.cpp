#include "scheduler/job_editor_window.h"

#include "scheduler/scheduler_program.h"
#include "support/refusals.h"
#include "ui/file_dialog.h"
#include "ui/tabs.h"

namespace voltaro {
namespace {

// A reply with one job: its schedule and its actions.
std::wstring OneJob(const std::wstring& schedule, const std::wstring& action)
{
    return L"<vltp><response><details><Job_1><Name>Odd</Name><Description/><EnabledFlag>Yes</EnabledFlag><Schedule_1>"
        + schedule + L"</Schedule_1><Action_1>" + action + L"</Action_1></Job_1></details></response></vltp>";
}

HWND Tabs()
{
    return FindWindowExW(WindowOf(kEditor), nullptr, WC_TABCONTROLW, nullptr);
}

TEST(JobEditorWindowTest, RefusesWhatIsWrong)
{
    // clang-format off
    constexpr RefusalRow kNames[] = {
        {L"", L"No Job Name", L""},
        {L" a", L"Invalid Job Name", L"Job Name cannot begin with a space.\nPlease enter a valid name."},
        {L"a ", L"Invalid Job Name", L"Job Name cannot end with a space.\nPlease enter a valid name."},
        {L"a-b", L"Invalid Job Name", L"Job Name can contain only alphanumeric and underscore characters."},
        {L"nightly BACKUP", L"Job with name already in the list ", L"Job with name ' nightly BACKUP ' already exists"},
    };
    constexpr RefusalRow kPaths[] = {
        {L"", L"No File Path", L"File Path input field is empty. Please enter a valid path."},
        {L"a.exe ", L"Invalid File Path", L".exe/.bat File Path cannot end with a space."},
        {L"100%&.exe", L"Invalid File Path", L".exe/.bat File Path can contain only"},
        {L"a.Exe", L"Invalid File Path", L".exe/.bat File Path should end with"},
        {L"C:\\A.EXE", L"Application exe already in the list ", L"Application ' C:\\A.EXE ' already exists"},
    };
    // clang-format on
    SchedulerProgram program;
    BoxScript boxes{};
    program.Open();
    program.Click(kList, L"Add Job..");
    const auto expectRefused
        = [&](const RefusalRow& row, WindowId window, const wchar_t* field, const wchar_t* button) {
              program.Set(window, field, row.input);
              boxes.Expect({{row.title, row.text}});
              program.Click(window, button);
              boxes.ExpectAllSeen();
              EXPECT_EQ(program.Shown(window, field), L"");
              EXPECT_EQ(GetFocus(), Labelled(WindowOf(window), field));
          };
    for (const RefusalRow& row : kNames)
        expectRefused(row, kEditor, L"Job Name :", L"Save");
    TurnTo(Tabs(), 1);
    program.AddTask(L"C:\\a.exe");
    for (const RefusalRow& row : kPaths)
        expectRefused(row, kTasks, L".exe/.bat File Path :", L"Add Task");
    program.Set(kEditor, L"Job Name :", L"two words");
    for (const wchar_t* kind : {L"Weekly", L"Monthly"}) {
        program.Click(kEditor, kind);
        boxes.Expect({{L"Invalid Schedule", {}}});
        program.Click(kEditor, L"Save");
    }
    program.Click(kEditor, L"Monthly"); // the second click: every day
    program.Click(kEditor, L"Save");
    EXPECT_EQ(program.Row(program.Jobs(), 3, 1), L"two words");
    EXPECT_EQ(CellOf(program.Jobs(), 3, 3), L"*******");
}

TEST(JobEditorWindowTest, EachKindHasItsFace)
{
    constexpr const wchar_t* kFirst[] = {L"Runs every day.", L"Date :", L"Sunday", L"January"};
    constexpr struct {
        const wchar_t* click;
        std::size_t face;
        const wchar_t* cell;
    } kSteps[] = {
        {L"On Date", 1, L"On Date(2031-12-24)"},
        {L"Weekly", 2, L"Weekly"},
        {L"Monthly", 3, L"Monthly"},
        {L"Monthly", 0, L"*******"},
    };
    SchedulerProgram program;
    BoxScript boxes{};
    program.Open();
    for (const auto& step : kSteps) {
        program.Edit(1);
        program.Click(kEditor, step.click);
        for (std::size_t face = 0; face < std::size(kFirst); ++face) {
            HWND control = Labelled(WindowOf(kEditor), kFirst[face]);
            control = face == 0 ? GetWindow(control, GW_HWNDPREV) : control;
            EXPECT_EQ(IsShown(control), face == step.face) << kFirst[face];
        }
        program.PickTime(kEditor, L"Date :", {2031, 12, 0, 24, 0, 0, 0, 0});
        if (step.face == 2)
            program.Click(kEditor, L"Saturday");
        if (step.face == 3)
            program.Click(kEditor, L"May");
        program.Click(kEditor, L"Update");
        EXPECT_EQ(CellOf(program.Jobs(), 1, 3), step.cell);
    }
}

TEST(JobEditorWindowTest, TasksUpToSeven)
{
    SchedulerProgram program;
    BoxScript boxes{};
    program.Open();
    program.Edit(1);
    const auto rows = [&] { return RowCount(program.Tasks()); };
    EXPECT_FALSE(program.Enabled(kTasks, L"Update Task") || program.Enabled(kTasks, L"Delete"));
    for (const wchar_t* path : {L"3.exe", L"4.exe", L"5.EXE", L"6.BAT"})
        program.AddTask(path);
    boxes.Expect({{L"Max Task limit reached.",
        L"\nWith the addition of this task, max. limit of 7 tasks per Job is reached.\nIf you need to schedule more "
        L"tasks, either use a new Job or remove existing tasks from the current Job."}});
    program.AddTask(L"7.exe");
    EXPECT_FALSE(program.Enabled(kTasks, L"Add Task"));
    program.AddTask(L"8.exe");
    EXPECT_EQ(rows(), 7);
    SelectRow(program.Tasks(), 0);
    program.Click(kTasks, L"Delete");
    EXPECT_TRUE(program.Enabled(kTasks, L"Add Task"));
    EXPECT_EQ(rows(), 6);
    EXPECT_EQ(program.Row(program.Tasks(), 0, 3), L"C:\\Tools\\cleanup.bat|23:30:00|1 Hour");
    const NMITEMACTIVATE twice{
        {program.Tasks(), static_cast<UINT_PTR>(GetDlgCtrlID(program.Tasks())), NM_DBLCLK}, 0, 0, 0, 0, 0, {}, 0, 0};
    SelectRow(program.Tasks(), 0);
    SendMessageW(WindowOf(kTasks), WM_NOTIFY, twice.hdr.idFrom, reinterpret_cast<LPARAM>(&twice));
    EXPECT_EQ(program.Shown(kTasks, L".exe/.bat File Path :"), L"C:\\Tools\\cleanup.bat");
    program.Set(kTasks, L".exe/.bat File Path :", L"D:\\c.bat");
    program.Click(kTasks, L"Repeat Interval :");
    program.Click(kTasks, L"Update Task");
    EXPECT_EQ(program.Row(program.Tasks(), 0, 3), L"D:\\c.bat|23:30:00|");
    EXPECT_EQ(program.Shown(kTasks, L".exe/.bat File Path :"), L"");
    program.Click(kEditor, L"Update");
    EXPECT_EQ(CellOf(program.Jobs(), 1, 4), L"6");
}

TEST(JobEditorWindowTest, AsksBeforeInputIsDropped)
{
    SchedulerProgram program;
    BoxScript boxes{};
    program.Open();
    const auto cancel = [&](std::initializer_list<ExpectedBox> expected, bool open) {
        boxes.Expect(expected);
        SendMessageW(WindowOf(kEditor), WM_CLOSE, 0, 0);
        boxes.ExpectAllSeen();
        EXPECT_EQ(program.IsOpen(kEditor), open);
    };
    program.Edit(2);
    cancel({}, false);
    program.Edit(2);
    program.Click(kEditor, L"Enable Job*");
    cancel({{L"Changes not saved", L"Are you sure you want to cancel the changes?", Answer::No}}, true);
    program.Click(kEditor, L"Enable Job*");
    program.Set(kTasks, L"Command Line Parameters :", L"-x");
    cancel({{L"Entered Exe details are not saved", L"Are you sure you want to cancel the changes?", Answer::No}}, true);
    program.Click(kEditor, L"Enable Job*");
    cancel({{L"Changes not saved", {}, Answer::Yes}, {L"Entered Exe details are not saved", {}, Answer::Yes}}, false);
    program.Edit(2);
    EXPECT_EQ(program.Shown(kTasks, L"Command Line Parameters :"), L"");
    program.Click(kEditor, L"Update"); // nothing changed
    EXPECT_FALSE(program.Enabled(kList, L"Save"));
    program.Add(L"Bare");
    boxes.Expect({{L"No Task Defined",
        L"This Job does not have any task defined.\nDo you want configure tasks for this job now?", Answer::Yes}});
    program.Click(kEditor, L"Save");
    EXPECT_TRUE(program.IsOpen(kEditor));
    EXPECT_EQ(SelectedTab(Tabs()), 1);
    EXPECT_EQ(GetFocus(), Labelled(WindowOf(kTasks), L".exe/.bat File Path :"));
    cancel({{L"Changes not saved", {}, Answer::Yes}}, false);
    EXPECT_EQ(RowCount(program.Jobs()), 3);
}

TEST(JobEditorWindowTest, KeepsWhatNoChoiceHas)
{
    SchedulerProgram program;
    BoxScript boxes{};
    program.Agent().ScriptReply(L"GetCurrentSchedulerSettings",
        OneJob(L"<StartTime>01:02:03</StartTime><StartDate>5</StartDate><EndDate>31</EndDate><Frequency_1><JobStart>"
               L"Monthly</JobStart><Jan>Yes</Jan></Frequency_1>",
            L"<ApplyScheme>Gone</ApplyScheme><PowerOff_1><type>Restart</type><idlefor>7</idlefor><AppSensor>Yes"
            L"</AppSensor></PowerOff_1><RunTask_1><APP_11><Path>a.exe</Path><Parameters/><RDelay>45</RDelay><REndTime>"
            L"02:00:00</REndTime></APP_11></RunTask_1>"));
    program.Open();
    EXPECT_EQ(program.Row(program.Jobs(), 0, 7), L"Odd||01:02:03|Monthly|1|Restart|10 Mins");
    program.Edit(0);
    EXPECT_EQ(program.Shown(kActions, L"Power scheme"), L"Gone");
    EXPECT_EQ(program.Shown(kActions, L"Kind of power off"), L"Restart");
    EXPECT_EQ(program.Shown(kActions, L"Upon Idleness Of :"), L"10 Mins");
    EXPECT_EQ(program.Shown(kEditor, L"Job Start On :"), L"5");
    program.Set(kEditor, L"Job Description :", L"x");
    program.Click(kEditor, L"Update");
    program.Click(kList, L"Save");
    const std::wstring request = program.LastRequest(L"ApplySchedulerSettings");
    for (const wchar_t* part : {L"<StartDate>5<", L"<ApplyScheme>Gone<", L"<type>Restart<", L"<idlefor>7<",
             L"<RDelay>45<", L"<AppSensor>Yes<", L"<StartTime>01:02:03<"})
        EXPECT_NE(request.find(part), std::wstring::npos) << part;
    program.Edit(0);
    program.Pick(kActions, L"Upon Idleness Of :", L"45 Mins");
    program.Click(kEditor, L"Update");
    EXPECT_EQ(CellOf(program.Jobs(), 0, 6), L"45 Mins");
}

TEST(JobEditorWindowTest, Keyboard)
{
    SchedulerProgram program;
    BoxScript boxes{};
    program.Open();
    program.Edit(1);
    EXPECT_EQ(GetFocus(), Labelled(WindowOf(kEditor), L"Job Name :"));
    Press(VK_TAB, VK_CONTROL);
    EXPECT_EQ(SelectedTab(Tabs()), 1);
    EXPECT_TRUE(program.IsOpen(kTasks) && !program.IsOpen(kActions));
    const FileChooser chooser = chooseFile;
    chooseFile = [](HWND, const FileDialog&) { return std::optional<std::wstring>(L"C:\\from dialog.exe"); };
    program.Click(kTasks, L"...");
    chooseFile = chooser;
    Press(VK_RETURN); // in filled fields: adds the task
    EXPECT_EQ(CellOf(program.Tasks(), 2, 0), L"C:\\from dialog.exe");
    SetFocus(program.Tasks());
    SelectRow(program.Tasks(), 2);
    Press(VK_DELETE);
    EXPECT_EQ(RowCount(program.Tasks()), 2);
    SelectRow(program.Tasks(), 1);
    Press(VK_RETURN); // on a task: loads it
    EXPECT_EQ(program.Shown(kTasks, L".exe/.bat File Path :"), L"C:\\Tools\\cleanup.bat");
    SetFocus(Labelled(WindowOf(kEditor), L"Job Description :"));
    Press(VK_RETURN); // elsewhere: the default button
    EXPECT_FALSE(program.IsOpen(kEditor));
    EXPECT_FALSE(program.Enabled(kList, L"Save"));
}

} // namespace
} // namespace voltaro
