// Damages the documents of scheduled jobs and reads them back.
//
//   clang++ -std=c++20 -g -O2 -fsanitize=fuzzer,address,undefined -Isrc -o job_document_fuzz \
//       fuzz/job_document_fuzz.cpp src/scheduler/job*.cpp src/base/choices.cpp src/base/text.cpp
//       src/base/text_rules.cpp
//   ./job_document_fuzz -runs=1000000 -max_len=512

#include "base/text.h"
#include "scheduler/job_document.h"
#include "scheduler/job_texts.h"

#include <cstdint>
#include <cstdlib>
#include <span>

namespace voltaro {
namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

// The fuzzer's bytes, zeros after the last.
class Bytes {
public:
    explicit Bytes(std::span<const std::uint8_t> data)
        : m_data(data)
    {
    }
    bool AtEnd() const { return m_data.empty(); }
    std::size_t Next()
    {
        if (AtEnd())
            return 0;
        const std::size_t byte = m_data.front();
        m_data = m_data.subspan(1);
        return byte;
    }

private:
    std::span<const std::uint8_t> m_data;
};

std::wstring AnyName(Bytes& bytes)
{
    constexpr const wchar_t* kStems[] = {L"Job_", L"Schedule_", L"Frequency_", L"Action_", L"PowerOff_", L"RunTask_",
        L"APP_", L"PowerOn", L"ApplyScheme", L"PowerOff", L"RunTask_x", L""};
    const std::wstring stem = kStems[bytes.Next() % std::size(kStems)];
    return stem.ends_with(L'_') ? stem + NumberText(static_cast<std::int64_t>(bytes.Next())) : stem;
}

std::wstring AnyText(Bytes& bytes)
{
    constexpr const wchar_t* kTexts[] = {L"", L"Yes", L"No", L"NULL", L"AST", L"Weekly", L"Monthly", L"08:00:00",
        L"2024-02-29", L"31", L"-5", L"99999999999", L"Standby", L"\xD83D"};
    const std::size_t choice = bytes.Next();
    if (choice < 128)
        return kTexts[choice % std::size(kTexts)];
    std::wstring text(choice - 128, L' ');
    for (wchar_t& unit : text)
        unit = static_cast<wchar_t>(bytes.Next());
    return choice % 2 == 0 ? text : text + text + text + text;
}

// Three jobs with something in every field.
ScheduledJobs WholeJobs()
{
    ScheduledJobs jobs(3);
    for (ScheduledJob& job : jobs) {
        job.name = L"name";
        job.startTime = L"08:00:00";
        job.powerOn = job.applyScheme = job.powerOff = true;
        job.schemeName = L"scheme";
        job.powerOffType = L"Standby";
        job.tasks = {{L"a.exe", L"-x", true, {L"60"}, L"17:00:00"}, {L"b.bat"}};
    }
    jobs[0].kind = ScheduleKind::OnDate;
    jobs[0].startDate = jobs[0].endDate = L"2031-12-24";
    jobs[1].kind = ScheduleKind::Weekly;
    jobs[2].kind = ScheduleKind::Monthly;
    return jobs;
}

// Walks down and up the tree as the bytes say and changes what is there. Only children of the place reached are added
// or erased, so the way back stays good.
Element AnyTree(Bytes& bytes)
{
    Element details = BuildJobList(bytes.Next() % 2 == 0 ? ScheduledJobs() : WholeJobs());
    std::vector<Element*> way = {&details};
    while (!bytes.AtEnd()) {
        Element& here = *way.back();
        const std::size_t step = bytes.Next() % 8;
        const std::size_t count = here.children.size();
        const std::size_t child = count > 0 ? bytes.Next() % count : 0;
        if (step == 0 && way.size() > 1)
            way.pop_back();
        else if (step <= 2 && count > 0)
            way.push_back(&here.children[child]);
        else if (step == 3 && count > 0)
            here.children.erase(here.children.begin() + static_cast<std::ptrdiff_t>(child));
        else if (step == 4 && count > 0)
            here.children.push_back(Element(here.children[child]));
        else if (step == 5)
            here.name = AnyName(bytes);
        else if (step == 6)
            here.text = AnyText(bytes);
        else
            here.children.push_back({AnyName(bytes), AnyText(bytes), {}});
    }
    return details;
}

void Check(const Element& details)
{
    const ReadJobs read = ReadJobList(details);
    Require(read.jobs.size() <= kMaxJobs && read.jobs.size() + read.droppedJobs == details.children.size());
    // Each job stands in the document under a number of its own, later in the list under a greater one.
    std::size_t number = 0;
    for (const ScheduledJob& job : read.jobs) {
        const Element* source = nullptr;
        do
            source = FindChild(details, L"Job_" + NumberText(static_cast<std::int64_t>(++number)));
        while (number < kMaxJobs && (source == nullptr || ChildText(*source, 0).empty()));
        Require(source != nullptr && job.name == ChildText(*source, 0));
        Require(!job.name.empty() && job.tasks.size() <= kMaxTasks);
        for (const ScheduledTask& task : job.tasks)
            Require(!task.path.empty() && !TaskRow(task)[0].empty());
        Require(!JobRow(job)[3].empty() && !NextRunText(job, {2024, 2, 28, 12}).empty());
    }
    // What was read is stored and read again as it is.
    const ReadJobs again = ReadJobList(BuildJobList(read.jobs));
    Require(again.jobs == read.jobs && again.droppedJobs == 0 && again.droppedTasks == 0);
}

} // namespace
} // namespace voltaro

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    voltaro::Bytes bytes({data, size});
    voltaro::Check(voltaro::AnyTree(bytes));
    return 0;
}
