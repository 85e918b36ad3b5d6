#include "scheduler/job_rules.h"

#include "scheduler/job_texts.h"

#include <algorithm>

namespace voltaro {
namespace {

constexpr wchar_t kNameCharacters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_ ";
// The plus sign stands twice; it changes nothing.
constexpr wchar_t kPathCharacters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-: ()++\\.";

bool HoldsForeignNameCharacter(std::wstring_view name)
{
    return name.find_first_not_of(kNameCharacters) != name.npos;
}

bool HoldsForeignPathCharacter(std::wstring_view path)
{
    return path.find_first_not_of(kPathCharacters) != path.npos;
}

// Only these four spellings: users know that "x.Exe" is refused.
bool LacksProgramExtension(std::wstring_view path)
{
    return !path.ends_with(L".exe") && !path.ends_with(L".EXE") && !path.ends_with(L".bat") && !path.ends_with(L".BAT");
}

// clang-format off
constexpr TextRule kJobNameRules[] = {
    {IsEmpty, {L"No Job Name",
        L"Please enter a Job Name."}},
    {BeginsWithBlank, {L"Invalid Job Name",
        L"Job Name cannot begin with a space.\nPlease enter a valid name."}},
    {EndsWithBlank, {L"Invalid Job Name",
        L"Job Name cannot end with a space.\nPlease enter a valid name."}},
    {HoldsForeignNameCharacter, {L"Invalid Job Name",
        L"Job Name can contain only alphanumeric and underscore characters."}},
};
constexpr Refusal kJobNameTaken = {L"Job with name already in the list ",
    L"Job with name ' %ls ' already exists in the job list, please enter different name to this job"};

constexpr TextRule kTaskPathRules[] = {
    {IsEmpty, {L"No File Path",
        L"File Path input field is empty. Please enter a valid path."}},
    {EndsWithBlank, {L"Invalid File Path",
        L".exe/.bat File Path cannot end with a space.\nPlease enter a valid path."}},
    {HoldsForeignPathCharacter, {L"Invalid File Path",
        L".exe/.bat File Path can contain only alphanumeric, '-', ':', '(', ')', '+', '_' and backslash characters.\n"
        L"Path should be end with .exe\\.bat extension."}},
    {LacksProgramExtension, {L"Invalid File Path",
        L".exe/.bat File Path should end with either a '.exe' or '.bat' extension."}},
};
constexpr Refusal kTaskPathTaken = {L"Application exe already in the list ",
    L"Application ' %ls ' already exists in this schedule, please enter different .exe\\.bat path."};

constexpr Refusal kNoWeekDay = {L"Invalid Schedule", L"Please select at least one day of the week."};
constexpr Refusal kNoMonth = {L"Invalid Schedule", L"Please select at least one month."};
constexpr Refusal kDaysReversed
    = {L"Invalid Schedule", L"The day of 'Job Start On' cannot come after the day of 'Job End On'."};
// clang-format on

} // namespace

const Refusal* CheckJobName(std::wstring_view name, const ScheduledJobs& jobs, EditMode mode)
{
    if (const Refusal* refusal = FirstBroken(kJobNameRules, name))
        return refusal;
    const bool taken = mode == EditMode::Add && std::ranges::any_of(jobs, SameNameAs(name), &ScheduledJob::name);
    return taken ? &kJobNameTaken : nullptr;
}

const Refusal* CheckSchedule(const ScheduledJob& job)
{
    constexpr auto kNoneSet = [](const auto& flags) { return std::ranges::none_of(flags, &StoredFlag::operator bool); };
    if (job.kind == ScheduleKind::Weekly && kNoneSet(job.weekDays))
        return &kNoWeekDay;
    if (job.kind == ScheduleKind::Monthly && kNoneSet(job.months))
        return &kNoMonth;
    return AreDaysReversed(job) ? &kDaysReversed : nullptr;
}

const Refusal* CheckTaskPath(std::wstring_view path, const ScheduledJob& job, EditMode mode)
{
    if (const Refusal* refusal = FirstBroken(kTaskPathRules, path))
        return refusal;
    const bool taken = mode == EditMode::Add && std::ranges::any_of(job.tasks, SameNameAs(path), &ScheduledTask::path);
    return taken ? &kTaskPathTaken : nullptr;
}

} // namespace voltaro
