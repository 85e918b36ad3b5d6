#include "scheduler/job_rules.h"

#include "support/refusals.h"

namespace voltaro {
namespace {

TEST(JobRulesTest, JobNames)
{
    ScheduledJobs jobs(1);
    jobs[0].name = L"Night Backup";
    const RefusalRow kRows[] = {
        {L"Day Backup", L"", L""},
        {L"_x9_", L"", L""},
        {L"", L"No Job Name", L"Please enter a Job Name."},
        {L" ", L"Invalid Job Name", L"Job Name cannot begin"},
        {L" a- ", L"Invalid Job Name", L"Job Name cannot begin"},
        {L"a- ", L"Invalid Job Name", L"Job Name cannot end"},
        {L"a-b", L"Invalid Job Name", L"Job Name can contain only"},
        {L"a\tb", L"Invalid Job Name", L"Job Name can contain only"},
        {L"\x00E9", L"Invalid Job Name", L"Job Name can contain only"},
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
    constexpr wchar_t kTitle[] = L"Invalid File Path";
    const RefusalRow kRows[] = {
        {L"C:\\Program Files (x86)\\a_b-c++\\run.exe", L"", L""},
        {L"RUN.EXE", L"", L""},
        {L"run.bat", L"", L""},
        {L"run.BAT", L"", L""},
        {L" run.bat", L"", L""}, // a blank in front is let pass
        {L"", L"No File Path", L"File Path input field is empty."},
        {L"run%.exe ", kTitle, L".exe/.bat File Path cannot end"},
        {L"%windir%\\run.exe", kTitle, L".exe/.bat File Path can contain only"},
        {L"a&b.exe", kTitle, L".exe/.bat File Path can contain only"},
        {L"C:/run.exe", kTitle, L".exe/.bat File Path can contain only"},
        {L"run.Exe", kTitle, L".exe/.bat File Path should end"},
        {L"run.Bat", kTitle, L".exe/.bat File Path should end"},
        {L"exe", kTitle, L".exe/.bat File Path should end"},
        {L"c:\\TOOLS\\clean.EXE", L"Application exe already in the list ",
            L"Application ' c:\\TOOLS\\clean.EXE ' already exists in this schedule"},
    };
    ExpectRefusals(kRows, [&](std::wstring_view path) { return CheckTaskPath(path, job, EditMode::Add); });
    EXPECT_EQ(CheckTaskPath(L"C:\\Tools\\clean.exe", job, EditMode::Update), nullptr);
}

TEST(JobRulesTest, Schedules)
{
    ScheduledJob job;
    EXPECT_EQ(CheckSchedule(job), nullptr);
    job.kind = ScheduleKind::Weekly;
    job.months[0] = true;
    EXPECT_STREQ(CheckSchedule(job)->title, L"Invalid Schedule");
    job.weekDays[6] = true;
    EXPECT_EQ(CheckSchedule(job), nullptr);
    job.kind = ScheduleKind::Monthly;
    EXPECT_EQ(CheckSchedule(job), nullptr);
    job.months[0] = false;
    EXPECT_STREQ(CheckSchedule(job)->title, L"Invalid Schedule");
}

} // namespace
} // namespace voltaro
