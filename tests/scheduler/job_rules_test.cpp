#include "scheduler/job_rules.h"

#include "scheduler/job_texts.h"
#include "support/refusals.h"

namespace voltaro {

// clang-format off
TEST(JobRulesTest, JobNames)
{
    ScheduledJobs jobs(1);
    jobs[0].name = L"Night Backup";
    constexpr wchar_t kTitle[] = L"Invalid Job Name", kOnly[] = L"Job Name can contain only";
    const RefusalRow kRows[] = {
        {L"Day Backup", L"", L""}, {L"_x9_", L"", L""}, {L"", L"No Job Name", L"Please enter a Job Name."},
        {L" a- ", kTitle, L"Job Name cannot begin"}, {L"a- ", kTitle, L"Job Name cannot end"},
        {L"a-b", kTitle, kOnly}, {L"\x00E9", kTitle, kOnly},
        {L"night backuP", L"Job with name already in the list ", L"Job with name ' night backuP ' already exists"},
    };
    ExpectRefusals(kRows, [&](std::wstring_view name) { return CheckJobName(name, jobs, EditMode::Add); });
    EXPECT_EQ(CheckJobName(L"Night Backup", jobs, EditMode::Update), nullptr);
    EXPECT_NE(CheckJobName(L"a-b", jobs, EditMode::Update), nullptr);
}

TEST(JobRulesTest, TaskPaths)
{
    ScheduledJob job;
    job.tasks.push_back({L"C:\\Tools\\clean.exe"});
    constexpr wchar_t kTitle[] = L"Invalid File Path", kOnly[] = L".exe/.bat File Path can contain only";
    constexpr wchar_t kEnd[] = L".exe/.bat File Path should end";
    const RefusalRow kRows[] = {
        {L"C:\\Program Files (x86)\\a_b-c++\\run.exe", L"", L""}, {L"RUN.EXE", L"", L""}, {L"run.BAT", L"", L""},
        {L" run.bat", L"", L""}, // a blank in front is let pass
        {L"", L"No File Path", L"File Path input field is empty."},
        {L"run%.exe ", kTitle, L".exe/.bat File Path cannot end"}, {L"%windir%\\run.exe", kTitle, kOnly},
        {L"C:/run.exe", kTitle, kOnly}, {L"run.Exe", kTitle, kEnd}, {L"run.Bat", kTitle, kEnd}, {L"exe", kTitle, kEnd},
        {L"c:\\TOOLS\\clean.EXE", L"Application exe already in the list ",
            L"Application ' c:\\TOOLS\\clean.EXE ' already exists in this schedule"},
    };
    ExpectRefusals(kRows, [&](std::wstring_view path) { return CheckTaskPath(path, job, EditMode::Add); });
    EXPECT_EQ(CheckTaskPath(L"C:\\Tools\\clean.exe", job, EditMode::Update), nullptr);
}
// clang-format on

TEST(JobTextsTest, TimesAndDates)
{
    EXPECT_TRUE(ParseTime(L"08:05:09") == std::chrono::seconds(8 * 3600 + 5 * 60 + 9));
    EXPECT_TRUE(ParseDate(L"2024-02-29") == DateOf({2024, 2, 29}));
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
