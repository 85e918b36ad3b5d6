#include "scheduler/job_document.h"
#include "scheduler/job_texts.h"
#include "support/expectations.h"

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
        {L"once", [](J& j) { j.kind = K::OnDate; j.startDate = j.endDate = L"2031-12-24"; }, L"StartDate=2031-12-24 EndDate=2031-12-24 Frequency_1[JobStart=AST"},
        {L"week", [](J& j) { j.kind = K::Weekly; j.weekDays[0] = j.weekDays[6] = true; },
            L"StartDate=NULL EndDate=NULL Frequency_1[JobStart=Weekly Sun=Yes Mon=No Tue=No Wed=No Thu=No Fri=No "
            L"Sat=Yes"},
        {L"month", [](J& j) { j.kind = K::Monthly; j.months[0] = true; j.startDate = L"1"; j.endDate = L"31"; },
            L"StartDate=1 EndDate=31 Frequency_1[JobStart=Monthly Jan=Yes Feb=No Mar=No Apr=No May=No Jun=No Jul=No "
            L"Aug=No Sep=No Oct=No Nov=No Dec=No"},
        {L"t", [](J& j) { j.tasks = {{L"a.exe", L"-x", true, {L"60"}, L"17:00:00"}, {L"c"}}; }, kDaily, L"RunTask_1[APP_11[Path=a.exe Parameters=-x RDelay=60 REndTime=17:00:00] "
            L"APP_12[Path=c Parameters= RDelay= REndTime=]]"},
        {L"all", [](J& j) { j.powerOn = j.applyScheme = j.powerOff = j.useAppSensor = true; j.schemeName = L"N_1";
            j.powerOffType = L"Shutdown"; j.idleMinutes = 30; }, kDaily,
            L"PowerOn=Yes ApplyScheme=N_1 PowerOff_1[type=Shutdown idlefor=30 AppSensor=Yes] RunTask_1[]"},
        {L"odd texts stay", [](J& j) { j.otherKind = L"Hourly"; j.startDate = L"5"; j.endDate = L""; j.powerOff = true;
            j.idleMinutes.text = L"05"; j.useAppSensor.text = L"1"; j.tasks = {{L"a", L"", true, {L"soon"}}}; },
            L"StartDate=5 EndDate= Frequency_1[JobStart=Hourly", L"PowerOff_1[type= idlefor=05 AppSensor=1] "
            L"RunTask_1[APP_11[Path=a Parameters= RDelay=soon REndTime=]]"},
        {L"<a & \"b\">", [](J& j) { j.tasks = {{L"\x00E9\x4E2D.exe", L"<&>\"' \x20AC"}}; }, kDaily, L"RunTask_1[APP_11[Path=\x00E9\x4E2D.exe Parameters=<&>\"' \x20AC RDelay= REndTime=]]"},
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
    details.children.push_back({L"Job_11", {}, details.children[0].children});
    std::vector<Element>& tasks = At(details, {0, 4, 0}).children;
    tasks.push_back({L"APP_18", {}, tasks[0].children});
    const ReadJobs read = ReadJobList(details);
    EXPECT_TRUE(read.jobs.size() == 10 && read.droppedJobs == 1);
    EXPECT_TRUE(read.jobs[0].tasks.size() == 7 && read.droppedTasks == 1);
}

// Less is read, never more. Places in a job: 0 name, 3 schedule (3 frequency), 4 action (0 power-off, 1 tasks).
TEST(JobDocumentTest, DamagedTreesInventNothing)
{
    ScheduledJob whole = Job(L"j");
    whole.kind = ScheduleKind::Weekly;
    whole.weekDays[0] = whole.weekDays[6] = whole.powerOff = true;
    whole.powerOffType = L"Off";
    whole.tasks = {{L"1"}, {L"2"}};
    using E = Element;
    using J = ScheduledJob;
    // clang-format off
    const struct {
        void (*spoil)(E& details);
        void (*leave)(J& job); // an empty name: no job
        std::size_t droppedJobs = 0, droppedTasks = 0;
    } kRows[] = {
        {[](E& e) { At(e, {0}).name = L"Job_2"; },           [](J& j) { j.name.clear(); }, 1},
        {[](E& e) { At(e, {0, 0}).text.Clear(); },           [](J& j) { j.name.clear(); }, 1},
        {[](E& e) { e.children.push_back({}); },             [](J&) {}, 1},
        {[](E& e) { At(e, {0, 3}).name = L"Schedule_2"; },   [](J& j) { j.startTime.clear(); j.kind = {}; j.weekDays = {}; }},
        {[](E& e) { At(e, {0, 3}).children.pop_back(); },    [](J& j) { j.otherKind = L""; j.kind = {}; j.weekDays = {}; }},
        {[](E& e) { At(e, {0, 3, 3, 0}).text = L"Hourly"; }, [](J& j) { j.otherKind = L"Hourly"; j.kind = {}; j.weekDays = {}; }},
        {[](E& e) { At(e, {0, 3, 3}).children.resize(3); },  [](J& j) { j.weekDays[6] = false; }},
        {[](E& e) { At(e, {0}).children.resize(4); },        [](J& j) { j.powerOff = false; j.powerOffType.clear(); j.tasks.clear(); }},
        {[](E& e) { At(e, {0, 4, 0}).children.clear(); },    [](J& j) { j.powerOffType.clear(); }},
        {[](E& e) { At(e, {0, 4, 1, 0}).name = L"APP_21"; }, [](J& j) { j.tasks.erase(j.tasks.begin()); }, 0, 1},
        {[](E& e) { At(e, {0, 4, 1, 1, 0}).text.Clear(); },  [](J& j) { j.tasks.pop_back(); }, 0, 1},
    };
    // clang-format on
    for (const auto& row : kRows) {
        Element details = BuildJobList({whole});
        row.spoil(details);
        ScheduledJob left = whole;
        row.leave(left);
        const ReadJobs read = ReadJobList(details);
        EXPECT_TRUE(read.jobs == (left.name.empty() ? ScheduledJobs() : ScheduledJobs{left})
            && read.droppedJobs == row.droppedJobs && read.droppedTasks == row.droppedTasks)
            << Line(details);
    }
}

