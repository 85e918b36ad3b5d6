#include "fuzz/targets.h"
#include "power/capabilities.h"
#include "power/names.h"
#include "power/policy.h"
#include "savings/decimal.h"
#include "savings/profile_record.h"
#include "savings/shown_day.h"
#include "scheduler/job_document.h"
#include "scheduler/job_rules.h"
#include "scheduler/job_texts.h"
#include "simulator/jobs.h"

#include <cmath>
#include <numeric>

namespace voltaro::fuzz {
namespace {

constexpr const wchar_t* kWatts[]
    = {L"Inbuilt", L"Branded", L"CRT", L"led", L"17.00", L"21.23", L"1e999", L"-0.0", L"999.99", L".5", L"1000"};

void CheckDay(const DayReport& day)
{
    const DayDurations& d = day.durations;
    Require(d.poweredOn + d.offTotal >= 0 && d.poweredOn + d.offTotal <= kDaySeconds);
    Require(d.poweredOn == d.idle + d.active && d.offTotal == d.hibernate + d.off && d.active == d.activeAgain);
    Require(d.idle == d.idleWithoutSavings + d.standby + d.monitorOff + d.dim);
    for (const std::int64_t part : {d.idleWithoutSavings, d.dim, d.monitorOff, d.hibernateUponIdle, d.shutdown})
        Require(part >= 0);
    Require(d.timedStandby <= d.standby && d.hibernateUponIdle <= d.hibernate && d.shutdown <= d.off);
    const auto& h = day.histogram;
    Require(std::accumulate(h.seconds.begin(), h.seconds.end(), std::int64_t{0}) == h.totalSeconds);
    Require(std::isfinite(day.powerConsumed) && std::isfinite(day.powerSaved));
}

PowerConsumptionData AnyProfile(Bytes& bytes)
{
    PowerConsumptionData record;
    for (int edits = bytes.Next() % 8; edits > 0; --edits)
        record.*kConsumptionFields[bytes.Next() % std::size(kConsumptionFields)].slot = bytes.Value(kWatts);
    return record;
}

constexpr const wchar_t* kJobNames[] = {L"Job_", L"Schedule_", L"Frequency_", L"Action_", L"PowerOff_", L"RunTask_",
    L"APP_", L"PowerOn", L"ApplyScheme", L"PowerOff", L"RunTask_x", L""};

} // namespace

// The answer about a day, read and walked over. A line is a code and a time of that day, or any text.
void RunEvents(Bytes& bytes)
{
    constexpr const wchar_t* kCodes[] = {L"Istime", L"Ietime", L"Dstime", L"Detime", L"Mstime", L"Metime", L"Qstime",
        L"Qetime", L"Sbtime", L"Setime", L"Duratn", L"Hstime", L"Hetime", L"Qhtime", L"QHetme", L"Qptime", L"QUptme",
        L"QAgtme", L"Sdtime", L"SUptme", L"Pwrcon", L"Pwrsav"};
    Element root{L"vltp", {}, {{bytes.Next() == 0 ? L"response" : L"details", {}, {}}}};
    while (!bytes.AtEnd()) {
        const std::size_t code = bytes.Next();
        std::wstring line = code < 192 ? kCodes[code % std::size(kCodes)] : bytes.Text();
        if (code < 128) {
            line += code < 100 ? L" # 2024/02/29" : L" # 2023/02/29";
            for (const wchar_t separator : {L' ', L':', L':'}) {
                const int number = bytes.Next() % 62;
                line += {separator, static_cast<wchar_t>(L'0' + number / 10), static_cast<wchar_t>(L'0' + number % 10)};
            }
        } else if (code < 192) {
            line += L" # " + NumberText(bytes.Next() * bytes.Next());
        }
        root.children[0].children.push_back(TextElement(L"Event", line));
    }
    DayReport day;
    if (ReadDayAnswer(&root, L"", {2024, 2, 29, 13, 14, 15}, day) == DayAnswer::Report)
        CheckDay(day);
}

// A day of any lengths, shown on one of the pages.
void RunGraph(Bytes& bytes)
{
    DayReport day;
    for (std::int64_t DayDurations::*length :
        {&DayDurations::active, &DayDurations::idleWithoutSavings, &DayDurations::dim, &DayDurations::monitorOff,
            &DayDurations::standby, &DayDurations::hibernate, &DayDurations::off, &DayDurations::shutdown})
        day.durations.*length = bytes.Number() % kDaySeconds;
    day.durations.poweredOn = bytes.Number() % kDaySeconds;
    day.histogram.Enter(bytes.Number() % kDaySeconds);
    const std::size_t page = bytes.Next() % 3;
    if (page == 0) {
        const GraphLayout graph = LayOutGraph(day.durations, L"");
        for (const GraphSegment& segment : graph.segments) {
            Require(segment.bar.top <= segment.bar.bottom && segment.bar.bottom <= kGraphBottom);
            Require(!SegmentTooltip(segment, graph.daySeconds).empty());
        }
        return;
    }
    const PowerProfile profile = ProfileOf(AnyProfile(bytes));
    const SavingsFigures figures = ComputeSavings(day, profile);
    Require(std::isfinite(figures.wouldHaveBeen) && std::isfinite(figures.saved) && std::isfinite(figures.nowIs));
    (void)(page == 1 ? TotalRows(day.durations, figures) : EstimateRows(day.durations, figures));
    (void)(page == 1 ? EmissionRows(figures) : IdlePatternRows(day.histogram, profile));
}

// A profile shown, edited and sent; what was not edited goes as it was read.
void RunProfile(Bytes& bytes)
{
    const PowerConsumptionData read = AnyProfile(bytes);
    Require(RecordToSend(read, WithMonitor(read), false) == read);
    (void)ProfileRows(read);
    PowerConsumptionData edited = read;
    edited.*kConsumptionFields[bytes.Next() % std::size(kConsumptionFields)].slot = bytes.Value(kWatts);
    (void)RecordToSend(read, edited, true);
    const std::wstring text = bytes.Text();
    Require(std::isfinite(LeadingDecimal(text).value_or(0.0F)));
    if (CheckWatts(text) == WattCheck::Accepted) {
        const std::wstring written = DecimalText(LeadingDecimal(text).value_or(-1.0F), 2);
        Require(CheckWatts(written) == WattCheck::Accepted);
        Require(DecimalText(LeadingDecimal(written).value_or(-1.0F), 2) == written);
    }
}

// The names of schemes, policies, rules, jobs and tasks: what is refused is refused in words that can be shown.
void RunNames(Bytes& bytes)
{
    const std::wstring name = bytes.Value(), other = bytes.Value();
    const std::wstring others[] = {other, L"Balanced"};
    ApplicationRule rule;
    rule.applicationName = other;
    ScheduledJobs jobs(1);
    jobs[0].name = other;
    jobs[0].tasks.emplace_back().path = other;
    for (const Refusal* refusal : {CheckTypedSchemeName(name), CheckTypedPolicyName(name),
             CheckNewSchemeName(name, others), CheckNewPolicyName(name, others), CheckRuleName(name, {&rule, 1}),
             CheckJobName(name, jobs, EditMode::Add), CheckTaskPath(name, jobs[0], EditMode::Add)})
        Require(refusal == nullptr || !RefusalText(*refusal, name).empty());
    if (CheckNewSchemeName(name, others) == nullptr)
        Require(!name.empty() && !EqualsIgnoreCase(name, other) && CheckNewSchemeName(name, {}) == nullptr);
    Require(ContainsIgnoreCase(name + other, name) && OneLine(name).size() == name.size());
    const std::pair<std::wstring_view, std::wstring_view> fields[] = {{name, other}, {L"StandbySupported", name}};
    (void)ReadPowerCapabilities(fields);
}

// A damaged job, read and written; the times and dates of jobs.
void RunJobs(Bytes& bytes)
{
    // Each the last of a list whose others are empty elements.
    static const std::vector<Element> kLists = [] {
        constexpr int kJobs = 10;
        const Element jobs = simulator::InitialJobs(kJobs);
        std::vector<Element> lists;
        for (std::size_t job = 0; job < kJobs; ++job) {
            lists.push_back({L"details", {}, std::vector<Element>(job)});
            lists.back().children.push_back(jobs.children[job]);
        }
        return lists;
    }();
    const std::uint8_t choice = bytes.Next();
    if (choice % 8 == 0) {
        const std::wstring text = bytes.Value();
        if (const auto time = ParseTime(text))
            Require(ParseTime(TimeText(*time)) == time);
        if (const auto date = ParseDate(text))
            Require(ParseDate(DateText(*date)) == date);
    }
    Element details = choice < 16 ? Element{L"details", {}, {}} : kLists[choice % kLists.size()];
    Damage(details, bytes, kJobNames);
    const ReadJobs read = ReadJobList(details);
    for (const ScheduledJob& job : read.jobs) {
        Require(!job.name.empty() && !JobRow(job)[3].empty() && !NextRunText(job, {2024, 2, 28, 12}).empty());
        const Refusal* refusal = CheckSchedule(job);
        Require(refusal == nullptr || !RefusalText(*refusal, job.name).empty());
        for (const ScheduledTask& task : job.tasks)
            Require(!task.path.empty() && !TaskRow(task)[0].empty());
    }
    const ReadJobs again = ReadJobList(BuildJobList(read.jobs));
    Require(again.jobs == read.jobs && again.droppedJobs == 0 && again.droppedTasks == 0);
}

} // namespace voltaro::fuzz
