#include "scheduler/job_rules.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

// Of a refusal, its title and the beginning of its text; empty where there is none.
void ExpectRefusal(const Refusal* refusal, const wchar_t* input, const wchar_t* title, const wchar_t* text)
{
    EXPECT_STREQ(refusal != nullptr ? refusal->title : L"", title) << input;
    const std::wstring shown = refusal != nullptr ? RefusalText(*refusal, input) : std::wstring();
    EXPECT_EQ(shown.substr(0, std::wcslen(text)), text) << input;
}

TEST(JobRulesTest, JobNames)
{
    JobList jobs(1);
    jobs[0].name = L"Night Backup";
    const struct {
        const wchar_t* name;
        const wchar_t* title;
        const wchar_t* text;
    } kRows[] = {
        {L"Day Backup", L"", L""},
        {L"_x9_", L"", L""},
        {L"", L"No Job Name", L"Please enter a Job Name."},
        {L" ", L"Invalid Job Name", L"Job Name cannot begin with a space.\nPlease enter a valid name."},
        {L" a-", L"Invalid Job Name", L"Job Name cannot begin with a space."},
        {L"a- ", L"Invalid Job Name", L"Job Name cannot end with a space.\nPlease enter a valid name."},
        {L"a-b", L"Invalid Job Name", L"Job Name can contain only alphanumeric and underscore characters."},
        {L"a\tb", L"Invalid Job Name", L"Job Name can contain only"},
        {L"\x00E9t\x00E9", L"Invalid Job Name", L"Job Name can contain only"},
        {L"night backuP", L"Job with name already in the list ",
            L"Job with name ' night backuP ' already exists in the job list, please enter different name to this job"},
    };
    for (const auto& row : kRows)
        ExpectRefusal(CheckJobName(row.name, jobs, EditMode::Add), row.name, row.title, row.text);
    EXPECT_EQ(CheckJobName(L"Night Backup", jobs, EditMode::Update), nullptr);
    EXPECT_NE(CheckJobName(L"a-b", jobs, EditMode::Update), nullptr);
}

TEST(JobRulesTest, TaskPaths)
{
    ScheduledJob job;
    job.tasks.push_back({L"C:\\Tools\\clean.exe", L"", false, 0, L""});
    constexpr wchar_t kTitle[] = L"Invalid File Path";
    constexpr wchar_t kCharacters[]
        = L".exe/.bat File Path can contain only alphanumeric, '-', ':', '(', ')', '+', '_' and "
          L"backslash characters.\nPath should be end with .exe\\.bat extension.";
    constexpr wchar_t kExtension[] = L".exe/.bat File Path should end with either a '.exe' or '.bat' extension.";
    const struct {
        const wchar_t* path;
        const wchar_t* title;
        const wchar_t* text;
    } kRows[] = {
        {L"C:\\Program Files (x86)\\a_b-c++\\run.exe", L"", L""},
        {L"RUN.EXE", L"", L""},
        {L"run.bat", L"", L""},
        {L"run.BAT", L"", L""},
        {L" run.bat", L"", L""}, // a blank in front is let pass
        {L"", L"No File Path", L"File Path input field is empty. Please enter a valid path."},
        {L"run%.exe ", kTitle, L".exe/.bat File Path cannot end with a space.\nPlease enter a valid path."},
        {L"%windir%\\run.exe", kTitle, kCharacters},
        {L"a&b.exe", kTitle, kCharacters},
        {L"C:/run.exe", kTitle, kCharacters},
        {L"run.Exe", kTitle, kExtension},
        {L"run.Bat", kTitle, kExtension},
        {L"run.cmd", kTitle, kExtension},
        {L"exe", kTitle, kExtension},
        {L"c:\\TOOLS\\clean.EXE", L"Application exe already in the list ",
            L"Application ' c:\\TOOLS\\clean.EXE ' already exists in this schedule, please enter different .exe\\.bat "
            L"path."},
    };
    for (const auto& row : kRows)
        ExpectRefusal(CheckTaskPath(row.path, job, EditMode::Add), row.path, row.title, row.text);
    EXPECT_EQ(CheckTaskPath(L"C:\\Tools\\clean.exe", job, EditMode::Update), nullptr);
}

TEST(JobRulesTest, Schedules)
{
    ScheduledJob job;
    EXPECT_EQ(CheckSchedule(job), nullptr);
    job.kind = ScheduleKind::Weekly;
    job.months.fill(true);
    ExpectRefusal(CheckSchedule(job), L"weekly", L"Invalid Schedule", L"Please select at least one day");
    job.weekDays[6] = true;
    EXPECT_EQ(CheckSchedule(job), nullptr);
    job.kind = ScheduleKind::Monthly;
    job.months.fill(false);
    ExpectRefusal(CheckSchedule(job), L"monthly", L"Invalid Schedule", L"Please select at least one month");
    job.months[11] = true;
    EXPECT_EQ(CheckSchedule(job), nullptr);
}

} // namespace
} // namespace voltaro
