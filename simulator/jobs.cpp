#include "simulator/jobs.h"

#include "base/text.h"
#include "simulator/records.h"

#include <algorithm>
#include <array>

namespace voltaro::simulator {
namespace {

constexpr std::array kDays = {L"Sun", L"Mon", L"Tue", L"Wed", L"Thu", L"Fri", L"Sat"};
constexpr std::array kMonths
    = {L"Jan", L"Feb", L"Mar", L"Apr", L"May", L"Jun", L"Jul", L"Aug", L"Sep", L"Oct", L"Nov", L"Dec"};

struct Task {
    const wchar_t *path, *parameters, *delay, *end;
};
struct Job {
    const wchar_t* name;
    const wchar_t* description = L"";
    const wchar_t* enabled = L"Yes";
    const wchar_t* startTime;
    const wchar_t *startDate = L"NULL", *endDate = L"NULL";
    const wchar_t *kind = L"AST", *flags = L""; // one Y or N a day or a month
    bool powerOn = false;
    const wchar_t* scheme = nullptr;
    const wchar_t *powerOff = nullptr, *idle = L"", *sensor = L"No";
    Task tasks[2] = {}; // null path: none
};

constexpr Job kJobs[] = {
    {.name = L"Morning wake up",
        .description = L"Ready before the office opens",
        .startTime = L"07:45:00",
        .kind = L"Weekly",
        .flags = L"NYYYYYN",
        .powerOn = true,
        .scheme = L"Balanced"},
    {.name = L"Nightly backup",
        .description = L"Copy the day's work & power off",
        .startTime = L"22:30:00",
        .powerOn = true,
        .powerOff = L"Shutdown",
        .idle = L"15",
        .sensor = L"Yes",
        .tasks = {{L"C:\\Tools\\Backup\\BackupRunner.exe", L"/all /log:\"C:\\Logs\\night.txt\"", L"", L"23:59:00"},
            {L"C:\\Tools\\cleanup.bat", L"", L"60", L"23:30:00"}}},
    {.name = L"Quarter closing",
        .description = L"Reports on the first days of a quarter",
        .enabled = L"No",
        .startTime = L"06:15:30",
        .startDate = L"01",
        .endDate = L"05",
        .kind = L"Monthly",
        .flags = L"YNNYNNYNNYNN",
        .powerOn = true,
        .scheme = L"Baseline",
        .tasks = {{L"C:\\Reports\\quarter.exe", L"-year current", L"120", L"11:00:00"}}},
    {.name = L"Inventory",
        .description = L"Once, for the yearly count",
        .startTime = L"19:00:00",
        .startDate = L"2027-03-15",
        .endDate = L"2027-03-15",
        .powerOn = true,
        .powerOff = L"Hibernate",
        .idle = L"45",
        .tasks = {{L"C:\\Tools\\inventory.exe", L"/full", L"", L"20:00:00"}}},
    {.name = L"Lunch standby",
        .startTime = L"12:30:00",
        .kind = L"Weekly",
        .flags = L"NYYYYYN",
        .scheme = L"MaxPowerSaver",
        .powerOff = L"Standby",
        .idle = L"5",
        .sensor = L"Yes"},
    {.name = L"Weekend power off",
        .description = L"Nobody is in",
        .startTime = L"18:30:00",
        .kind = L"Weekly",
        .flags = L"NNNNNYN",
        .powerOff = L"Shutdown",
        .idle = L"30"},
    {.name = L"Sunday restart",
        .enabled = L"No",
        .startTime = L"03:00:00",
        .kind = L"Weekly",
        .flags = L"YNNNNNN",
        .powerOn = true,
        .powerOff = L"Restart",
        .idle = L"2"},
    {.name = L"Synchronise",
        .description = L"Every day, each quarter of an hour",
        .startTime = L"09:00:00",
        .tasks = {{L"C:\\Tools\\sync.exe", L"", L"15", L"17:00:00"}}},
    {.name = L"Summer scheme",
        .description = L"Longer breaks from June to August",
        .startTime = L"08:00:00",
        .startDate = L"01",
        .endDate = L"31",
        .kind = L"Monthly",
        .flags = L"NNNNNYYYNNNN",
        .scheme = L"Office_Hours"},
    {.name = L"Training day",
        .description = L"Projector room",
        .startTime = L"08:30:00",
        .startDate = L"2027-02-01",
        .endDate = L"2027-02-01",
        .powerOn = true,
        .scheme = L"Minimum",
        .powerOff = L"Standby",
        .idle = L"360",
        .sensor = L"Yes"},
};
constexpr RecordField kJobRecord[]
    = {{L"Name", Value::Name, {}}, {L"Description", Value::Text, {}}, {L"EnabledFlag", Value::YesNo, {}}};
constexpr RecordField kScheduleRecord[]
    = {{L"StartTime", Value::Time, {}}, {L"StartDate", Value::Name, {}}, {L"EndDate", Value::Name, {}}};
constexpr RecordField kJobStart[] = {{L"JobStart", Value::Name, {}}};
constexpr RecordField kPowerOn[] = {{L"PowerOn", Value::YesNo, {}}};
constexpr RecordField kApplyScheme[] = {{L"ApplyScheme", Value::Name, {}}};
constexpr RecordField kPowerOffRecord[]
    = {{L"type", Value::PowerOff, {}}, {L"idlefor", Value::Number, {}}, {L"AppSensor", Value::YesNo, {}}};
constexpr RecordField kTaskRecord[] = {{L"Path", Value::Name, {}}, {L"Parameters", Value::Text, {}},
    {L"RDelay", Value::Text, {}}, {L"REndTime", Value::Time, {}}};

std::wstring Numbered(const wchar_t* stem, int number)
{
    return stem + NumberText(number);
}

std::span<const wchar_t* const> FlagNames(std::wstring_view kind)
{
    if (kind == L"Weekly")
        return kDays;
    if (kind == L"Monthly")
        return kMonths;
    return {};
}

Element FrequencyElement(const Job& job, int number)
{
    Element frequency{Numbered(L"Frequency_", number), {}, {TextElement(L"JobStart", job.kind)}};
    std::size_t i = 0;
    for (const wchar_t* name : FlagNames(job.kind))
        frequency.children.push_back(TextElement(name, job.flags[i++] == L'Y' ? L"Yes" : L"No"));
    return frequency;
}

Element ActionElement(const Job& job, int number)
{
    Element action{Numbered(L"Action_", number), {}, {}};
    if (job.powerOn)
        action.children.push_back(TextElement(L"PowerOn", L"Yes"));
    if (job.scheme != nullptr)
        action.children.push_back(TextElement(L"ApplyScheme", job.scheme));
    if (job.powerOff != nullptr)
        action.children.push_back({Numbered(L"PowerOff_", number), {},
            {TextElement(L"type", job.powerOff), TextElement(L"idlefor", job.idle),
                TextElement(L"AppSensor", job.sensor)}});
    Element tasks{Numbered(L"RunTask_", number), {}, {}};
    for (const Task& task : job.tasks) {
        if (task.path == nullptr)
            break;
        tasks.children.push_back({Numbered(L"APP_", number) + NumberText(std::ssize(tasks.children) + 1), {},
            {TextElement(L"Path", task.path), TextElement(L"Parameters", task.parameters),
                TextElement(L"RDelay", task.delay), TextElement(L"REndTime", task.end)}});
    }
    action.children.push_back(std::move(tasks));
    return action;
}

void RequireSchedule(const Element& schedule, int number)
{
    RequireFields(schedule, kScheduleRecord);
    const Element& frequency = RequireElement(schedule, std::size(kScheduleRecord), Numbered(L"Frequency_", number));
    RequireCount(schedule, 4, 4);
    RequireFields(frequency, kJobStart);
    const std::wstring_view kind = frequency.children[0].text;
    if (kind != L"AST" && kind != L"Weekly" && kind != L"Monthly")
        throw Refusal{L"JobStart must be AST, Weekly or Monthly."};
    const std::span<const wchar_t* const> names = FlagNames(kind);
    for (std::size_t i = 0; i < names.size(); ++i)
        RequireFields(frequency, std::array{RecordField{names[i], Value::YesNo, {}}}, 1 + i);
    RequireCount(frequency, 1 + names.size(), 1 + names.size());
}

void RequireAction(const Element& action, int number)
{
    const std::wstring powerOff = Numbered(L"PowerOff_", number);
    std::size_t at = 0;
    const auto isNext
        = [&](std::wstring_view name) { return at < action.children.size() && action.children[at].name == name; };
    if (isNext(L"PowerOn"))
        RequireFields(action, kPowerOn, at++);
    if (isNext(L"ApplyScheme"))
        RequireFields(action, kApplyScheme, at++);
    if (isNext(powerOff))
        RequireRecord(action.children[at++], kPowerOffRecord);
    const Element& tasks = RequireElement(action, at, Numbered(L"RunTask_", number));
    RequireCount(action, at + 1, at + 1);
    RequireCount(tasks, 0, kMaxTasks);
    for (std::size_t task = 0; task < tasks.children.size(); ++task) {
        const std::wstring name = Numbered(L"APP_", number) + NumberText(static_cast<int>(task + 1));
        RequireRecord(RequireElement(tasks, task, name), kTaskRecord);
    }
}

} // namespace

Element InitialJobs(int count)
{
    Element details{L"details", {}, {}};
    for (int number = 1; number <= count; ++number) {
        const int row = (number - 1) % static_cast<int>(std::size(kJobs));
        const Job& job = kJobs[row];
        const std::wstring name = row + 1 == number ? job.name : job.name + NumberText(number);
        Element schedule{Numbered(L"Schedule_", number), {},
            {TextElement(L"StartTime", job.startTime), TextElement(L"StartDate", job.startDate),
                TextElement(L"EndDate", job.endDate), FrequencyElement(job, number)}};
        details.children.push_back({Numbered(L"Job_", number), {},
            {TextElement(L"Name", name), TextElement(L"Description", job.description),
                TextElement(L"EnabledFlag", job.enabled), std::move(schedule), ActionElement(job, number)}});
    }
    return details;
}

void RequireJobs(const Element& details)
{
    RequireCount(details, 0, kMaxJobs);
    for (std::size_t i = 0; i < details.children.size(); ++i) {
        const int number = static_cast<int>(i + 1);
        const Element& job = RequireElement(details, i, Numbered(L"Job_", number));
        RequireFields(job, kJobRecord);
        RequireSchedule(RequireElement(job, 3, Numbered(L"Schedule_", number)), number);
        RequireAction(RequireElement(job, 4, Numbered(L"Action_", number)), number);
        RequireCount(job, 5, 5);
    }
}

} // namespace voltaro::simulator
