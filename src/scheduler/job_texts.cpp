#include "scheduler/job_texts.h"

#include "base/text.h"

#include <algorithm>
#include <chrono>

namespace voltaro {
namespace {

namespace chrono = std::chrono;

constexpr const wchar_t* kWeekDayNames[]
    = {L"Sunday", L"Monday", L"Tuesday", L"Wednesday", L"Thursday", L"Friday", L"Saturday"};

// A job for the 29th of February may have to wait from 2096 to 2104.
constexpr int kSearchedDays = 8 * 366;

unsigned WeekDay(chrono::sys_days days)
{
    return chrono::weekday(days).c_encoding();
}

bool RunsOn(const ScheduledJob& job, chrono::sys_days days)
{
    const chrono::year_month_day date(days);
    const auto day = static_cast<int>(static_cast<unsigned>(date.day()));
    switch (job.kind) {
    case ScheduleKind::Daily: return true;
    case ScheduleKind::OnDate: return ParseDate(job.startDate) == date;
    case ScheduleKind::Weekly: return job.weekDays[WeekDay(days)];
    case ScheduleKind::Monthly:
        return job.months[static_cast<unsigned>(date.month()) - 1] && day >= LeadingNumber(job.startDate)
            && day <= LeadingNumber(job.endDate);
    }
    return false;
}

} // namespace

bool AreDaysReversed(const ScheduledJob& job)
{
    return job.kind == ScheduleKind::Monthly && LeadingNumber(job.startDate) > LeadingNumber(job.endDate);
}

std::wstring ScheduleText(const ScheduledJob& job)
{
    switch (job.kind) {
    case ScheduleKind::Daily: break;
    case ScheduleKind::OnDate: return Format(L"On Date(%10ls)", job.startDate.c_str());
    case ScheduleKind::Weekly: return L"Weekly";
    case ScheduleKind::Monthly: return L"Monthly";
    }
    return L"*******";
}

std::array<std::wstring, 7> JobRow(const ScheduledJob& job)
{
    const std::size_t idleness = ShownChoice(kIdlenessChoices, job.idleMinutes);
    return {job.name, job.description, job.startTime, ScheduleText(job),
        NumberText(static_cast<std::int64_t>(job.tasks.size())), job.powerOff ? job.powerOffType : L"",
        job.powerOff ? kIdlenessChoices[idleness].text : L""};
}

std::array<std::wstring, 3> TaskRow(const ScheduledTask& task)
{
    return {task.path, task.endTime,
        task.delayEnabled ? kRepeatChoices[ShownChoice(kRepeatChoices, task.delayMinutes)].text : L""};
}

std::wstring NextRunText(const ScheduledJob& job, const LocalTime& now)
{
    if (!job.enabled)
        return L"This job is not enabled and does not run.";
    const auto start = ParseTime(job.startTime);
    const auto date = job.kind == ScheduleKind::OnDate ? ParseDate(job.startDate) : DateOf(now);
    if (!start || !date || AreDaysReversed(job)) // whether the agent runs a job with reversed days is not known
        return L"The next run is not known.";
    const chrono::sys_days today = DateOf(now);
    const bool over = *start <= chrono::hours(now.hour) + chrono::minutes(now.minute) + chrono::seconds(now.second);
    // A date may lie farther ahead than any other schedule reaches: the search starts there.
    const chrono::sys_days first = std::max(today + chrono::days(over ? 1 : 0), chrono::sys_days(*date));
    for (int i = 0; i < kSearchedDays; ++i) {
        const chrono::sys_days day = first + chrono::days(i);
        if (!RunsOn(job, day))
            continue;
        const auto ahead = (day - today).count();
        std::wstring when = kWeekDayNames[WeekDay(day)] + (L", " + DateText(day));
        if (ahead <= 1)
            when = ahead == 0 ? L"today" : L"tomorrow";
        return L"Next run: " + when + L" at " + TimeText(*start);
    }
    return L"This job does not run again.";
}

} // namespace voltaro
