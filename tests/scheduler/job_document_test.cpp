#include "scheduler/job_document.h"

#include "base/text.h"
#include "support/element_line.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

// A job's line, of its number, its name, the schedule after the start time and the actions.
std::wstring JobLine(
    const std::wstring& n, const std::wstring& name, const std::wstring& schedule, const std::wstring& action)
{
    return L"Job_" + n + L"[Name=" + name + L" Description= EnabledFlag=No Schedule_" + n + L"[StartTime=08:05:00 "
        + schedule + L"]] Action_" + n + L"[" + action + L"]]";
}

ScheduledJob Job(const std::wstring& name)
{
    ScheduledJob job;
    job.name = name;
    job.startTime = L"08:05:00";
    return job;
}

void ExpectBothWays(const ScheduledJobs& jobs, const std::wstring& line)
{
    const Element details = BuildJobList(jobs);
    EXPECT_EQ(Line(details), L"details[" + line + L"]");
    const ReadJobs read = ReadJobList(details);
    EXPECT_TRUE(read.jobs == jobs) << line;
    EXPECT_EQ(read.droppedJobs + read.droppedTasks, 0u);
}

constexpr wchar_t kDaily[] = L"StartDate=NULL EndDate=NULL Frequency_1[JobStart=AST";

TEST(JobDocumentTest, SmallListsBothWays)
{
    using J = ScheduledJob;
    using K = ScheduleKind;
    // clang-format off
    const struct {
        const wchar_t* name;
        void (*change)(J& job);
        const wchar_t* schedule;
        const wchar_t* action;
    } kRows[] = {
        {L"a b", [](J&) {}, kDaily, L"RunTask_1[]"},
        {L"once", [](J& j) { j.kind = K::OnDate; j.date = L"2031-12-24"; },
            L"StartDate=2031-12-24 EndDate=2031-12-24 Frequency_1[JobStart=AST", L"RunTask_1[]"},
        {L"week", [](J& j) { j.kind = K::Weekly; j.weekDays[0] = j.weekDays[6] = true; },
            L"StartDate=NULL EndDate=NULL Frequency_1[JobStart=Weekly Sun=Yes Mon=No Tue=No Wed=No Thu=No Fri=No "
            L"Sat=Yes", L"RunTask_1[]"},
        {L"month",
            [](J& j) { j.kind = K::Monthly; j.months[0] = true; j.monthStartDay = L"01"; j.monthEndDay = L"31"; },
            L"StartDate=01 EndDate=31 Frequency_1[JobStart=Monthly Jan=Yes Feb=No Mar=No Apr=No May=No Jun=No Jul=No "
            L"Aug=No Sep=No Oct=No Nov=No Dec=No", L"RunTask_1[]"},
        {L"wake", [](J& j) { j.powerOn = true; }, kDaily, L"PowerOn=Yes RunTask_1[]"},
        {L"scheme", [](J& j) { j.applyScheme = true; j.schemeName = L"Night_1"; }, kDaily,
            L"ApplyScheme=Night_1 RunTask_1[]"},
        {L"no scheme name", [](J& j) { j.applyScheme = true; }, kDaily, L"ApplyScheme= RunTask_1[]"},
        {L"off", [](J& j) { j.powerOff = true; j.powerOffType = L"Standby"; j.idleMinutes = 45; }, kDaily,
            L"PowerOff_1[type=Standby idlefor=45 AppSensor=No] RunTask_1[]"},
        {L"seven minutes are no choice, and stay", [](J& j) { j.powerOff = j.useAppSensor = true; j.idleMinutes = 7; },
            kDaily, L"PowerOff_1[type= idlefor=7 AppSensor=Yes] RunTask_1[]"},
        {L"tasks",
            [](J& j) { j.tasks = {{L"a.exe", L"-x", true, 60, L"17:00:00"}, {L"b.exe", L"", true, 100}, {L"c.bat"}}; },
            kDaily, L"RunTask_1[APP_11[Path=a.exe Parameters=-x RDelay=60 REndTime=17:00:00] "
            L"APP_12[Path=b.exe Parameters= RDelay=100 REndTime=] APP_13[Path=c.bat Parameters= RDelay= REndTime=]]"},
        {L"all", [](J& j) { j.powerOn = j.applyScheme = j.powerOff = true; j.tasks = {{L"a.bat"}}; }, kDaily,
            L"PowerOn=Yes ApplyScheme= PowerOff_1[type= idlefor=0 AppSensor=No] "
            L"RunTask_1[APP_11[Path=a.bat Parameters= RDelay= REndTime=]]"},
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
    ScheduledJob first = Job(L"on");
    first.enabled = true;
    first.description = L"each day";
    ExpectBothWays({first, Job(L"two")},
        L"Job_1[Name=on Description=each day EnabledFlag=Yes Schedule_1[StartTime=08:05:00 StartDate=NULL EndDate=NULL "
        L"Frequency_1[JobStart=AST]] Action_1[RunTask_1[]]] "
            + JobLine(L"2", L"two", L"StartDate=NULL EndDate=NULL Frequency_2[JobStart=AST", L"RunTask_2[]"));
}

TEST(JobDocumentTest, TenJobsOfSevenTasksAndNoMore)
{
    ScheduledJobs jobs;
    std::wstring line;
    for (const std::wstring n : {L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9", L"10"}) {
        jobs.push_back(Job(n));
        std::wstring tasks;
        for (const std::wstring k : {L"1", L"2", L"3", L"4", L"5", L"6", L"7"}) {
            jobs.back().tasks.push_back(
                {std::wstring_view(Format(L"%ls-%ls", n.c_str(), k.c_str())), std::wstring_view(k)});
            tasks += Format(L" APP_%ls%ls[Path=%ls-%ls Parameters=%ls RDelay= REndTime=]", n.c_str(), k.c_str(),
                n.c_str(), k.c_str(), k.c_str());
        }
        const std::wstring schedule = Format(L"StartDate=NULL EndDate=NULL Frequency_%ls[JobStart=AST", n.c_str());
        const std::wstring action = Format(L"RunTask_%ls[%ls]", n.c_str(), tasks.c_str() + 1);
        line += L" " + JobLine(n, n, schedule, action);
    }
    ExpectBothWays(jobs, line.substr(1));
    EXPECT_NE(line.find(L"APP_107[Path=10-7 "), line.npos);

    const Element details = BuildJobList(jobs);
    jobs[0].tasks.push_back({L"eighth.exe"});
    jobs.push_back(Job(L"eleventh"));
    EXPECT_TRUE(BuildJobList(jobs) == details);
    Element larger = details;
    larger.children.push_back(Element(larger.children[0]));
    larger.children.back().name = L"Job_11";
    Element& tasks = larger.children[0].children[4].children[0];
    tasks.children.push_back(Element(tasks.children[0]));
    tasks.children.back().name = L"APP_18";
    const ReadJobs read = ReadJobList(larger);
    EXPECT_TRUE(BuildJobList(read.jobs) == details);
    EXPECT_EQ(read.droppedJobs, 1u);
    EXPECT_EQ(read.droppedTasks, 1u);
}

// The element at that way of child places.
Element& At(Element& element, std::initializer_list<std::size_t> way)
{
    Element* here = &element;
    for (const std::size_t place : way)
        here = &here->children[place];
    return *here;
}

// A list in short: each job's name, start time and number of chosen week days, then its tasks.
std::wstring Short(const ScheduledJobs& jobs)
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
    whole.weekDays[0] = whole.weekDays[6] = true;
    whole.powerOff = true;
    whole.powerOffType = L"Off";
    whole.tasks = {{L"1.exe"}, {L"2.exe"}};
    using E = Element;
    // clang-format off
    const struct {
        void (*spoil)(E& details);
        const wchar_t* left;
        std::size_t droppedJobs, droppedTasks;
    } kRows[] = {
        {[](E& e) { At(e, {0}).name = L"Job_2"; },                     L"", 1, 0},
        {[](E& e) { At(e, {0}).name = L"Job_"; },                      L"", 1, 0},
        {[](E& e) { At(e, {0}).children.clear(); },                    L"", 1, 0},
        {[](E& e) { At(e, {0, 0}).text.clear(); },                     L"", 1, 0},
        {[](E& e) { e.children.push_back({}); },                       L"j 08:05:00 2 off=Off 1.exe 2.exe;", 1, 0},
        {[](E& e) { e.children.push_back(E(e.children[0])); },         L"j 08:05:00 2 off=Off 1.exe 2.exe;", 1, 0},
        {[](E& e) { At(e, {0, 3}).children.clear(); },                 L"j  daily off=Off 1.exe 2.exe;", 0, 0},
        {[](E& e) { At(e, {0, 3}).name = L"Schedule_2"; },             L"j  daily off=Off 1.exe 2.exe;", 0, 0},
        {[](E& e) { At(e, {0, 3, 3, 0}).text = L"Hourly"; },           L"j 08:05:00 daily off=Off 1.exe 2.exe;", 0, 0},
        {[](E& e) { At(e, {0, 3, 3}).children.resize(3); },            L"j 08:05:00 1 off=Off 1.exe 2.exe;", 0, 0},
        {[](E& e) { At(e, {0}).children.resize(4); },                  L"j 08:05:00 2;", 0, 0},
        {[](E& e) { At(e, {0, 4, 0}).children.clear(); },              L"j 08:05:00 2 off= 1.exe 2.exe;", 0, 0},
        {[](E& e) { At(e, {0, 4, 1, 0}).name = L"APP_21"; },           L"j 08:05:00 2 off=Off 2.exe;", 0, 1},
        {[](E& e) { At(e, {0, 4, 1, 1, 0}).text.clear(); },            L"j 08:05:00 2 off=Off 1.exe;", 0, 1},
    };
    // clang-format on
    for (const auto& row : kRows) {
        Element details = BuildJobList({whole});
        row.spoil(details);
        const ReadJobs read = ReadJobList(details);
        EXPECT_EQ(Short(read.jobs), row.left) << Line(details);
        EXPECT_EQ(read.droppedJobs, row.droppedJobs) << Line(details);
        EXPECT_EQ(read.droppedTasks, row.droppedTasks) << Line(details);
    }
}

} // namespace
} // namespace voltaro
