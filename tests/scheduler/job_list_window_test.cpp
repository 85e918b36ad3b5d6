#include "scheduler/job_list_window.h"

#include "base/computer_name.h"
#include "base/text.h"
#include "console/help.h"
#include "scheduler/scheduler_program.h"
#include "support/element_line.h"
#include "ui/tooltip.h"

namespace voltaro {
namespace {

using Names = std::vector<std::wstring>;
using simulator::FaultKind;

std::wstring ReplyWith(const std::wstring& fields)
{
    return L"<vltp><response>" + fields + L"</response></vltp>";
}

const Names kStored = {L"GetActivationstatus", L"ApplySchedulerSettings", L"GetCurrentSchedulerSettings"};

Element AgentJobs(SchedulerProgram& program)
{
    return program.Agent().WithMachine([](simulator::Machine& machine) { return machine.State().jobs; });
}

// What the agent holds, in the cells of the list but the last.
Names AgentRows(SchedulerProgram& program)
{
    Names rows;
    for (const Element& job : AgentJobs(program).children) {
        const Element& schedule = job.children[3];
        const Element& action = job.children[4];
        const std::wstring& kind = schedule.children[3].children[0].text;
        const std::wstring& date = schedule.children[1].text;
        std::wstring type = kind != L"AST" ? kind : date == L"NULL" ? L"*******" : L"On Date(" + date + L")";
        std::wstring off;
        for (const Element& node : action.children)
            off += node.name.starts_with(L"PowerOff") ? node.children[0].text : L"";
        rows.push_back(job.children[0].text + L"|" + job.children[1].text + L"|" + schedule.children[0].text + L"|"
            + type + L"|" + std::to_wstring(action.children.back().children.size()) + L"|" + off);
    }
    return rows;
}

Names ScreenRows(SchedulerProgram& program)
{
    Names rows;
    for (int row = 0; row < RowCount(program.Jobs()); ++row)
        rows.push_back(program.Row(program.Jobs(), row, 6));
    return rows;
}

// The names on the screen, which are the agent's too when everything is stored.
Names JobNames(SchedulerProgram& program, bool stored)
{
    EXPECT_EQ(program.Enabled(kList, L"Save"), !stored);
    EXPECT_EQ(ScreenRows(program) == AgentRows(program), stored);
    Names names;
    for (int row = 0; row < RowCount(program.Jobs()); ++row)
        names.push_back(CellOf(program.Jobs(), row, 0));
    return names;
}

TEST(JobListWindowTest, TheAgentsListFollowsTheScreen)
{
    SchedulerProgram program;
    BoxScript boxes{};
    program.Open();
    EXPECT_EQ(JobNames(program, true), (Names{L"Morning wake up", L"Nightly backup", L"Quarter closing"}));
    EXPECT_EQ(program.Row(program.Jobs(), 1, 7),
        L"Nightly backup|Copy the day's work & power off|22:30:00|*******|2|Shutdown|15 Mins");
    EXPECT_EQ(program.Shown(kList, L"Host Name :"), ComputerName());

    program.Add(L"Long day");
    program.Set(kEditor, L"Job Description :", L"<late> & \x00E9");
    program.PickTime(kEditor, L"Job start time :", {2026, 1, 0, 1, 6, 7, 8, 0});
    program.Click(kEditor, L"Monthly");
    program.Click(kEditor, L"February");
    program.Click(kEditor, L"December");
    program.Pick(kEditor, L"Job Start On :", L"09");
    program.Click(kEditor, L"Enable Job*");
    program.Click(kActions, L"Wake Up from Standby");
    program.Click(kActions, L"Select Power Scheme");
    program.Pick(kActions, L"Power scheme", L"Office_Hours");
    program.Click(kActions, L"Enable Power Off **");
    program.Pick(kActions, L"Kind of power off", L"Hibernate");
    program.Pick(kActions, L"Upon Idleness Of :", L"2 Hrs");
    program.Set(kTasks, L"Command Line Parameters :", L"-a \"b\"");
    program.PickTime(kTasks, L"End Time :", {2026, 1, 0, 1, 20, 30, 5, 0});
    program.Click(kTasks, L"Repeat Interval :");
    program.Pick(kTasks, L"Length of the repeat interval", L"1 Hour");
    program.AddTask(L"C:\\x (1)\\run.exe");
    program.Click(kEditor, L"Save");
    EXPECT_EQ(JobNames(program, false).back(), L"Long day");
    static_cast<void>(program.TakeOperations());
    program.Click(kList, L"Save");
    EXPECT_EQ(program.TakeOperations(), kStored);
    EXPECT_EQ(JobNames(program, true).size(), 4u);
    EXPECT_EQ(Line(AgentJobs(program).children[3]),
        L"Job_4[Name=Long day Description=<late> & \x00E9 EnabledFlag=Yes Schedule_4[StartTime=06:07:08 StartDate=09 "
        L"EndDate=31 Frequency_4[JobStart=Monthly Jan=No Feb=Yes Mar=No Apr=No May=No Jun=No Jul=No Aug=No Sep=No "
        L"Oct=No Nov=No Dec=Yes]] Action_4[PowerOn=Yes ApplyScheme=Office_Hours PowerOff_4[type=Hibernate idlefor=120 "
        L"AppSensor=No] RunTask_4[APP_41[Path=C:\\x (1)\\run.exe Parameters=-a \"b\" RDelay=60 REndTime=20:30:05]]]]");

    program.Edit(1);
    program.Set(kEditor, L"Job Name :", L"Backup");
    program.Click(kEditor, L"Update");
    EXPECT_EQ(JobNames(program, false)[1], L"Backup");
    program.Click(kList, L"Save");
    static_cast<void>(JobNames(program, true));

    SelectRow(program.Jobs(), 0);
    boxes.Expect({{L"Delete Job", {}, Answer::No},
        {L"Delete Job",
            L"If you delete the 'Morning wake up' job, all scheduled tasks associated with it will be "
            L"deleted.\n\nDo you want to continue?",
            Answer::Yes}});
    program.Click(kList, L"Delete Job");
    EXPECT_FALSE(program.Enabled(kList, L"Save"));
    program.Click(kList, L"Delete Job");
    program.Click(kList, L"OK");
    EXPECT_FALSE(program.IsOpen(kList));
    program.Open();
    EXPECT_EQ(JobNames(program, true), (Names{L"Backup", L"Quarter closing", L"Long day"}));
    EXPECT_EQ(AgentJobs(program).children[0].name, L"Job_1");

    boxes.Expect({{L"Delete all Jobs",
        L"Are you sure you want to remove all scheduled jobs from '" + ComputerName()
            + L"' System?\n\n All jobs and associated tasks will be deleted.",
        Answer::Yes}});
    program.Click(kList, L"Remove All Scheduled Jobs");
    EXPECT_EQ(JobNames(program, true), Names{});
    program.Click(kList, L"Cancel");
    program.Open();
    EXPECT_EQ(JobNames(program, true), Names{});
}

TEST(JobListWindowTest, WhatIsNotStoredIsKept)
{
    SchedulerProgram program;
    BoxScript boxes{{L"No Task Defined", {}, Answer::No}};
    program.Open();
    program.Add(L"Kept");
    program.Click(kEditor, L"Save");
    const int port = program.Agent().Port();
    // The scripted word stands for an agent that did not store what it got.
    const auto forget = [&program, before = AgentJobs(program)] {
        program.Agent().ClearScripts();
        program.Agent().WithMachine([&](simulator::Machine& machine) { machine.State().jobs = before; });
    };
    for (const wchar_t* button : {L"Save", L"OK"}) {
        program.Agent().ScriptReply(L"ApplySchedulerSettings", ReplyWith(L"<status>Failure</status>"));
        boxes.Expect({{L"Save failed", L"Unable to save the scheduled jobs."}});
        program.Click(kList, button);
        forget();
        program.Agent().WithMachine(
            [](simulator::Machine& machine) { machine.State().licence = simulator::Licence::Expired; });
        boxes.Expect({{L"Save failed", L"expired"}});
        program.Click(kList, button);
        program.Agent().WithMachine(
            [](simulator::Machine& machine) { machine.State().licence = simulator::Licence::Activated; });
        program.Agent().Stop();
        state.connected = true;
        boxes.Expect({{L"Connection Issue", {}}});
        program.Click(kList, button);
        EXPECT_TRUE(program.IsOpen(kList));
        ASSERT_TRUE(program.Agent().Start(port));
        EXPECT_EQ(JobNames(program, false).back(), L"Kept");
    }
    boxes.Expect({{L"Delete all Jobs", {}, Answer::Yes}, {L"Save failed", {}}});
    program.Agent().ScriptReply(L"ApplySchedulerSettings", L"<vltp>");
    program.Click(kList, L"Remove All Scheduled Jobs");
    forget();
    EXPECT_EQ(JobNames(program, false).size(), 4u);
    program.Click(kList, L"Save");
    EXPECT_EQ(JobNames(program, true).back(), L"Kept");
}

// An answer without a list opens nothing: an empty list on the screen would be stored with the next job.
TEST(JobListWindowTest, OddAnswers)
{
    constexpr struct {
        FaultKind kind;
        const wchar_t* argument;
        const wchar_t* box;
        int rows;
    } kRows[] = {
        {FaultKind::None, L"", nullptr, 3},
        {FaultKind::ByteByByte, L"", nullptr, 3},
        {FaultKind::LongTexts, L"400", nullptr, 3},
        {FaultKind::ManyElements, L"", L"Connection Issue", 0},
        {FaultKind::NotWellFormed, L"", L"Job Scheduler", 0},
        {FaultKind::Doctype, L"", L"Job Scheduler", 0},
        {FaultKind::Garbage, L"", L"Job Scheduler", 0},
        {FaultKind::Status, L"Success", L"Job Scheduler", 0},
        {FaultKind::Silent, L"", L"Connection Issue", 0},
        {FaultKind::CloseMidFrame, L"", L"Connection Issue", 0},
        {FaultKind::HugeLength, L"", L"Connection Issue", 0},
    };
    SchedulerProgram program;
    for (const auto& row : kRows) {
        SCOPED_TRACE(static_cast<int>(row.kind));
        BoxScript boxes{};
        if (row.box != nullptr)
            boxes.Expect({{row.box, {}}});
        state.connected = true;
        program.Agent().SetFault(L"GetCurrentSchedulerSettings", {row.kind, row.argument});
        program.Open();
        EXPECT_EQ(program.IsOpen(kList), row.box == nullptr);
        if (program.IsOpen(kList)) {
            EXPECT_EQ(RowCount(program.Jobs()), row.rows);
        }
        program.Click(kList, L"Cancel");
    }
    BoxScript boxes{{L"Delete all Jobs", {}, Answer::Yes}};
    program.Agent().ClearFaults();
    program.Open();
    program.Click(kList, L"Remove All Scheduled Jobs");
    program.Agent().ScriptReply(L"GetCurrentSchedulerSettings", ReplyWith(L"<details/>"));
    program.Click(kList, L"OK");
    program.Open();
    EXPECT_EQ(RowCount(program.Jobs()), 0);
}

TEST(JobListWindowTest, TenJobsAreTheLimit)
{
    SchedulerProgram program(L"manyjobs");
    BoxScript boxes{{L"Delete Job", {}, Answer::Yes}, {L"No Task Defined", {}, Answer::No}};
    const auto expectFull = [&](bool full) {
        EXPECT_EQ(IsShown(Labelled(WindowOf(kList), L"Add Job..")), !full);
        for (const wchar_t* line : {L"Voltaro users can schedule up to ten jobs. Ten jobs are already scheduled.",
                 L"Please delete one / more of the exisiting jobs, if you want to schedule new ones."}) {
            const HWND after = Labelled(WindowOf(kList), line);
            EXPECT_EQ(IsShown(GetWindow(after, GW_HWNDPREV)), full);
        }
    };
    program.Open();
    EXPECT_EQ(
        program.Row(program.Jobs(), 9, 7), L"Training day|Projector room|08:30:00|On Date(2027-02-01)|0|Standby|6 Hrs");
    expectFull(true);
    SelectRow(program.Jobs(), 4);
    program.Click(kList, L"Delete Job");
    expectFull(false);
    program.Add(L"Tenth");
    program.Click(kEditor, L"Save");
    expectFull(true);
    EXPECT_EQ(SelectedRow(program.Jobs()), 9);
}

TEST(JobListWindowTest, AsksBeforeChangesAreDropped)
{
    SchedulerProgram program;
    BoxScript boxes{};
    for (const auto close : {+[](SchedulerProgram& p) { p.Click(kList, L"Cancel"); },
             +[](SchedulerProgram&) { SendMessageW(WindowOf(kList), WM_CLOSE, 0, 0); }}) {
        program.Open();
        SelectRow(program.Jobs(), 2);
        boxes.Expect({{L"Delete Job", {}, Answer::Yes},
            {L"Changes not saved", L"Are you sure you want to cancel the changes?", Answer::No}});
        program.Click(kList, L"Delete Job");
        close(program);
        EXPECT_TRUE(program.IsOpen(kList));
        static_cast<void>(program.TakeOperations());
        program.Open(); // comes to the front, with the change
        EXPECT_EQ(program.TakeOperations(), Names{});
        EXPECT_EQ(JobNames(program, false).size(), 2u);
        boxes.Expect({{L"Changes not saved", {}, Answer::Yes}});
        close(program);
        EXPECT_FALSE(program.IsOpen(kList));
        program.Open();
        EXPECT_EQ(JobNames(program, true).size(), 3u);
        close(program);
    }
}

std::wstring shownTopic;

TEST(JobListWindowTest, KeyboardAndMouse)
{
    SchedulerProgram program;
    BoxScript boxes{};
    program.Open();
    EXPECT_FALSE(program.Enabled(kList, L"Modify Job..") || program.Enabled(kList, L"Delete Job"));
    EXPECT_EQ(GetFocus(), program.Jobs());
    Press(VK_DOWN);
    Press(VK_RETURN);
    EXPECT_EQ(program.Shown(kEditor, L"Job Name :"), L"Morning wake up");
    EXPECT_FALSE(IsWindowEnabled(WindowOf(kList)));
    Press(VK_ESCAPE);
    EXPECT_TRUE(IsWindowEnabled(WindowOf(kList)) && !program.IsOpen(kEditor));
    EXPECT_EQ(GetFocus(), program.Jobs());
    boxes.Expect({{L"Delete Job", L"'Morning wake up'", Answer::Yes}});
    Press(VK_DELETE);
    EXPECT_EQ(RowCount(program.Jobs()), 2);
    const NMITEMACTIVATE twice{
        {program.Jobs(), static_cast<UINT_PTR>(GetDlgCtrlID(program.Jobs())), NM_DBLCLK}, 0, 0, 0, 0, 0, {}, 0, 0};
    SendMessageW(WindowOf(kList), WM_NOTIFY, twice.hdr.idFrom, reinterpret_cast<LPARAM>(&twice));
    EXPECT_EQ(program.Shown(kEditor, L"Job Name :"), L"Nightly backup");
    program.Click(kEditor, L"Cancel");

    RECT cell{};
    ListView_GetItemRect(program.Jobs(), 1, &cell, LVIR_LABEL);
    SendMessageW(program.Jobs(), WM_MOUSEMOVE, 0, MAKELPARAM(cell.left + 5, cell.top + 5));
    EXPECT_STREQ(TooltipOf(program.Jobs()), L"This job is not enabled and does not run.");
    const HelpViewer viewer = helpViewer;
    helpViewer = [](HWND, const std::wstring& topic) { shownTopic = topic; };
    SendMessageW(WindowOf(kList), WM_HELP, 0, 0);
    helpViewer = viewer;
    EXPECT_TRUE(shownTopic.ends_with(L"\\docs\\help\\Voltaro_Help_SE.chm::/Job Scheduler.htm")) << shownTopic;
    boxes.Expect({{L"Changes not saved", {}, Answer::Yes}});
    Press(VK_ESCAPE);
    EXPECT_FALSE(program.IsOpen(kList));
}

} // namespace
} // namespace voltaro
