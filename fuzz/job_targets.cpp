#include "base/text.h"
#include "fuzz/targets.h"
#include "scheduler/job_document.h"
#include "scheduler/job_texts.h"
#include "simulator/jobs.h"

namespace voltaro::fuzz {
namespace {

constexpr const wchar_t* kNames[] = {L"Job_", L"Schedule_", L"Frequency_", L"Action_", L"PowerOff_", L"RunTask_",
    L"APP_", L"PowerOn", L"ApplyScheme", L"PowerOff", L"RunTask_x", L""};

} // namespace

// Damaged job lists, read and written; the times and dates of jobs.
void RunJobs(Bytes& bytes)
{
    if (bytes.Next() % 8 == 0) {
        const std::wstring text = bytes.Value();
        if (const auto time = ParseTime(text))
            Require(ParseTime(TimeText(*time)) == time);
        if (const auto date = ParseDate(text))
            Require(ParseDate(DateText(*date)) == date);
    }
    Element details = simulator::InitialJobs(bytes.Next() % 4);
    Damage(details, bytes, kNames);
    const ReadJobs read = ReadJobList(details);
    for (const ScheduledJob& job : read.jobs) {
        Require(!job.name.empty() && !JobRow(job)[3].empty() && !NextRunText(job, {2024, 2, 28, 12}).empty());
        for (const ScheduledTask& task : job.tasks)
            Require(!task.path.empty() && !TaskRow(task)[0].empty());
    }
    const ReadJobs again = ReadJobList(BuildJobList(read.jobs));
    Require(again.jobs == read.jobs && again.droppedJobs == 0 && again.droppedTasks == 0);
}

} // namespace voltaro::fuzz
