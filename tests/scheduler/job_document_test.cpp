#include "scheduler/job_document.h"

#include "base/text.h"
#include "support/element_line.h"

#include <gtest/gtest.h>

namespace voltaro {

static ScheduledJob Job(const std::wstring& name)
{
    ScheduledJob job;
    job.name = name;
    job.startTime = L"08:05:00";
    return job;
}

constexpr wchar_t kDaily[] = L"StartDate=NULL EndDate=NULL Frequency_1[JobStart=AST", kBare[] = L"RunTask_1[]";

TEST(JobDocumentTest, JobsBothWays)
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
        {L"t", [](J& j) { j.tasks = {{L"a.exe", L"-x", true, {L"60"}, L"17:00:00"}, {L"c"}}; },
            kDaily, L"RunTask_1[APP_11[Path=a.exe Parameters=-x RDelay=60 REndTime=17:00:00] "
            L"APP_12[Path=c Parameters= RDelay= REndTime=]]"},
        {L"all", [](J& j) { j.powerOn = j.applyScheme = j.powerOff = j.useAppSensor = true; j.schemeName = L"N_1";
            j.powerOffType = L"Shutdown"; j.idleMinutes = 30; }, kDaily,
            L"PowerOn=Yes ApplyScheme=N_1 PowerOff_1[type=Shutdown idlefor=30 AppSensor=Yes] RunTask_1[]"},
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
        const Element details = BuildJobList({job});
        EXPECT_EQ(Line(details),
            Format(L"details[Job_1[Name=%ls Description= EnabledFlag=No Schedule_1[StartTime=08:05:00 %ls]] "
                   L"Action_1[%ls]]]",
                row.name, row.schedule, row.action));
        EXPECT_TRUE(ReadJobList(details).jobs == ScheduledJobs{job}) << row.name;
    }
}

TEST(JobDocumentTest, TenJobsOfSevenTasksAndNoMore)
{
    ScheduledJobs jobs(11, Job(L"j"));
    for (ScheduledJob& job : jobs)
        job.tasks.assign(8, {L"a.exe"});
    Element details = BuildJobList(jobs);
    EXPECT_TRUE(details.children.size() == 10 && At(details, {9, 4, 0}).children.size() == 7);
    EXPECT_EQ(At(details, {9}).name + At(details, {9, 3, 3}).name + At(details, {9, 4, 0, 6}).name,
        L"Job_10Frequency_10APP_107");
    details.children.push_back(Element(details.children[0]));
    details.children[10].name = L"Job_11";
    std::vector<Element>& tasks = At(details, {0, 4, 0}).children;
    tasks.push_back(Element(tasks[0]));
    tasks[7].name = L"APP_18";
    const ReadJobs read = ReadJobList(details);
    EXPECT_TRUE(read.jobs.size() == 10 && read.droppedJobs == 1);
    EXPECT_TRUE(read.jobs[0].tasks.size() == 7 && read.droppedTasks == 1);
}

// One job with everything, and one thing at a time spoilt: less is read, never more. Places in a job: 0 name,
// 3 schedule (in it 3 frequency), 4 action (in it 0 power-off, 1 tasks).
TEST(JobDocumentTest, DamagedTreesInventNothing)
{
    ScheduledJob whole = Job(L"j");
    whole.kind = ScheduleKind::Weekly;
    whole.weekDays[0] = whole.weekDays[6] = whole.powerOff = true;
    whole.powerOffType = L"Off";
    whole.tasks = {{L"1"}, {L"2"}};
    using E = Element;
    using J = ScheduledJob;
    const auto none = [](J& j) { j.name.clear(); };
    const auto all = [](J&) {};
    const auto noSchedule = [](J& j) {
        j.startTime.clear();
        j.kind = {};
        j.weekDays = {};
    };
    // clang-format off
    const struct {
        void (*spoil)(E& details);
        void (*leave)(J& job); // an empty name: no job
        std::size_t droppedJobs = 0, droppedTasks = 0;
    } kRows[] = {
        {[](E& e) { At(e, {0}).name = L"Job_2"; },             none, 1},
        {[](E& e) { At(e, {0}).children.clear(); },            none, 1},
        {[](E& e) { At(e, {0, 0}).text.Clear(); },             none, 1},
        {[](E& e) { e.children.push_back({}); },               all, 1},
        {[](E& e) { e.children.push_back(E(e.children[0])); }, all, 1},
        {[](E& e) { At(e, {0, 3}).name = L"Schedule_2"; },     noSchedule},
        {[](E& e) { At(e, {0, 3, 3, 0}).text = L"Hourly"; },   [](J& j) { j.otherKind = L"Hourly"; j.kind = {}; j.weekDays = {}; }},
        {[](E& e) { At(e, {0, 3, 3}).children.resize(3); },    [](J& j) { j.weekDays[6] = false; }},
        {[](E& e) { At(e, {0}).children.resize(4); },          [](J& j) { j.powerOff = false; j.powerOffType.clear(); j.tasks.clear(); }},
        {[](E& e) { At(e, {0, 4, 0}).children.clear(); },      [](J& j) { j.powerOffType.clear(); }},
        {[](E& e) { At(e, {0, 4, 1, 0}).name = L"APP_21"; },   [](J& j) { j.tasks.erase(j.tasks.begin()); }, 0, 1},
        {[](E& e) { At(e, {0, 4, 1, 1, 0}).text.Clear(); },    [](J& j) { j.tasks.pop_back(); }, 0, 1},
    };
    // clang-format on
    for (const auto& row : kRows) {
        Element details = BuildJobList({whole});
        row.spoil(details);
        ScheduledJob left = whole;
        row.leave(left);
        const ReadJobs read = ReadJobList(details);
        EXPECT_TRUE(read.jobs == (left.name.empty() ? ScheduledJobs() : ScheduledJobs{left})) << Line(details);
        EXPECT_TRUE(read.droppedJobs == row.droppedJobs && read.droppedTasks == row.droppedTasks) << Line(details);
    }
}

} // namespace voltaro
