#include "scheduler/job_document.h"

#include "base/text.h"

#include <algorithm>
#include <span>

namespace voltaro {
namespace {

constexpr wchar_t kOnceOrDaily[] = L"AST"; // told apart by the start date
constexpr wchar_t kWeekly[] = L"Weekly";
constexpr wchar_t kMonthly[] = L"Monthly";

constexpr const wchar_t* kWeekDayElements[] = {L"Sun", L"Mon", L"Tue", L"Wed", L"Thu", L"Fri", L"Sat"};
constexpr const wchar_t* kMonthElements[]
    = {L"Jan", L"Feb", L"Mar", L"Apr", L"May", L"Jun", L"Jul", L"Aug", L"Sep", L"Oct", L"Nov", L"Dec"};

std::wstring Numbered(std::wstring_view stem, std::size_t number)
{
    return std::wstring(stem) + NumberText(static_cast<std::int64_t>(number));
}

// The two numbers run together: job 10, task 7 is "APP_107".
std::wstring TaskName(std::size_t job, std::size_t task)
{
    return Numbered(Numbered(L"APP_", job), task);
}

// --- building ---

Element Parent(std::wstring name)
{
    return {std::move(name), {}, {}};
}

void Add(Element& parent, std::wstring_view name, std::wstring_view text)
{
    parent.children.push_back(TextElement(name, text));
}

void AddFlags(Element& parent, std::span<const wchar_t* const> names, std::span<const StoredFlag> flags)
{
    for (std::size_t i = 0; i < names.size(); ++i)
        Add(parent, names[i], flags[i].text);
}

Element BuildFrequency(const ScheduledJob& job, std::size_t number)
{
    Element frequency = Parent(Numbered(L"Frequency_", number));
    switch (job.kind) {
    case ScheduleKind::Daily:
        Add(frequency, L"JobStart", job.otherKind ? std::wstring_view(*job.otherKind) : kOnceOrDaily);
        break;
    case ScheduleKind::OnDate: Add(frequency, L"JobStart", kOnceOrDaily); break;
    case ScheduleKind::Weekly:
        Add(frequency, L"JobStart", kWeekly);
        AddFlags(frequency, kWeekDayElements, job.weekDays);
        break;
    case ScheduleKind::Monthly:
        Add(frequency, L"JobStart", kMonthly);
        AddFlags(frequency, kMonthElements, job.months);
        break;
    }
    return frequency;
}

Element BuildSchedule(const ScheduledJob& job, std::size_t number)
{
    Element schedule = Parent(Numbered(L"Schedule_", number));
    Add(schedule, L"StartTime", job.startTime);
    Add(schedule, L"StartDate", job.startDate);
    Add(schedule, L"EndDate", job.endDate);
    schedule.children.push_back(BuildFrequency(job, number));
    return schedule;
}

Element BuildTask(const ScheduledTask& task, std::wstring name)
{
    Element element = Parent(std::move(name));
    Add(element, L"Path", task.path);
    Add(element, L"Parameters", task.parameters);
    Add(element, L"RDelay", task.delayEnabled ? std::wstring_view(task.delayMinutes.text) : std::wstring_view());
    Add(element, L"REndTime", task.endTime);
    return element;
}

Element BuildAction(const ScheduledJob& job, std::size_t number)
{
    Element action = Parent(Numbered(L"Action_", number));
    if (job.powerOn)
        Add(action, L"PowerOn", L"Yes"); // never written as "No"
    if (job.applyScheme)
        Add(action, L"ApplyScheme", job.schemeName);
    if (job.powerOff) {
        Element powerOff = Parent(Numbered(L"PowerOff_", number));
        Add(powerOff, L"type", job.powerOffType);
        Add(powerOff, L"idlefor", job.idleMinutes.text);
        Add(powerOff, L"AppSensor", job.useAppSensor.text);
        action.children.push_back(std::move(powerOff));
    }
    Element tasks = Parent(Numbered(L"RunTask_", number));
    for (std::size_t k = 1; k <= std::min(job.tasks.size(), kMaxTasks); ++k)
        tasks.children.push_back(BuildTask(job.tasks[k - 1], TaskName(number, k)));
    action.children.push_back(std::move(tasks));
    return action;
}

Element BuildJob(const ScheduledJob& job, std::size_t number)
{
    Element element = Parent(Numbered(L"Job_", number));
    Add(element, L"Name", job.name);
    Add(element, L"Description", job.description);
    Add(element, L"EnabledFlag", job.enabled.text);
    element.children.push_back(BuildSchedule(job, number));
    element.children.push_back(BuildAction(job, number));
    return element;
}

// --- reading: sections by name inside their parent, values by position ---

// A child that is missing leaves the text as it is.
void ReadText(const Element& parent, std::size_t position, std::wstring& text)
{
    if (position < parent.children.size())
        text = parent.children[position].text;
}

// The flags follow the kind's word.
void ReadFlags(const Element& frequency, std::span<StoredFlag> flags)
{
    for (std::size_t i = 0; i < flags.size(); ++i)
        ReadText(frequency, i + 1, flags[i].text);
}

void ReadFrequency(const Element& frequency, ScheduledJob& job)
{
    const std::wstring_view word = ChildText(frequency, 0);
    if (word == kWeekly) {
        job.kind = ScheduleKind::Weekly;
        ReadFlags(frequency, job.weekDays);
    } else if (word == kMonthly) {
        job.kind = ScheduleKind::Monthly;
        ReadFlags(frequency, job.months);
    } else if (word == kOnceOrDaily) {
        job.kind = job.startDate == kNoDate ? ScheduleKind::Daily : ScheduleKind::OnDate;
    } else {
        job.otherKind.emplace(word); // shown as daily
    }
}

void ReadSchedule(const Element& schedule, std::size_t number, ScheduledJob& job)
{
    ReadText(schedule, 0, job.startTime);
    ReadText(schedule, 1, job.startDate);
    ReadText(schedule, 2, job.endDate);
    if (const Element* frequency = FindChild(schedule, Numbered(L"Frequency_", number)))
        ReadFrequency(*frequency, job);
    else
        job.otherKind.emplace();
}

ScheduledTask ReadTask(const Element& element)
{
    ScheduledTask task;
    task.path = ChildText(element, 0);
    task.parameters = ChildText(element, 1);
    const std::wstring_view delay = ChildText(element, 2);
    task.delayEnabled = !delay.empty();
    if (task.delayEnabled)
        task.delayMinutes.text = delay;
    task.endTime = ChildText(element, 3);
    return task;
}

// Returns how many of the children became no task.
std::size_t ReadTasks(const Element& runTask, std::size_t number, ScheduledJob& job)
{
    const std::size_t count = runTask.children.size();
    for (std::size_t k = 1; k <= std::min(count, kMaxTasks); ++k) {
        const Element* element = FindChild(runTask, TaskName(number, k));
        if (element == nullptr)
            continue;
        ScheduledTask task = ReadTask(*element);
        if (!task.path.empty())
            job.tasks.push_back(task);
    }
    return count - job.tasks.size();
}

std::size_t ReadAction(const Element& action, std::size_t number, ScheduledJob& job)
{
    for (const Element& node : action.children) {
        if (node.name == L"PowerOn") {
            job.powerOn = true; // its presence says so, whatever its text
        } else if (node.name == L"ApplyScheme") {
            job.applyScheme = true;
            job.schemeName = node.text;
        } else if (node.name.starts_with(L"PowerOff")) {
            job.powerOff = true;
        }
    }
    const Element* powerOff = FindChild(action, Numbered(L"PowerOff_", number));
    if (powerOff != nullptr) {
        job.powerOffType = ChildText(*powerOff, 0);
        ReadText(*powerOff, 1, job.idleMinutes.text);
        ReadText(*powerOff, 2, job.useAppSensor.text);
    }
    const Element* runTask = FindChild(action, Numbered(L"RunTask_", number));
    return runTask != nullptr ? ReadTasks(*runTask, number, job) : 0;
}

} // namespace

Element BuildJobList(const ScheduledJobs& jobs)
{
    Element details = Parent(L"details");
    for (std::size_t n = 1; n <= std::min(jobs.size(), kMaxJobs); ++n)
        details.children.push_back(BuildJob(jobs[n - 1], n));
    return details;
}

ReadJobs ReadJobList(const Element& details)
{
    ReadJobs result;
    const std::size_t count = details.children.size();
    for (std::size_t n = 1; n <= std::min(count, kMaxJobs); ++n) {
        const Element* element = FindChild(details, Numbered(L"Job_", n));
        ScheduledJob job;
        job.name = element != nullptr ? ChildText(*element, 0) : std::wstring_view();
        if (job.name.empty())
            continue;
        job.description = ChildText(*element, 1);
        ReadText(*element, 2, job.enabled.text);
        if (const Element* schedule = FindChild(*element, Numbered(L"Schedule_", n)))
            ReadSchedule(*schedule, n, job);
        if (const Element* action = FindChild(*element, Numbered(L"Action_", n)))
            result.droppedTasks += ReadAction(*action, n, job);
        result.jobs.push_back(std::move(job));
    }
    result.droppedJobs = count - result.jobs.size();
    return result;
}

} // namespace voltaro
