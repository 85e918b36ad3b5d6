#include "scheduler/job_list_window.h"

#include "base/computer_name.h"
#include "console/help.h"
#include "scheduler/scheduler_program.h"
#include "support/element_line.h"
#include "ui/tooltip.h"

namespace voltaro {
namespace {

using simulator::FaultKind;

std::wstring ReplyWith(const std::wstring& fields)
{
    return L"<vltp><response>" + fields + L"</response></vltp>";
}

// Between requests the agent does not touch it.
simulator::MachineState& Machine(SchedulerProgram& program)
{
    return *program.Agent().WithMachine([](simulator::Machine& machine) { return &machine.State(); });
}

// The names on the screen; when everything is stored they are the agent's too, and "Save" is grey.
std::wstring JobNames(SchedulerProgram& program, bool stored)
{
    const std::wstring screen = program.Column(program.Jobs(), 0);
    std::wstring agent;
    for (const Element& job : Machine(program).jobs.children)
        agent += (agent.empty() ? L"" : L",") + job.children[0].text;
    EXPECT_EQ(screen == agent, stored) << agent;
    EXPECT_EQ(program.IsEnabled(kList, L"Save"), !stored);
    return screen;
}

TEST(JobListWindowTest, TheAgentsListFollowsTheScreen)
{
    SchedulerProgram program;
    BoxScript boxes{};
    EXPECT_EQ(JobNames(program, true), L"Morning wake up,Nightly backup,Quarter closing");
    EXPECT_EQ(program.Row(program.Jobs(), 1),
        L"Nightly backup\tCopy the day's work & power off\t22:30:00\t*******\t2\tShutdown\t15 Mins");
    EXPECT_EQ(program.Text(kList, L"Host Name :"), ComputerName());

    program.Add(L"Long day");
    // clang-format off
    program.Do({
        {kEditor, L"Job Description :", L"<late> & \x00E9"},           {kEditor, L"Job start time :", L"06:07:08"},
        {kEditor, L"Monthly"}, {kEditor, L"February"}, {kEditor, L"December"}, {kEditor, L"Job Start On :", L"09"},
        {kEditor, L"Enable Job*"},                                     {kActions, L"Wake Up from Standby"},
        {kActions, L"Select Power Scheme"},                            {kActions, L"Power scheme", L"Office_Hours"},
        {kActions, L"Enable Power Off **"},                            {kActions, L"Kind of power off", L"Hibernate"},
        {kActions, L"Upon Idleness Of :", L"2 Hrs"},                   {kTasks, L"End Time :", L"20:30:05"},
        {kTasks, L"Command Line Parameters :", L"-a \"b\""},           {kTasks, L"Repeat Interval :"},
        {kTasks, L"Length of the repeat interval", L"1 Hour"}});
    // clang-format on
    program.AddTask(L"C:\\x (1)\\run.exe");
    program.Do({{kEditor, L"Save"}});
    EXPECT_EQ(JobNames(program, false), L"Morning wake up,Nightly backup,Quarter closing,Long day");
    static_cast<void>(program.TakeOperations());
    program.Do({{kList, L"Save"}});
    EXPECT_EQ(program.TakeOperations(),
        (std::vector<std::wstring>{L"GetActivationstatus", L"ApplySchedulerSettings", L"GetCurrentSchedulerSettings"}));
    static_cast<void>(JobNames(program, true));
    EXPECT_EQ(Line(Machine(program).jobs.children[3]),
        L"Job_4[Name=Long day Description=<late> & \x00E9 EnabledFlag=Yes Schedule_4[StartTime=06:07:08 StartDate=09 "
        L"EndDate=31 Frequency_4[JobStart=Monthly Jan=No Feb=Yes Mar=No Apr=No May=No Jun=No Jul=No Aug=No Sep=No "
        L"Oct=No Nov=No Dec=Yes]] Action_4[PowerOn=Yes ApplyScheme=Office_Hours PowerOff_4[type=Hibernate idlefor=120 "
        L"AppSensor=No] RunTask_4[APP_41[Path=C:\\x (1)\\run.exe Parameters=-a \"b\" RDelay=60 REndTime=20:30:05]]]]");

    SelectRow(program.Jobs(), 0);
    boxes.Expect({{L"Delete Job", {}, Answer::No},
        {L"Delete Job",
            L"If you delete the 'Morning wake up' job, all scheduled tasks associated with it will be "
            L"deleted.\n\nDo you want to continue?",
            Answer::Yes}});
    program.Do({{kList, L"Delete Job"}});
    static_cast<void>(JobNames(program, true));
    program.Do({{kList, L"Delete Job"}, {kList, L"OK"}});
    EXPECT_FALSE(program.IsOpen(kList));
    program.Open();
    EXPECT_EQ(JobNames(program, true), L"Nightly backup,Quarter closing,Long day");
    EXPECT_EQ(Machine(program).jobs.children[0].name, L"Job_1");

    boxes.Expect({{L"Delete all Jobs",
        L"Are you sure you want to remove all scheduled jobs from '" + ComputerName()
            + L"' System?\n\n All jobs and associated tasks will be deleted.",
        Answer::Yes}});
    program.Do({{kList, L"Remove All Scheduled Jobs"}});
    EXPECT_EQ(JobNames(program, true), L"");
}

TEST(JobListWindowTest, WhatIsNotStoredIsKept)
{
    SchedulerProgram program;
    BoxScript boxes{{L"No Task Defined", {}, Answer::No}};
    program.Add(L"Kept");
    program.Do({{kEditor, L"Save"}});
    const Element before = Machine(program).jobs;
    const int port = program.Agent().Port();
    for (const wchar_t* button : {L"Save", L"OK", L"Remove All Scheduled Jobs"}) {
        const auto expectKept = [&](const ExpectedBox& box) {
            if (button[0] == L'R')
                boxes.Expect({{L"Delete all Jobs", {}, Answer::Yes}});
            boxes.Expect({box});
            program.Do({{kList, button}});
            Machine(program).jobs = before; // a scripted refusal stands for an agent that stored nothing
            EXPECT_EQ(JobNames(program, false), L"Morning wake up,Nightly backup,Quarter closing,Kept");
            EXPECT_TRUE(program.IsOpen(kList));
        };
        for (const wchar_t* status : {L"<status>failure</status>", L"<status>Permission denied</status>", L""}) {
            program.Agent().ScriptReply(L"ApplySchedulerSettings", ReplyWith(status));
            expectKept({L"Save failed", L"Unable to save the scheduled jobs."});
        }
        program.Agent().ClearScripts();
        Machine(program).licence = simulator::Licence::Expired;
        expectKept({L"Save failed", L"expired"});
        Machine(program).licence = simulator::Licence::Activated;
        program.Agent().Stop();
        state.connected = true;
        expectKept({L"Connection Issue", {}});
        ASSERT_TRUE(program.Agent().Start(port));
    }
    program.Do({{kList, L"Save"}});
    EXPECT_EQ(JobNames(program, true), L"Morning wake up,Nightly backup,Quarter closing,Kept");
}

// An answer without a list opens nothing: an empty list on the screen would be stored with the next job.
TEST(JobListWindowTest, OddAnswers)
{
    using F = FaultKind;
    constexpr wchar_t kBad[] = L"Job Scheduler", kLost[] = L"Connection Issue";
    const std::pair<F, const wchar_t*> kRows[] = {{F::None, nullptr}, {F::ByteByByte, nullptr},
        {F::NotWellFormed, kBad}, {F::Doctype, kBad}, {F::Status, kBad}, {F::ManyElements, kLost}, {F::Silent, kLost},
        {F::CloseMidFrame, kLost}, {F::HugeLength, kLost}};
    SchedulerProgram program;
    BoxScript boxes{};
    for (const auto& [kind, box] : kRows) {
        program.Do({{kList, L"Cancel"}});
        if (box != nullptr)
            boxes.Expect({{box, {}}});
        state.connected = true;
        program.Agent().SetFault(L"GetCurrentSchedulerSettings", {kind, {}});
        program.Open();
        boxes.ExpectAllSeen();
        EXPECT_EQ(program.IsOpen(kList), box == nullptr) << static_cast<int>(kind);
    }
    program.Agent().ClearFaults();
    program.Agent().ScriptReply(L"GetCurrentSchedulerSettings", ReplyWith(L"<details/>"));
    program.Open();
    EXPECT_EQ(RowCount(program.Jobs()), 0);

    std::wstring jobs; // each character of the parameters takes five in a request: too long to be read back
    for (std::wstring n = L"1"; n != L"8"; ++n[0]) {
        jobs += L"<Job_" + n + L"><Name>n</Name><Action_" + n + L"><RunTask_" + n + L">";
        for (std::wstring k = L"1"; k != L"8"; ++k[0])
            jobs += L"<APP_" + n + k + L"><Path>a.exe</Path><Parameters><![CDATA[" + std::wstring(250, L'&')
                + L"]]></Parameters></APP_" + n + k + L">";
        jobs += L"</RunTask_" + n + L"></Action_" + n + L"></Job_" + n + L">";
    }
    program.Do({{kList, L"Cancel"}});
    program.Agent().ScriptReply(L"GetCurrentSchedulerSettings", ReplyWith(L"<details>" + jobs + L"</details>"));
    program.Open();
    SelectRow(program.Jobs(), 0);
    boxes.Expect({{L"Delete Job", {}, Answer::Yes}, {L"Save failed", L"Unable to save the scheduled jobs."}});
    program.Do({{kList, L"Delete Job"}, {kList, L"Save"}});
    EXPECT_EQ(RowCount(program.Jobs()), 6);
    EXPECT_EQ(program.LastRequest(L"ApplySchedulerSettings"), L"");
}

TEST(JobListWindowTest, TenJobsAreTheLimit)
{
    SchedulerProgram program(L"manyjobs");
    BoxScript boxes{{L"Delete Job", {}, Answer::Yes}, {L"No Task Defined", {}, Answer::No}};
    const auto expectFull = [&](bool full) {
        EXPECT_EQ(IsShown(Labelled(WindowOf(kList), L"Add Job..")), !full);
        for (const wchar_t* line : {L"Voltaro users can schedule up to ten jobs. Ten jobs are already scheduled.",
                 L"Please delete one / more of the exisiting jobs, if you want to schedule new ones."})
            EXPECT_EQ(IsShown(GetWindow(Labelled(WindowOf(kList), line), GW_HWNDPREV)), full);
    };
    EXPECT_EQ(program.Row(program.Jobs(), 9),
        L"Training day\tProjector room\t08:30:00\tOn Date(2027-02-01)\t0\tStandby\t6 Hrs");
    expectFull(true);
    program.Do({{kList, L"Delete Job"}});
    expectFull(false);
    program.Add(L"Tenth");
    program.Do({{kEditor, L"Save"}});
    expectFull(true);
    EXPECT_EQ(SelectedRow(program.Jobs()), 9);
}

std::wstring shownTopic;

TEST(JobListWindowTest, KeyboardMouseAndClosing)
{
    SchedulerProgram program;
    BoxScript boxes{};
    EXPECT_FALSE(program.IsEnabled(kList, L"Modify Job..") || program.IsEnabled(kList, L"Delete Job"));
    EXPECT_EQ(GetFocus(), program.Jobs());
    Press(VK_DOWN);
    Press(VK_RETURN);
    EXPECT_EQ(program.Text(kEditor, L"Job Name :"), L"Morning wake up");
    EXPECT_FALSE(IsWindowEnabled(WindowOf(kList)));
    Press(VK_ESCAPE);
    EXPECT_TRUE(IsWindowEnabled(WindowOf(kList)) && !program.IsOpen(kEditor));
    EXPECT_EQ(GetFocus(), program.Jobs());
    program.DoubleClick(program.Jobs(), 1);
    EXPECT_EQ(program.Text(kEditor, L"Job Name :"), L"Nightly backup");
    Press(VK_ESCAPE);

    RECT cell{};
    ListView_GetItemRect(program.Jobs(), 2, &cell, LVIR_LABEL);
    SendMessageW(program.Jobs(), WM_MOUSEMOVE, 0, MAKELPARAM(cell.left + 5, cell.top + 5));
    EXPECT_STREQ(TooltipOf(program.Jobs()), L"This job is not enabled and does not run.");
    const HelpViewer viewer = std::exchange(helpViewer, [](HWND, const std::wstring& topic) { shownTopic = topic; });
    SendMessageW(WindowOf(kList), WM_HELP, 0, 0);
    helpViewer = viewer;
    EXPECT_TRUE(shownTopic.ends_with(L"\\docs\\help\\Voltaro_Help_SE.chm::/Job Scheduler.htm")) << shownTopic;

    const ExpectedBox unsaved = {L"Changes not saved", L"Are you sure you want to cancel the changes?", Answer::No};
    boxes.Expect({{L"Delete Job", L"'Nightly backup'", Answer::Yes}, unsaved, unsaved});
    Press(VK_DELETE);
    Press(VK_ESCAPE);
    SendMessageW(WindowOf(kList), WM_CLOSE, 0, 0);
    static_cast<void>(program.TakeOperations());
    program.Open(); // it is open: it keeps the change
    EXPECT_EQ(program.TakeOperations().size(), 0u);
    EXPECT_EQ(JobNames(program, false), L"Morning wake up,Quarter closing");
    boxes.Expect({{L"Changes not saved", {}, Answer::Yes}});
    Press(VK_ESCAPE);
    EXPECT_FALSE(program.IsOpen(kList));
    program.Open();
    EXPECT_EQ(JobNames(program, true), L"Morning wake up,Nightly backup,Quarter closing");
}

} // namespace
} // namespace voltaro
