#include "scheduler/job_document.h"

#include <gtest/gtest.h>

#include <functional>

namespace voltaro {
namespace {

// A tree on one line: "name=text" for a text, "name[child child]" for an element that holds elements. A text is shown
// as it is.
std::wstring Line(const Element& element)
{
    const bool parent
        = element.children.size() > 0 || element.name == L"details" || element.name.starts_with(L"RunTask");
    if (!parent)
        return element.name + L"=" + element.text;
    std::wstring line = element.name + L"[";
    for (const Element& child : element.children)
        line += (line.back() == L'[' ? L"" : L" ") + Line(child);
    return line + L"]";
}

ScheduledJob Job(const wchar_t* name, ScheduleKind kind = ScheduleKind::Daily)
{
    ScheduledJob job;
    job.name = name;
    job.startTime = L"08:05:00";
    job.kind = kind;
    return job;
}

ScheduledJob With(ScheduledJob job, const std::function<void(ScheduledJob&)>& change)
{
    change(job);
    return job;
}

ScheduledTask Task(
    const wchar_t* path, const wchar_t* parameters = L"", std::int32_t delay = 0, const wchar_t* end = L"")
{
    return {path, parameters, delay != 0, delay, end};
}

// The parts that most jobs share.
#define HEAD(n, name) L"Job_" n L"[Name=" name L" Description= EnabledFlag=No Schedule_" n L"[StartTime=08:05:00 "
#define DAILY(n, name) HEAD(n, name) L"StartDate=NULL EndDate=NULL Frequency_" n L"[JobStart=AST]] Action_" n
#define IDLE(n, name) DAILY(n, name) L"[RunTask_" n L"[]]]"

struct Case {
    JobList jobs;
    std::wstring line; // of the details element
};

std::vector<Case> Cases()
{
    const auto once = [](ScheduledJob& job) { job.date = L"2031-12-24"; };
    const auto weekly = [](ScheduledJob& job) { job.weekDays = {true, false, false, false, false, false, true}; };
    const auto monthly = [](ScheduledJob& job) {
        job.months[0] = job.months[11] = true;
        job.monthStartDay = L"01";
        job.monthEndDay = L"31";
    };
    const auto powerOff = [](const wchar_t* type, std::int32_t minutes, bool sensor) {
        return [=](ScheduledJob& job) {
            job.powerOff = true;
            job.powerOffType = type;
            job.idleMinutes = minutes;
            job.useAppSensor = sensor;
        };
    };
    const auto tasks = [](std::vector<ScheduledTask> list) { return [=](ScheduledJob& job) { job.tasks = list; }; };
    return {
        {{}, L"details[]"},
        {{Job(L"a b")}, L"details[" IDLE(L"1", L"a b") L"]"},
        {{With(Job(L"on"),
             [](ScheduledJob& job) {
                 job.enabled = true;
                 job.description = L"each day";
             })},
            L"details[Job_1[Name=on Description=each day EnabledFlag=Yes Schedule_1[StartTime=08:05:00 StartDate=NULL "
            L"EndDate=NULL Frequency_1[JobStart=AST]] Action_1[RunTask_1[]]]]"},
        {{With(Job(L"once", ScheduleKind::OnDate), once)},
            L"details[" HEAD(L"1", L"once") L"StartDate=2031-12-24 EndDate=2031-12-24 Frequency_1[JobStart=AST]] "
                                            L"Action_1[RunTask_1[]]]]"},
        {{With(Job(L"week", ScheduleKind::Weekly), weekly)},
            L"details[" HEAD(
                L"1", L"week") L"StartDate=NULL EndDate=NULL Frequency_1[JobStart=Weekly Sun=Yes Mon=No Tue=No "
                               L"Wed=No Thu=No Fri=No Sat=Yes]] Action_1[RunTask_1[]]]]"},
        {{With(Job(L"month", ScheduleKind::Monthly), monthly)},
            L"details[" HEAD(
                L"1", L"month") L"StartDate=01 EndDate=31 Frequency_1[JobStart=Monthly Jan=Yes Feb=No Mar=No "
                                L"Apr=No May=No Jun=No Jul=No Aug=No Sep=No Oct=No Nov=No Dec=Yes]] "
                                L"Action_1[RunTask_1[]]]]"},
        {{With(Job(L"wake"), [](ScheduledJob& job) { job.powerOn = true; })},
            L"details[" DAILY(L"1", L"wake") L"[PowerOn=Yes RunTask_1[]]]]"},
        {{With(Job(L"scheme"),
             [](ScheduledJob& job) {
                 job.applyScheme = true;
                 job.schemeName = L"Night_1";
             })},
            L"details[" DAILY(L"1", L"scheme") L"[ApplyScheme=Night_1 RunTask_1[]]]]"},
        {{With(Job(L"noname"), [](ScheduledJob& job) { job.applyScheme = true; })},
            L"details[" DAILY(L"1", L"noname") L"[ApplyScheme= RunTask_1[]]]]"},
        {{With(Job(L"off"), powerOff(L"Standby", 45, false))},
            L"details[" DAILY(L"1", L"off") L"[PowerOff_1[type=Standby idlefor=45 AppSensor=No] RunTask_1[]]]]"},
        {{With(Job(L"off"), powerOff(L"Restart", 120, true))},
            L"details[" DAILY(L"1", L"off") L"[PowerOff_1[type=Restart idlefor=120 AppSensor=Yes] RunTask_1[]]]]"},
        {{With(Job(L"all", ScheduleKind::OnDate),
             [&](ScheduledJob& job) {
                 once(job);
                 powerOff(L"Hibernate", 7, false)(job); // seven minutes are no choice, and stay
                 job.powerOn = job.applyScheme = true;
                 job.schemeName = L"s";
                 job.tasks = {Task(L"C:\\a.bat")};
             })},
            L"details[" HEAD(L"1", L"all") L"StartDate=2031-12-24 EndDate=2031-12-24 Frequency_1[JobStart=AST]] "
                                           L"Action_1[PowerOn=Yes ApplyScheme=s "
                                           L"PowerOff_1[type=Hibernate idlefor=7 AppSensor=No] "
                                           L"RunTask_1[APP_11[Path=C:\\a.bat Parameters= RDelay= REndTime=]]]]]"},
        {{With(Job(L"run"), tasks({Task(L"a.exe", L"-x", 60, L"17:00:00"), Task(L"b.exe", L"", 100), Task(L"c.bat")}))},
            L"details[" DAILY(L"1", L"run") L"[RunTask_1[APP_11[Path=a.exe Parameters=-x RDelay=60 REndTime=17:00:00] "
                                            L"APP_12[Path=b.exe Parameters= RDelay=100 REndTime=] "
                                            L"APP_13[Path=c.bat Parameters= RDelay= REndTime=]]]]]"},
        {{Job(L"first"), With(Job(L"second", ScheduleKind::Weekly), [](ScheduledJob& job) { job.weekDays.fill(true); }),
             With(Job(L"third"), tasks({Task(L"x.exe")}))},
            L"details[" IDLE(L"1", L"first") L" " HEAD(
                L"2", L"second") L"StartDate=NULL EndDate=NULL Frequency_2[JobStart=Weekly Sun=Yes Mon=Yes Tue=Yes "
                                 L"Wed=Yes Thu=Yes Fri=Yes "
                                 L"Sat=Yes]] Action_2[RunTask_2[]]] " DAILY(L"3",
                                     L"third") L"[RunTask_3[APP_31[Path=x.exe Parameters= RDelay= REndTime=]]]]]"},
        {{With(Job(L"<a & \"b\">"), tasks({Task(L"x.exe", L"<&>\"'", 5), Task(L"\x00E9\x4E2D.exe", L"\x20AC")}))},
            L"details[" DAILY(
                L"1", L"<a & \"b\">") L"[RunTask_1[APP_11[Path=x.exe Parameters=<&>\"' RDelay=5 REndTime=] "
                                      L"APP_12[Path=\x00E9\x4E2D.exe Parameters=\x20AC RDelay= REndTime=]]]]]"},
    };
}

TEST(JobDocumentTest, DocumentsBothWays)
{
    for (const Case& row : Cases()) {
        const Element details = BuildJobList(row.jobs);
        EXPECT_EQ(Line(details), row.line);
        const ReadJobs read = ReadJobList(details);
        EXPECT_TRUE(read.jobs == row.jobs) << Line(BuildJobList(read.jobs)).c_str();
        EXPECT_EQ(read.droppedJobs + read.droppedTasks, 0u);
    }
}

TEST(JobDocumentTest, TenJobsOfSevenTasks)
{
    JobList jobs;
    std::wstring line;
    for (std::wstring n : {L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9", L"10"}) {
        ScheduledJob job = Job(n.c_str());
        line += L" Job_" + n + L"[Name=" + n + L" Description= EnabledFlag=No Schedule_" + n
            + L"[StartTime=08:05:00 StartDate=NULL EndDate=NULL Frequency_" + n + L"[JobStart=AST]] Action_" + n
            + L"[RunTask_" + n + L"[";
        for (std::wstring k : {L"1", L"2", L"3", L"4", L"5", L"6", L"7"}) {
            job.tasks.push_back(Task((n + L"-" + k + L".exe").c_str(), k.c_str()));
            line += (k == L"1" ? L"APP_" : L" APP_") + n + k + L"[Path=" + n + L"-" + k + L".exe Parameters=" + k
                + L" RDelay= REndTime=]";
        }
        line += L"]]]";
        jobs.push_back(job);
    }
    const Element details = BuildJobList(jobs);
    EXPECT_EQ(Line(details), L"details[" + line.substr(1) + L"]");
    const Element* tenth = FindChild(*FindChild(details.children[9], L"Action_10"), L"RunTask_10");
    EXPECT_EQ(tenth->children[6].name, L"APP_107");
    EXPECT_TRUE(ReadJobList(details).jobs == jobs);

    // Beyond the limits nothing is written, and nothing read.
    jobs[0].tasks.push_back(Task(L"eighth.exe"));
    jobs.push_back(Job(L"eleventh"));
    EXPECT_TRUE(BuildJobList(jobs) == details);
    Element larger = details;
    larger.children.push_back(larger.children[0]);
    larger.children.back().name = L"Job_11";
    Element& tasks = larger.children[0].children[4].children[0];
    tasks.children.push_back(tasks.children[0]);
    tasks.children.back().name = L"APP_18";
    const ReadJobs read = ReadJobList(larger);
    EXPECT_TRUE(BuildJobList(read.jobs) == details);
    EXPECT_EQ(read.droppedJobs, 1u);
    EXPECT_EQ(read.droppedTasks, 1u);
}

// One job with everything, then one thing at a time spoilt.
TEST(JobDocumentTest, DamagedTreesInventNothing)
{
    ScheduledJob whole = Job(L"whole", ScheduleKind::Weekly);
    whole.enabled = whole.powerOn = whole.powerOff = true;
    whole.weekDays.fill(true);
    whole.powerOffType = L"Shutdown";
    whole.tasks = {Task(L"1.exe"), Task(L"2.exe")};
    enum { Name, Description, Enabled, Schedule, Action };
    enum { StartTime, StartDate, EndDate, Frequency };
    enum { PowerOn, PowerOff, RunTask };
    const struct {
        const char* what;
        std::function<void(Element& details, Element& job)> spoil;
        std::function<void(ScheduledJob&)> expect; // null: no job is left
        std::size_t droppedJobs, droppedTasks;
    } kRows[] = {
        {"a job under another name", [](Element&, Element& job) { job.name = L"Job_2"; }, nullptr, 1, 0},
        {"an unnumbered job", [](Element&, Element& job) { job.name = L"Job_"; }, nullptr, 1, 0},
        {"an empty job", [](Element&, Element& job) { job.children.clear(); }, nullptr, 1, 0},
        {"a job without a name", [](Element&, Element& job) { job.children[Name].text.clear(); }, nullptr, 1, 0},
        {"a stranger among the jobs", [](Element& details, Element&) { details.children.push_back({}); },
            [](ScheduledJob&) {}, 1, 0},
        {"a second first job", [](Element& details, Element& job) { details.children.push_back(Element(job)); },
            [](ScheduledJob&) {}, 1, 0},
        {"no schedule", [](Element&, Element& job) { job.children[Schedule].children.clear(); },
            [](ScheduledJob& job) {
                job.kind = ScheduleKind::Daily;
                job.startTime = L"";
                job.weekDays.fill(false);
            },
            0, 0},
        {"an unknown kind",
            [](Element&, Element& job) { job.children[Schedule].children[Frequency].children[0].text = L"Hourly"; },
            [](ScheduledJob& job) {
                job.kind = ScheduleKind::Daily;
                job.weekDays.fill(false);
            },
            0, 0},
        {"days cut off", [](Element&, Element& job) { job.children[Schedule].children[Frequency].children.resize(3); },
            [](ScheduledJob& job) {
                job.weekDays = {true, true};
            },
            0, 0},
        {"another job's schedule", [](Element&, Element& job) { job.children[Schedule].name = L"Schedule_2"; },
            [](ScheduledJob& job) {
                job.kind = ScheduleKind::Daily;
                job.startTime = L"";
                job.weekDays.fill(false);
            },
            0, 0},
        {"no action", [](Element&, Element& job) { job.children.resize(Action); },
            [](ScheduledJob& job) {
                job.powerOn = job.powerOff = false;
                job.powerOffType = L"";
                job.tasks.clear();
            },
            0, 0},
        {"a power-off without fields",
            [](Element&, Element& job) { job.children[Action].children[PowerOff].children.clear(); },
            [](ScheduledJob& job) { job.powerOffType = L""; }, 0, 0},
        {"a task under another name",
            [](Element&, Element& job) { job.children[Action].children[RunTask].children[0].name = L"APP_21"; },
            [](ScheduledJob& job) { job.tasks.erase(job.tasks.begin()); }, 0, 1},
        {"a task without a path",
            [](Element&, Element& job) { job.children[Action].children[RunTask].children[1].children.clear(); },
            [](ScheduledJob& job) { job.tasks.pop_back(); }, 0, 1},
    };
    for (const auto& row : kRows) {
        Element details = BuildJobList({whole});
        row.spoil(details, details.children[0]);
        JobList expected;
        if (row.expect) {
            expected = {whole};
            row.expect(expected[0]);
        }
        const ReadJobs read = ReadJobList(details);
        EXPECT_TRUE(read.jobs == expected) << row.what;
        EXPECT_EQ(read.droppedJobs, row.droppedJobs) << row.what;
        EXPECT_EQ(read.droppedTasks, row.droppedTasks) << row.what;
    }
}

} // namespace
} // namespace voltaro