TEST(JobTextsTest, TimesAndDates)
{
    EXPECT_TRUE(
        ParseTime(L"08:05:09") == std::chrono::seconds(29109) && ParseDate(L"2024-02-29") == DateOf({2024, 2, 29}));
    for (const wchar_t* text :
        {L"", L"08:05", L"24:00:00", L"08:60:00", L"08:05:60", L"08:05:00:00", L"-1:05:00", L"::", L"99999999999:0:0"})
        EXPECT_FALSE(ParseTime(text)) << text;
    for (const wchar_t* text : {L"NULL", L"2023-02-29", L"2024-13-01", L"2024-00-10", L"2024-04-31", L"2024-04-0"})
        EXPECT_FALSE(ParseDate(text)) << text;
}

// Asked on Wednesday the 28th of February 2024 at noon.
TEST(JobTextsTest, NextRuns)
{
    using K = ScheduleKind;
    constexpr wchar_t kNever[] = L"This job does not run again.", kUnknown[] = L"The next run is not known.";
    const struct {
        K kind;
        const wchar_t *startTime, *date; // OnDate; the first day of Monthly
        std::vector<std::size_t> chosen; // week days, Sunday 0; months, January 0
        const wchar_t* text;             // "*" for "Next run: "
        const wchar_t* lastDay = L"31";
    } kRows[] = {
        // clang-format off
        {K::Daily, L"12:00:01", L"", {}, L"*today at 12:00:01"}, {K::Daily, L"", L"", {}, kUnknown},
        {K::Daily, L"12:00:00", L"", {}, L"*tomorrow at 12:00:00"},
        {K::OnDate, L"13:00:00", L"2024-02-28", {}, L"*today at 13:00:00"},
        {K::OnDate, L"11:00:00", L"2024-02-28", {}, kNever}, {K::OnDate, L"11:00:00", L"2023-12-31", {}, kNever},
        {K::OnDate, L"11:00:00", L"2055-01-01", {}, L"*Friday, 2055-01-01 at 11:00:00"},
        {K::OnDate, L"11:00:00", L"garbage", {}, kUnknown}, {K::Weekly, L"11:00:00", L"", {}, kNever},
        {K::Weekly, L"11:00:00", L"", {3}, L"*Wednesday, 2024-03-06 at 11:00:00"},
        {K::Weekly, L"11:00:00", L"", {0, 5}, L"*Friday, 2024-03-01 at 11:00:00"},
        {K::Monthly, L"11:00:00", L"01", {1}, L"*tomorrow at 11:00:00"},
        {K::Monthly, L"11:00:00", L"01", {1}, L"*Saturday, 2025-02-01 at 11:00:00", L"28"},
        {K::Monthly, L"11:00:00", L"31", {3, 4}, L"*Friday, 2024-05-31 at 11:00:00"},
        {K::Monthly, L"11:00:00", L"30", {1}, kNever}, {K::Monthly, L"11:00:00", L"20", {0}, kUnknown, L"10"},
        // clang-format on
    };
    for (const auto& row : kRows) {
        ScheduledJob job;
        job.enabled = true;
        job.kind = row.kind;
        job.startTime = row.startTime;
        job.startDate = row.date;
        job.endDate = row.lastDay;
        for (const std::size_t i : row.chosen)
            (row.kind == K::Weekly ? job.weekDays[i] : job.months[i]) = true;
        const std::wstring text = row.text[0] == L'*' ? L"Next run: " + std::wstring(row.text + 1) : row.text;
        EXPECT_EQ(NextRunText(job, {2024, 2, 28, 12}), text) << row.date;
        job.enabled = false;
        EXPECT_EQ(NextRunText(job, {2024, 2, 28, 12}), L"This job is not enabled and does not run.");
    }
}

} // namespace voltaro
