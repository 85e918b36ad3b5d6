#include "scheduler/job_document.h"

#include "base/text.h"
#include "support/element_line.h"

#include <gtest/gtest.h>

namespace voltaro {

// A job's line, of its number, its name, the schedule after the start time and the actions.
static std::wstring JobLine(
    const std::wstring& n, const std::wstring& name, const std::wstring& schedule, const std::wstring& action)
{
    return L"Job_" + n + L"[Name=" + name + L" Description= EnabledFlag=No Schedule_" + n + L"[StartTime=08:05:00 "
        + schedule + L"]] Action_" + n + L"[" + action + L"]]";
}

static ScheduledJob Job(const std::wstring& name)
{
    ScheduledJob job;
    job.name = name;
    job.startTime = L"08:05:00";
    return job;
}

static void ExpectBothWays(const ScheduledJobs& jobs, const std::wstring& line)
{
    const Element details = BuildJobList(jobs);
    EXPECT_EQ(Line(details), L"details[" + line + L"]");
    const ReadJobs read = ReadJobList(details);
    EXPECT_TRUE(read.jobs == jobs) << line;
    EXPECT_EQ(read.droppedJobs + read.droppedTasks, 0u);
}

constexpr wchar_t kDaily[] = L"StartDate=NULL EndDate=NULL Frequency_1[JobStart=AST", kBare[] = L"RunTask_1[]";

TEST(JobDocumentTest, SmallListsBothWays)
{
    using J = ScheduledJob;
    using K = ScheduleKind;
    // clang-format off
    const struct {
        const wchar_t* name;
        void (*change)(J& job);
        const wchar_t* schedule = kDaily;
        const wchar_t* action = kBare;
    } kRows[] = {
        {L"a b", [](J&) {}},
        {L"once", [](J& j) { j.kind = K::OnDate; j.startDate = j.endDate = L"2031-12-24"; },
            L"StartDate=2031-12-24 EndDate=2031-12-24 Frequency_1[JobStart=AST"},
        {L"week", [](J& j) { j.kind = K::Weekly; j.weekDays[0] = j.weekDays[6] = true; },
            L"StartDate=NULL EndDate=NULL Frequency_1[JobStart=Weekly Sun=Yes Mon=No Tue=No Wed=No Thu=No Fri=No "
            L"Sat=Yes"},
        {L"month", [](J& j) { j.kind = K::Monthly; j.months[0] = true; j.startDate = L"1"; j.endDate = L"31"; },
            L"StartDate=1 EndDate=31 Frequency_1[JobStart=Monthly Jan=Yes Feb=No Mar=No Apr=No May=No Jun=No Jul=No "
            L"Aug=No Sep=No Oct=No Nov=No Dec=No"},
        {L"x", [](J& j) { j.applyScheme = true; j.schemeName = L"N_1"; }, kDaily, L"ApplyScheme=N_1 RunTask_1[]"},
        {L"t", [](J& j) { j.tasks = {{L"a.exe", L"-x", true, {L"60"}, L"17:00:00"}, {L"b.exe", L"", true, {L"100"}}, {L"c"}}; },
            kDaily, L"RunTask_1[APP_11[Path=a.exe Parameters=-x RDelay=60 REndTime=17:00:00] "
            L"APP_12[Path=b.exe Parameters= RDelay=100 REndTime=] APP_13[Path=c Parameters= RDelay= REndTime=]]"},
        {L"all", [](J& j) { j.powerOn = j.applyScheme = j.powerOff = true; j.tasks = {{L"a"}}; }, kDaily,
            L"PowerOn=Yes ApplyScheme= PowerOff_1[type= idlefor=0 AppSensor=No] "
            L"RunTask_1[APP_11[Path=a Parameters= RDelay= REndTime=]]"},
        {L"wake", [](J& j) { j.powerOn = true; }, kDaily, L"PowerOn=Yes RunTask_1[]"},
        {L"off", [](J& j) { j.powerOff = j.useAppSensor = true; j.powerOffType = L"Shutdown"; j.idleMinutes = 30; },
            kDaily, L"PowerOff_1[type=Shutdown idlefor=30 AppSensor=Yes] RunTask_1[]"},
        {L"odd texts stay", [](J& j) { j.otherKind = L"Hourly"; j.startDate = L"5"; j.endDate = L""; j.powerOff = true;
            j.idleMinutes.text = L"05"; j.useAppSensor.text = L"1"; j.tasks = {{L"a", L"", true, {L"soon"}}}; },
            L"StartDate=5 EndDate= Frequency_1[JobStart=Hourly", L"PowerOff_1[type= idlefor=05 AppSensor=1] "
            L"RunTask_1[APP_11[Path=a Parameters= RDelay=soon REndTime=]]"},
        {L"<a & \"b\">", [](J& j) { j.tasks = {{L"\x00E9\x4E2D.exe", L"<&>\"' \x20AC"}}; }, kDaily,
            L"RunTask_1[APP_11[Path=\x00E9\x4E2D.exe Parameters=<&>\"' \x20AC RDelay= REndTime=]]"},
    };
    // clang-format on
    for (const auto& row : kRows) {
        ScheduledJob job = Job(row.name);
        row.change(job);
        ExpectBothWays({job}, JobLine(L"1", row.name, row.schedule, row.action));
    }
    ExpectBothWays({}, L"");
    ScheduledJob second = Job(L"on");
    second.enabled = true;
    second.description = L"each day";
    ExpectBothWays({Job(L"one"), second},
        JobLine(L"1", L"one", kDaily, kBare)
            + L" Job_2[Name=on Description=each day EnabledFlag=Yes Schedule_2[StartTime=08:05:00 StartDate=NULL "
              L"EndDate=NULL Frequency_2[JobStart=AST]] Action_2[RunTask_2[]]]");
}

TEST(JobDocumentTest, TenJobsOfSevenTasksAndNoMore)
{
    ScheduledJobs jobs;
    for (int n = 1; n <= 10; ++n) {
        jobs.push_back(Job(std::to_wstring(n)));
        for (int k = 1; k <= 7; ++k)
            jobs.back().tasks.push_back({Format(L"%d-%d", n, k)});
    }
    Element details = BuildJobList(jobs);
    EXPECT_TRUE(ReadJobList(details).jobs == jobs);
    EXPECT_EQ(At(details, {9, 3}).name + At(details, {9, 3, 3}).name, L"Schedule_10Frequency_10");
    EXPECT_EQ(At(details, {9, 4}).name + At(details, {9, 4, 0}).name, L"Action_10RunTask_10");
    EXPECT_EQ(Line(At(details, {9, 4, 0, 6})), L"APP_107[Path=10-7 Parameters= RDelay= REndTime=]");

    jobs[0].tasks.push_back({L"eighth.exe"});
    jobs.push_back(Job(L"eleventh"));
    EXPECT_TRUE(BuildJobList(jobs) == details);
    Element larger = details;
    larger.children.push_back(Element(larger.children[0]));
    larger.children.back().name = L"Job_11";
    Element& tasks = At(larger, {0, 4, 0});
    tasks.children.push_back(Element(tasks.children[0]));
    tasks.children.back().name = L"APP_18";
    const ReadJobs read = ReadJobList(larger);
    EXPECT_TRUE(BuildJobList(read.jobs) == details && read.droppedJobs == 1 && read.droppedTasks == 1);
}

// A list in short: each job's name, start time and number of chosen week days, then its tasks.
static std::wstring Short(const ScheduledJobs& jobs)
{
    std::wstring text;
    for (const ScheduledJob& job : jobs) {
        const auto days = std::to_wstring(std::count(job.weekDays.begin(), job.weekDays.end(), true));
        text += std::wstring(job.name) + L" " + std::wstring(job.startTime) + L" "
            + (job.kind == ScheduleKind::Weekly ? days : L"daily") + (job.powerOff ? L" off=" : L"")
            + std::wstring(job.powerOffType);
        for (const ScheduledTask& task : job.tasks)
            text += L" " + std::wstring(task.path);
        text += L";";
    }
    return text;
}

// One job with everything, and one thing at a time spoilt: less is read, never more. Places in a job: 0 name,
// 3 schedule (in it 3 frequency), 4 action (in it 0 power-off, 1 tasks).
TEST(JobDocumentTest, DamagedTreesInventNothing)
{
    ScheduledJob whole = Job(L"j");
    whole.kind = ScheduleKind::Weekly;
    whole.weekDays[0] = whole.weekDays[6] = whole.powerOff = true;
    whole.powerOffType = L"Off";
    whole.startTime = L"8";
    whole.tasks = {{L"1"}, {L"2"}};
    using E = Element;
    // clang-format off
    const struct {
        void (*spoil)(E& details);
        const wchar_t* left;
        std::size_t droppedJobs = 0, droppedTasks = 0;
    } kRows[] = {
        {[](E& e) { At(e, {0}).name = L"Job_2"; },             L"", 1},
        {[](E& e) { At(e, {0}).children.clear(); },            L"", 1},
        {[](E& e) { At(e, {0, 0}).text.Clear(); },             L"", 1},
        {[](E& e) { e.children.push_back({}); },               L"j 8 2 off=Off 1 2;", 1},
        {[](E& e) { e.children.push_back(E(e.children[0])); }, L"j 8 2 off=Off 1 2;", 1},
        {[](E& e) { At(e, {0, 3}).children.clear(); },         L"j  daily off=Off 1 2;"},
        {[](E& e) { At(e, {0, 3}).name = L"Schedule_2"; },     L"j  daily off=Off 1 2;"},
        {[](E& e) { At(e, {0, 3, 3, 0}).text = L"Hourly"; },   L"j 8 daily off=Off 1 2;"},
        {[](E& e) { At(e, {0, 3, 3}).children.resize(3); },    L"j 8 1 off=Off 1 2;"},
        {[](E& e) { At(e, {0}).children.resize(4); },          L"j 8 2;"},
        {[](E& e) { At(e, {0, 4, 0}).children.clear(); },      L"j 8 2 off= 1 2;"},
        {[](E& e) { At(e, {0, 4, 1, 0}).name = L"APP_21"; },   L"j 8 2 off=Off 2;", 0, 1},
        {[](E& e) { At(e, {0, 4, 1, 1, 0}).text.Clear(); },    L"j 8 2 off=Off 1;", 0, 1},
    };
    // clang-format on
    for (const auto& row : kRows) {
        Element details = BuildJobList({whole});
        row.spoil(details);
        const ReadJobs read = ReadJobList(details);
        EXPECT_EQ(Short(read.jobs), row.left) << Line(details);
        EXPECT_TRUE(read.droppedJobs == row.droppedJobs && read.droppedTasks == row.droppedTasks) << Line(details);
    }
}

} // namespace voltaro
