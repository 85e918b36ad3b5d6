#include "scheduler/job_rules.h"

#include "support/refusals.h"

namespace voltaro {
namespace {

// clang-format off
TEST(JobRulesTest, JobNames)
{
    ScheduledJobs jobs(1);
    jobs[0].name = L"Night Backup";
    constexpr wchar_t kTitle[] = L"Invalid Job Name", kOnly[] = L"Job Name can contain only";
    const RefusalRow kRows[] = {
        {L"Day Backup", L"", L""}, {L"_x9_", L"", L""}, {L"", L"No Job Name", L"Please enter a Job Name."},
        {L" ", kTitle, L"Job Name cannot begin"}, {L" a- ", kTitle, L"Job Name cannot begin"},
        {L"a- ", kTitle, L"Job Name cannot end"}, {L"a-b", kTitle, kOnly}, {L"a\tb", kTitle, kOnly},
        {L"\x00E9", kTitle, kOnly},
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
        {L"C:\\Program Files (x86)\\a_b-c++\\run.exe", L"", L""}, {L"RUN.EXE", L"", L""}, {L"run.bat", L"", L""},
        {L"run.BAT", L"", L""}, {L" run.bat", L"", L""}, // a blank in front is let pass
        {L"", L"No File Path", L"File Path input field is empty."},
        {L"run%.exe ", kTitle, L".exe/.bat File Path cannot end"}, {L"%windir%\\run.exe", kTitle, kOnly},
        {L"a&b.exe", kTitle, kOnly}, {L"C:/run.exe", kTitle, kOnly}, {L"run.Exe", kTitle, kEnd},
        {L"run.Bat", kTitle, kEnd}, {L"exe", kTitle, kEnd},
        {L"c:\\TOOLS\\clean.EXE", L"Application exe already in the list ",
            L"Application ' c:\\TOOLS\\clean.EXE ' already exists in this schedule"},
    };
    ExpectRefusals(kRows, [&](std::wstring_view path) { return CheckTaskPath(path, job, EditMode::Add); });
    EXPECT_EQ(CheckTaskPath(L"C:\\Tools\\clean.exe", job, EditMode::Update), nullptr);
}
// clang-format on

} // namespace
} // namespace voltaro
