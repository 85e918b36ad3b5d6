#include "scheduler/job_list_window.h"

#include "base/computer_name.h"
#include "scheduler/job_document.h"
#include "scheduler/scheduler_program.h"

namespace voltaro {

struct JobListWindowTest : testing::Test, SchedulerProgram {
    // The names on the screen; when everything is stored they are the agent's too, and "Save" is grey.
    std::wstring JobNames(bool stored)
    {
        const std::wstring screen = Column(Jobs(), 0);
        std::wstring agent;
        for (const Element& job : Machine().jobs.children)
            agent.append(agent.empty() ? L"" : L",").append(job.children[0].text);
        EXPECT_EQ(screen == agent, stored) << agent;
        EXPECT_EQ(IsOn(L"Save"), !stored);
        return screen;
    }
};

TEST_F(JobListWindowTest, TheAgentsListFollowsTheScreen)
{
    EXPECT_EQ(JobNames(true), L"Morning wake up,Nightly backup,Quarter closing");
    EXPECT_EQ(
        Row(Jobs(), 1), L"Nightly backup\tCopy the day's work & power off\t22:30:00\t*******\t2\tShutdown\t15 Mins");
    EXPECT_EQ(Shown(L"Host Name :"), ComputerName());
    Add(L"Long day");
    Do({{L"Job Description :", L"<late> & \x00E9"}, {L"Job start time :", L"06:07:08"}, {L"Monthly"}, {L"February"},
        {L"December"}, {L"Job Start On :", L"09"}, {L"Enable Job*"}, {L"Wake Up from Standby"},
        {L"Select Power Scheme"}, {L"Power scheme", L"Office_Hours"}, {L"Enable Power Off **"},
        {L"Kind of power off", L"Hibernate"}, {L"Upon Idleness Of :", L"2 Hrs"}, {L"End Time :", L"20:30:05"},
        {L"Command Line Parameters :", L"-a \"b\""}, {L"Repeat Interval :"},
        {L"Length of the repeat interval", L"1 Hour"}});
    AddTask(L"C:\\x (1)\\run.exe");
    Do({{L"Save"}});
    EXPECT_EQ(JobNames(false), L"Morning wake up,Nightly backup,Quarter closing,Long day");
    Agent().ClearRequests();
    Do({{L"Save"}});
    EXPECT_EQ(TakeOperations(),
        (Operations{L"GetActivationstatus", L"ApplySchedulerSettings", L"GetCurrentSchedulerSettings"}));
    static_cast<void>(JobNames(true));
    EXPECT_EQ(Line(Machine().jobs.children[3]),
        L"Job_4[Name=Long day Description=<late> & \x00E9 EnabledFlag=Yes Schedule_4[StartTime=06:07:08 StartDate=09 "
        L"EndDate=31 Frequency_4[JobStart=Monthly Jan=No Feb=Yes Mar=No Apr=No May=No Jun=No Jul=No Aug=No Sep=No "
        L"Oct=No Nov=No Dec=Yes]] Action_4[PowerOn=Yes ApplyScheme=Office_Hours PowerOff_4[type=Hibernate idlefor=120 "
        L"AppSensor=No] RunTask_4[APP_41[Path=C:\\x (1)\\run.exe Parameters=-a \"b\" RDelay=60 REndTime=20:30:05]]]]");
    SelectRow(Jobs(), 0);
    boxes.Expect({{L"Delete Job", {}, Answer::No},
        {L"Delete Job",
            L"If you delete the 'Morning wake up' job, all scheduled tasks associated with it will be "
            L"deleted.\n\nDo you want to continue?",
            Answer::Yes}});
    Do({{L"Delete Job"}});
    static_cast<void>(JobNames(true));
    Do({{L"Delete Job"}, {L"OK"}});
    EXPECT_FALSE(IsOpen(kList));
    Open();
    EXPECT_EQ(JobNames(true), L"Nightly backup,Quarter closing,Long day");
    boxes.Expect({{L"Delete all Jobs",
        L"Are you sure you want to remove all scheduled jobs from '" + ComputerName()
            + L"' System?\n\n All jobs and associated tasks will be deleted.",
        Answer::Yes}});
    Do({{L"Remove All Scheduled Jobs"}});
    EXPECT_EQ(JobNames(true), L"");
}

TEST_F(JobListWindowTest, WhatIsNotStoredIsKept)
{
    boxes.Expect({{L"No Task Defined", {}, Answer::No}});
    Add(L"Kept");
    Do({{L"Save"}});
    for (const wchar_t* button : {L"Save", L"OK", L"Remove All Scheduled Jobs"}) {
        AnswerWith(L"ApplySchedulerSettings", L"failure");
        boxes.Expect({{button[0] == L'R' ? L"Delete all Jobs" : L"", {}, Answer::Yes}, {L"Save failed", {}}});
        Do({{button}});
        EXPECT_TRUE(JobNames(false) == L"Morning wake up,Nightly backup,Quarter closing,Kept" && IsOpen(kList));
    }
    Agent().ClearScripts();
    Do({{L"Save"}});
    EXPECT_EQ(JobNames(true), L"Morning wake up,Nightly backup,Quarter closing,Kept");
}

// An answer without a list opens nothing: an empty list on the screen would be stored with the next job.
TEST_F(JobListWindowTest, OddAnswers)
{
    Do({{L"Cancel"}});
    for (const auto& [answer, box] :
        {std::pair(kMalformed, L"Job Scheduler"), {L"Failure", L"Job Scheduler"}, {kNoAnswer, L"Connection Issue"}}) {
        boxes.Expect({{box, {}}});
        AnswerWith(L"GetCurrentSchedulerSettings", answer);
        Open();
        boxes.ExpectAllSeen();
        EXPECT_FALSE(IsOpen(kList));
    }
    Agent().ClearFaults();
    for (const wchar_t* answer : {L"<details/>", L"<status>Success</status>", L""}) {
        Agent().ScriptReply(
            L"GetCurrentSchedulerSettings", std::wstring(L"<vltp><response>") + answer + L"</response></vltp>");
        Open();
        EXPECT_TRUE(IsOpen(kList)) << answer;
        EXPECT_EQ(RowCount(Jobs()), 0);
        Do({{L"Cancel"}});
    }
    ScheduledJob job; // each character of the parameters takes five in a request: just too long to be read back
    job.name = L"n";
    job.tasks.assign(7, {L"a.exe", L"#"});
    const std::wstring text = simulator::ReplyText({L"response", {}, {BuildJobList(ScheduledJobs(7, job))}});
    Agent().ScriptReply(
        L"GetCurrentSchedulerSettings", Replaced(text, L"#", L"<![CDATA[" + std::wstring(180, L'&') + L"]]>"));
    Open();
    SelectRow(Jobs(), 0);
    boxes.Expect({{L"Delete Job", {}, Answer::Yes}, {L"Save failed", L"Unable to save the scheduled jobs."}});
    Do({{L"Delete Job"}, {L"Save"}});
    EXPECT_TRUE(RowCount(Jobs()) == 6 && LastRequest(L"ApplySchedulerSettings").empty());
}

TEST(JobLimitTest, TenJobs)
{
    SchedulerProgram program(L"manyjobs");
    program.boxes.Expect({{L"Delete Job", {}, Answer::Yes}, {L"No Task Defined", {}, Answer::No}});
    const auto expectFull = [&](bool full) {
        EXPECT_EQ(IsShown(program.Find(L"Add Job..")), !full);
        for (const wchar_t* line : {L"Voltaro users can schedule up to ten jobs. Ten jobs are already scheduled.",
                 L"Please delete one / more of the exisiting jobs, if you want to schedule new ones."})
            EXPECT_EQ(IsShown(GetWindow(program.Find(line), GW_HWNDPREV)), full);
    };
    SelectRow(program.Jobs(), 9);
    expectFull(true);
    program.Do({{L"Delete Job"}});
    expectFull(false);
    program.Add(L"Tenth");
    program.Do({{L"Save"}});
    expectFull(true);
}

TEST_F(JobListWindowTest, KeyboardMouseAndClosing)
{
    EXPECT_TRUE(!IsOn(L"Modify Job..") && !IsOn(L"Delete Job") && GetFocus() == Jobs());
    Press(VK_DOWN);
    Press(VK_RETURN);
    EXPECT_EQ(Shown(L"Job Name :"), L"Morning wake up");
    Open(); // it is open, under its editor
    SendMessageW(WindowOf(kList), WM_CLOSE, 0, 0);
    Command(kList, IDCANCEL);
    EXPECT_TRUE(IsOpen(kList) && !IsEnabled(WindowOf(kList)));
    Press(VK_ESCAPE);
    EXPECT_TRUE(IsEnabled(WindowOf(kList)) && !IsOpen(kEditor) && GetFocus() == Jobs());
    DoubleClick(Jobs(), 1);
    EXPECT_EQ(Shown(L"Job Name :"), L"Nightly backup");
    Press(VK_ESCAPE);
    EXPECT_EQ(TipOver(Jobs(), 2), L"This job is not enabled and does not run.");
    const ExpectedBox unsaved = {L"Changes not saved", L"Are you sure you want to cancel the changes?", Answer::No};
    boxes.Expect({{L"Delete Job", L"'Nightly backup'", Answer::Yes}, unsaved, unsaved});
    Press(VK_DELETE);
    Press(VK_ESCAPE);
    SendMessageW(WindowOf(kList), WM_CLOSE, 0, 0);
    for (const int show : {SW_SHOW, SW_HIDE}) { // open, or hidden by a pause: it keeps the change
        ShowWindow(WindowOf(kList), show);
        Open();
        EXPECT_EQ(JobNames(false), L"Morning wake up,Quarter closing");
    }
    boxes.Expect({{L"Changes not saved", {}, Answer::Yes}});
    Press(VK_ESCAPE);
    EXPECT_FALSE(IsOpen(kList));
    Open();
    EXPECT_EQ(JobNames(true), L"Morning wake up,Nightly backup,Quarter closing");
}

} // namespace voltaro
