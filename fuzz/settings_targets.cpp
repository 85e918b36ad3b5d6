#include "base/text.h"
#include "fuzz/targets.h"
#include "power/capabilities.h"
#include "power/names.h"
#include "power/policy.h"
#include "power/timeouts.h"
#include "scheduler/job_document.h"
#include "scheduler/job_rules.h"
#include "scheduler/job_texts.h"
#include "settings/settings_rules.h"
#include "simulator/jobs.h"

namespace voltaro::fuzz {
namespace {

template <class Record>
Record AnyRecord(Bytes& bytes)
{
    Record record;
    for (const auto& field : FieldsOf<Record>::kTable)
        record.*field.slot = bytes.Value();
    return record;
}

// A check changes nothing in what it has completed once.
template <class Record>
void CheckTwice(const Record& record, std::size_t (*check)(Record&, const Record&))
{
    Record complete = record;
    if (check(complete, Record()) != kNoFault)
        return;
    Record again = complete;
    Require(check(again, complete) == kNoFault && again == complete);
}

constexpr const wchar_t* kJobNames[] = {L"Job_", L"Schedule_", L"Frequency_", L"Action_", L"PowerOff_", L"RunTask_",
    L"APP_", L"PowerOn", L"ApplyScheme", L"PowerOff", L"RunTask_x", L""};

} // namespace

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

// The settings' checks and the texts that stand for stored values.
void RunSettings(Bytes& bytes)
{
    const std::size_t record = bytes.Next() % 4;
    if (record == 0)
        CheckTwice(AnyRecord<HostSettings>(bytes), CheckHostSettings);
    else if (record == 1)
        CheckTwice(AnyRecord<ProxySettings>(bytes), CheckProxySettings);
    else if (record == 2)
        CheckTwice(AnyRecord<SnoozeSettings>(bytes), CompleteSnoozeSettings);
    const auto address = static_cast<std::uint32_t>(bytes.Number());
    Require(AddressOf(DottedAddress(address)) == address);
    const std::wstring stored = bytes.Value();
    if (const auto dotted = AddressOf(stored))
        Require(AddressOf(DottedAddress(*dotted)) == dotted);
    for (const Choices list : {Choices(kDimChoices), Choices(kLogOffChoices), Choices(kRepeatChoices)}) {
        // What a list shows of a number, it shows again once that is stored.
        const std::wstring entry = ShownText(list, stored);
        Require(ShownText(list, ChosenText(list, entry)) == entry);
    }
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
