#include "scheduler/job_list_window.h"

#include "base/computer_name.h"
#include "console/connection_state.h"
#include "scheduler/scheduler_program.h"
#include "support/element_line.h"
#include "ui/tooltip.h"

namespace voltaro {
namespace {

// The names on the screen; when everything is stored they are the agent's too, and "Save" is grey.
std::wstring JobNames(SchedulerProgram& program, bool stored)
{
    const std::wstring screen = program.Column(program.Jobs(), 0);
    std::wstring agent;
    for (const Element& job : program.Machine().jobs.children)
        agent.append(agent.empty() ? L"" : L",").append(job.children[0].text);
    EXPECT_EQ(screen == agent, stored) << agent;
    EXPECT_EQ(program.IsOn(kList, L"Save"), !stored);
    return screen;
}

TEST(JobListWindowTest, TheAgentsListFollowsTheScreen)
{
    SchedulerProgram program;
    EXPECT_EQ(JobNames(program, true), L"Morning wake up,Nightly backup,Quarter closing");
    EXPECT_EQ(
        program.Row(program.Jobs(), 0), L"Morning wake up\tReady before the office opens\t07:45:00\tWeekly\t0\t\t");
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
    program.Agent().ClearRequests();
    program.Do({{kList, L"Save"}});
    EXPECT_EQ(program.TakeOperations(),
        (std::vector<std::wstring>{L"GetActivationstatus", L"ApplySchedulerSettings", L"GetCurrentSchedulerSettings"}));
    static_cast<void>(JobNames(program, true));
    EXPECT_EQ(Line(program.Machine().jobs.children[3]),
        L"Job_4[Name=Long day Description=<late> & \x00E9 EnabledFlag=Yes Schedule_4[StartTime=06:07:08 StartDate=09 "
        L"EndDate=31 Frequency_4[JobStart=Monthly Jan=No Feb=Yes Mar=No Apr=No May=No Jun=No Jul=No Aug=No Sep=No "
        L"Oct=No Nov=No Dec=Yes]] Action_4[PowerOn=Yes ApplyScheme=Office_Hours PowerOff_4[type=Hibernate idlefor=120 "
        L"AppSensor=No] RunTask_4[APP_41[Path=C:\\x (1)\\run.exe Parameters=-a \"b\" RDelay=60 REndTime=20:30:05]]]]");

    SelectRow(program.Jobs(), 0);
    program.boxes.Expect({{L"Delete Job", {}, Answer::No},
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
    EXPECT_EQ(program.Machine().jobs.children[0].name, L"Job_1");

    program.boxes.Expect({{L"Delete all Jobs",
        L"Are you sure you want to remove all scheduled jobs from '" + ComputerName()
            + L"' System?\n\n All jobs and associated tasks will be deleted.",
        Answer::Yes}});
    program.Do({{kList, L"Remove All Scheduled Jobs"}});
    EXPECT_EQ(JobNames(program, true), L"");
}

TEST(JobListWindowTest, WhatIsNotStoredIsKept)
{
    SchedulerProgram program;
    program.boxes.Expect({{L"No Task Defined", {}, Answer::No}});
    program.Add(L"Kept");
    program.Do({{kEditor, L"Save"}});
    const Element before = program.Machine().jobs;
    const int port = program.Agent().Port();
    for (const wchar_t* button : {L"Save", L"OK", L"Remove All Scheduled Jobs"}) {
        const auto expectKept = [&](const ExpectedBox& box) {
            if (button[0] == L'R')
                program.boxes.Expect({{L"Delete all Jobs", {}, Answer::Yes}});
            program.boxes.Expect({box});
            program.Do({{kList, button}});
            program.Machine().jobs = before; // a scripted refusal stands for an agent that stored nothing
            EXPECT_EQ(JobNames(program, false), L"Morning wake up,Nightly backup,Quarter closing,Kept");
            EXPECT_TRUE(program.IsOpen(kList));
        };
        for (const wchar_t* status : {L"failure", L"Permission denied", kNoStatus}) {
            program.AnswerWith(L"ApplySchedulerSettings", status);
            expectKept({L"Save failed", L"Unable to save the scheduled jobs."});
        }
        program.Agent().ClearScripts();
        program.Machine().license = simulator::License::Expired;
        expectKept({L"Save failed", L"expired"});
        program.Machine().license = simulator::License::Activated;
        program.Agent().Stop();
        connection.connected = true;
        expectKept({L"Connection Issue", {}});
        ASSERT_TRUE(program.Agent().Start(port));
    }
    program.Do({{kList, L"Save"}});
    EXPECT_EQ(JobNames(program, true), L"Morning wake up,Nightly backup,Quarter closing,Kept");
}

// An answer without a list opens nothing: an empty list on the screen would be stored with the next job.
TEST(JobListWindowTest, OddAnswers)
{
    SchedulerProgram program;
    for (const auto& [answer, box] :
        {std::pair(kMalformed, L"Job Scheduler"), {L"Failure", L"Job Scheduler"}, {kNoAnswer, L"Connection Issue"}}) {
        program.Do({{kList, L"Cancel"}});
        program.boxes.Expect({{box, {}}});
        program.AnswerWith(L"GetCurrentSchedulerSettings", answer);
        program.Open();
        program.boxes.ExpectAllSeen();
        EXPECT_FALSE(program.IsOpen(kList));
    }
    program.Agent().ClearFaults();
    for (const wchar_t* answer : {L"<details/>", L"<status>Success</status>", L""}) {
        program.Agent().ScriptReply(
            L"GetCurrentSchedulerSettings", std::wstring(L"<vltp><response>") + answer + L"</response></vltp>");
        program.Open();
        EXPECT_TRUE(program.IsOpen(kList)) << answer;
        EXPECT_EQ(RowCount(program.Jobs()), 0);
        program.Do({{kList, L"Cancel"}});
    }

    std::wstring jobs; // each character of the parameters takes five in a request: too long to be read back
    for (std::wstring n = L"1"; n != L"8"; ++n[0]) {
        jobs += L"<Job_" + n + L"><Name>n</Name><Action_" + n + L"><RunTask_" + n + L">";
        for (std::wstring k = L"1"; k != L"8"; ++k[0])
            jobs += L"<APP_" + n + k + L"><Path>a.exe</Path><Parameters><![CDATA[" + std::wstring(250, L'&')
                + L"]]></Parameters></APP_" + n + k + L">";
        jobs += L"</RunTask_" + n + L"></Action_" + n + L"></Job_" + n + L">";
    }
    program.Agent().ScriptReply(
        L"GetCurrentSchedulerSettings", L"<vltp><response><details>" + jobs + L"</details></response></vltp>");
    program.Open();
    SelectRow(program.Jobs(), 0);
    program.boxes.Expect({{L"Delete Job", {}, Answer::Yes}, {L"Save failed", L"Unable to save the scheduled jobs."}});
    program.Do({{kList, L"Delete Job"}, {kList, L"Save"}});
    EXPECT_EQ(RowCount(program.Jobs()), 6);
    EXPECT_EQ(program.LastRequest(L"ApplySchedulerSettings"), L"");
}

TEST(JobListWindowTest, TenJobsAreTheLimit)
{
    SchedulerProgram program(L"manyjobs");
    program.boxes.Expect({{L"Delete Job", {}, Answer::Yes}, {L"No Task Defined", {}, Answer::No}});
    const auto expectFull = [&](bool full) {
        EXPECT_EQ(IsShown(Labelled(WindowOf(kList), L"Add Job..")), !full);
        for (const wchar_t* line : {L"Voltaro users can schedule up to ten jobs. Ten jobs are already scheduled.",
                 L"Please delete one / more of the exisiting jobs, if you want to schedule new ones."})
            EXPECT_EQ(IsShown(GetWindow(Labelled(WindowOf(kList), line), GW_HWNDPREV)), full);
    };
    SelectRow(program.Jobs(), 9);
    expectFull(true);
    program.Do({{kList, L"Delete Job"}});
    expectFull(false);
    EXPECT_EQ(SelectedRow(program.Jobs()), 8);
    program.Add(L"Tenth");
    program.Do({{kEditor, L"Save"}});
    expectFull(true);
    EXPECT_EQ(SelectedRow(program.Jobs()), 9);
}

TEST(JobListWindowTest, KeyboardMouseAndClosing)
{
    SchedulerProgram program;
    EXPECT_FALSE(program.IsOn(kList, L"Modify Job..") || program.IsOn(kList, L"Delete Job"));
    EXPECT_EQ(GetFocus(), program.Jobs());
    Press(VK_DOWN);
    Press(VK_RETURN);
    EXPECT_EQ(program.Text(kEditor, L"Job Name :"), L"Morning wake up");
    EXPECT_FALSE(IsWindowEnabled(WindowOf(kList)));
    SendMessageW(WindowOf(kList), WM_CLOSE, 0, 0);
    program.Command(kList, IDCANCEL);
    EXPECT_TRUE(program.IsOpen(kList));
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

    const ExpectedBox unsaved = {L"Changes not saved", L"Are you sure you want to cancel the changes?", Answer::No};
    program.boxes.Expect({{L"Delete Job", L"'Nightly backup'", Answer::Yes}, unsaved, unsaved});
    Press(VK_DELETE);
    Press(VK_ESCAPE);
    SendMessageW(WindowOf(kList), WM_CLOSE, 0, 0);
    program.Agent().ClearRequests();
    program.Open(); // it is open: it keeps the change
    EXPECT_EQ(program.TakeOperations().size(), 0u);
    EXPECT_EQ(JobNames(program, false), L"Morning wake up,Quarter closing");
    program.boxes.Expect({{L"Changes not saved", {}, Answer::Yes}});
    Press(VK_ESCAPE);
    EXPECT_FALSE(program.IsOpen(kList));
    program.Open();
    EXPECT_EQ(JobNames(program, true), L"Morning wake up,Nightly backup,Quarter closing");
}

} // namespace
} // namespace voltaro
