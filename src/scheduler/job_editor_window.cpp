// The job editor: name, schedule, actions and tasks of one job. Opened from the job list window, into whose list it
// writes; it sends nothing itself.
#include "scheduler/job_editor_window.h"

#include "base/local_clock.h"
#include "base/text.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "scheduler/job_actions_page.h"
#include "scheduler/job_controls.h"
#include "scheduler/job_rules.h"
#include "scheduler/job_tasks_page.h"
#include "scheduler/job_texts.h"
#include "ui/boxes.h"
#include "ui/combo_box.h"
#include "ui/commands.h"
#include "ui/navigation.h"
#include "ui/refusals.h"
#include "ui/tabs.h"

#include <span>
#include <vector>

namespace voltaro {
namespace {

enum Id : int {
    kName = 101,
    kDescription,
    kStartTime,
    kOnDate,
    kWeekly,
    kMonthly,
    kDailyText,
    kDateLabel,
    kDate,
    kStartDayLabel,
    kStartDay,
    kEndDayLabel,
    kEndDay,
    kEnabled,
    kTabs,
    kSave,
    kUpdate,
    kCancel,
    kSunday = 201,
    kSaturday = 207,
    kJanuary = 211,
    kDecember = 222,
};

// The controls of the four kinds of schedule share one place; those of the chosen kind are visible.
// clang-format off
constexpr Control kControls[] = {
    // kind             id              text                      x    y    w    h
    {Kind::Label,       kNoId,          L"Job Name :",            15,  13, 125,  18},
    {Kind::Edit,        kName,          L"",                     146,  10, 300,  23},
    {Kind::Label,       kNoId,          L"Job Description :",     15,  43, 125,  18},
    {Kind::Edit,        kDescription,   L"",                     146,  40, 583,  23},
    {Kind::Label,       kNoId,          L"Job start time :",      15,  73, 125,  18},
    {Kind::TimePicker,  kStartTime,     L"",                     146,  70, 130,  24},
    {Kind::Label,       kNoId,          L"Execute :",             15, 103, 125,  18},
    {Kind::Radio,       kOnDate,        L"On Date",              146, 101, 100,  22, kGroup},
    {Kind::Radio,       kWeekly,        L"Weekly",               256, 101, 100,  22},
    {Kind::Radio,       kMonthly,       L"Monthly",              366, 101, 100,  22},
    {Kind::GroupBox,    kNoId,          L"",                      15, 121, 714,  96},
    {Kind::Label,       kDailyText,     L"Runs every day. A second click on the chosen type above comes back to this.", 29, 140, 686, 18},
    {Kind::Label,       kDateLabel,     L"Date :",                29, 141, 110,  18, kHidden},
    {Kind::DatePicker,  kDate,          L"",                     146, 137, 130,  24, kHidden},
    {Kind::CheckBox,    kSunday,        L"Sunday",                29, 139,  92,  22, kHidden},
    {Kind::CheckBox,    kSunday + 1,    L"Monday",               126, 139,  92,  22, kHidden},
    {Kind::CheckBox,    kSunday + 2,    L"Tuesday",              223, 139,  92,  22, kHidden},
    {Kind::CheckBox,    kSunday + 3,    L"Wednesday",            320, 139, 100,  22, kHidden},
    {Kind::CheckBox,    kSunday + 4,    L"Thursday",             427, 139,  92,  22, kHidden},
    {Kind::CheckBox,    kSunday + 5,    L"Friday",               524, 139,  92,  22, kHidden},
    {Kind::CheckBox,    kSaturday,      L"Saturday",             621, 139,  92,  22, kHidden},
    {Kind::CheckBox,    kJanuary,       L"January",               29, 134, 105,  22, kHidden},
    {Kind::CheckBox,    kJanuary + 1,   L"February",             144, 134, 105,  22, kHidden},
    {Kind::CheckBox,    kJanuary + 2,   L"March",                259, 134, 105,  22, kHidden},
    {Kind::CheckBox,    kJanuary + 3,   L"April",                374, 134, 105,  22, kHidden},
    {Kind::CheckBox,    kJanuary + 4,   L"May",                  489, 134, 105,  22, kHidden},
    {Kind::CheckBox,    kJanuary + 5,   L"June",                 604, 134, 105,  22, kHidden},
    {Kind::CheckBox,    kJanuary + 6,   L"July",                  29, 158, 105,  22, kHidden},
    {Kind::CheckBox,    kJanuary + 7,   L"August",               144, 158, 105,  22, kHidden},
    {Kind::CheckBox,    kJanuary + 8,   L"September",            259, 158, 105,  22, kHidden},
    {Kind::CheckBox,    kJanuary + 9,   L"October",              374, 158, 105,  22, kHidden},
    {Kind::CheckBox,    kJanuary + 10,  L"November",             489, 158, 105,  22, kHidden},
    {Kind::CheckBox,    kDecember,      L"December",             604, 158, 105,  22, kHidden},
    {Kind::Label,       kStartDayLabel, L"Job Start On :",        29, 189, 110,  18, kHidden},
    {Kind::Combo,       kStartDay,      L"",                     146, 185,  70, 240, kHidden},
    {Kind::Label,       kEndDayLabel,   L"Job End On :",         259, 189, 105,  18, kHidden},
    {Kind::Combo,       kEndDay,        L"",                     374, 185,  70, 240, kHidden},
    {Kind::CheckBox,    kEnabled,       L"Enable Job*",           15, 222, 125,  22},
    {Kind::Label,       kNoId,          L"*  Please check  'Enable Job'  check box to activate and run the scheduled job.", 146, 224, 583, 18},
    {Kind::Tab,         kTabs,          L"",                       8, 249, 728, 267, kPlain, L"Pages"},
    {Kind::DefaultPush, kSave,          L"Save",                 556, 523,  85,  25, kHidden},
    {Kind::DefaultPush, kUpdate,        L"Update",               556, 523,  85,  25, kHidden},
    {Kind::Push,        kCancel,        L"Cancel",               649, 523,  85,  25},
};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 744, 556));

constexpr int kOnDateControls[] = {kDateLabel, kDate};
constexpr int kWeeklyControls[] = {kSunday, kSunday + 1, kSunday + 2, kSunday + 3, kSunday + 4, kSunday + 5, kSaturday};
constexpr int kMonthlyControls[]
    = {kJanuary, kJanuary + 1, kJanuary + 2, kJanuary + 3, kJanuary + 4, kJanuary + 5, kJanuary + 6, kJanuary + 7,
        kJanuary + 8, kJanuary + 9, kJanuary + 10, kDecember, kStartDayLabel, kStartDay, kEndDayLabel, kEndDay};
constexpr int kDailyControls[] = {kDailyText};

// A kind of schedule, its radio (daily has none) and the controls that belong to it.
struct KindControls {
    ScheduleKind kind;
    int radio;
    std::span<const int> controls;
};
constexpr KindControls kKindControls[] = {
    {ScheduleKind::Daily, kNoId, kDailyControls},
    {ScheduleKind::OnDate, kOnDate, kOnDateControls},
    {ScheduleKind::Weekly, kWeekly, kWeeklyControls},
    {ScheduleKind::Monthly, kMonthly, kMonthlyControls},
};

constexpr int kTasksTab = 1;
constexpr int kDays = 31;

constexpr Box kNoTask
    = {L"No Task Defined", L"This Job does not have any task defined.\nDo you want configure tasks for this job now?",
        BoxIcon::Question, BoxButtons::YesNo};
constexpr Box kTaskUnsaved = {L"Entered Exe details are not saved", L"Are you sure you want to cancel the changes?",
    BoxIcon::Question, BoxButtons::YesNo};

// One opening of the editor.
struct Editing {
    ScheduledJobs* jobs = nullptr; // owned by the job list window
    std::size_t position = 0;
    void (*stored)(std::size_t position) = nullptr;
    ScheduleKind kind = ScheduleKind::Daily; // as chosen; the radios alone do not tell a second click from a first
    ScheduledJob opened;                     // as it was stored, or a new one
    ScheduledJob shown;                      // what the controls said before the user touched them

    [[nodiscard]] EditMode Mode() const { return position < jobs->size() ? EditMode::Update : EditMode::Add; }
};
Editing editing;

// --- the record and the controls ---

void ShowKind(HWND window, ScheduleKind kind)
{
    editing.kind = kind;
    for (const KindControls& row : kKindControls) {
        if (row.radio != kNoId) {
            SetChecked(window, row.radio, row.kind == kind);
            // Windows would choose a radio that only gets the focus; arrow keys may take this back, so said each time.
            SendMessageW(ControlOf(window, row.radio), BM_SETDONTCLICK, TRUE, 0);
        }
        Show(window, row.controls, row.kind == kind);
    }
}

void ShowFlags(HWND window, int first, std::span<const StoredFlag> flags)
{
    for (std::size_t i = 0; i < flags.size(); ++i)
        SetChecked(window, first + static_cast<int>(i), flags[i]);
}

void CollectFlags(HWND window, int first, std::span<StoredFlag> flags)
{
    for (std::size_t i = 0; i < flags.size(); ++i)
        flags[i] = IsChecked(window, first + static_cast<int>(i));
}

// What belongs to the kinds that the job does not have starts with defaults: today, no day, the whole month.
void ShowSchedule(HWND window, const ScheduledJob& job)
{
    std::vector<std::wstring> days;
    for (int day = 1; day <= kDays; ++day)
        days.push_back(Format(L"%02d", day));
    const bool monthly = job.kind == ScheduleKind::Monthly;
    ShowTime(window, kStartTime, job.startTime);
    ShowDate(window, kDate, job.startDate);
    ShowFlags(window, kSunday, job.weekDays);
    ShowFlags(window, kJanuary, job.months);
    ShowAmong(window, kStartDay, days, monthly ? job.startDate : days.front());
    ShowAmong(window, kEndDay, days, monthly ? job.endDate : days.back());
    ShowKind(window, job.kind);
}

void CollectSchedule(HWND window, ScheduledJob& job)
{
    job.startTime = TimeShown(window, kStartTime);
    if (job.kind != editing.kind) {
        job.kind = editing.kind;
        job.otherKind.reset();
        job.startDate = job.endDate = kNoDate;
    }
    if (job.kind == ScheduleKind::OnDate)
        job.startDate = job.endDate = DateShown(window, kDate); // a once job starts and ends on its date
    if (job.kind == ScheduleKind::Weekly)
        CollectFlags(window, kSunday, job.weekDays);
    if (job.kind == ScheduleKind::Monthly) {
        CollectFlags(window, kJanuary, job.months);
        job.startDate = SelectedText(window, kStartDay);
        job.endDate = SelectedText(window, kEndDay);
    }
}

void ShowJob(HWND window, const ScheduledJob& job)
{
    SetText(window, kName, job.name);
    SetText(window, kDescription, job.description);
    SetChecked(window, kEnabled, job.enabled);
    ShowSchedule(window, job);
    ShowActions(job);
    ShowTasks(job.tasks);
}

ScheduledJob CollectJob(HWND window)
{
    ScheduledJob job = editing.opened;
    job.name = TextOf(window, kName);
    job.description = TextOf(window, kDescription);
    job.enabled = IsChecked(window, kEnabled);
    CollectSchedule(window, job);
    CollectActions(job);
    job.tasks = TasksShown();
    return job;
}

// A new job runs every day at the present minute, and is not enabled until the user says so.
ScheduledJob NewJob()
{
    ScheduledJob job;
    const LocalTime now = LocalNow();
    job.startTime = TimeText(std::chrono::hours(now.hour) + std::chrono::minutes(now.minute));
    return job;
}

// --- opening, closing, storing ---

void Close(HWND window)
{
    EnableWindow(WindowOf(WindowId::JobList), TRUE); // first, or another program's window would come to the front
    ShowWindow(window, SW_HIDE);
    SetActiveWindow(WindowOf(WindowId::JobList));
}

bool IsRefused(HWND window, const ScheduledJob& job)
{
    if (RefuseInput(window, kName, CheckJobName(job.name, *editing.jobs, editing.Mode()), job.name))
        return true;
    const Refusal* refusal = CheckSchedule(job);
    if (refusal == nullptr)
        return false;
    ShowMessage(window, {refusal->title, refusal->text});
    FocusOn(window, AreDaysReversed(job) ? kStartDay : job.kind == ScheduleKind::Weekly ? kSunday : kJanuary);
    return true;
}

// What the controls cannot show as it is stored ("8:05:00", a date that is none) stays until the user changes it.
void Update(ScheduledJob& stored, ScheduledJob job)
{
    for (const auto slot :
        {&ScheduledJob::name, &ScheduledJob::description, &ScheduledJob::startTime, &ScheduledJob::startDate,
            &ScheduledJob::endDate, &ScheduledJob::schemeName, &ScheduledJob::powerOffType}) {
        if (job.*slot == editing.shown.*slot)
            job.*slot = stored.*slot;
    }
    stored = std::move(job);
}

void Store(const ScheduledJob& job)
{
    if (editing.Mode() == EditMode::Add)
        editing.jobs->push_back(job);
    else if (job == editing.shown)
        return;
    else
        Update((*editing.jobs)[editing.position], job);
    editing.stored(editing.position);
}

// Whether a task that was typed and not added keeps the editor open.
bool IsTaskKept(HWND window)
{
    return AreTaskFieldsFilled() && !AskQuestion(window, kTaskUnsaved);
}

void OnSave(HWND window)
{
    const ScheduledJob job = CollectJob(window);
    if (IsRefused(window, job))
        return;
    if (IsTaskKept(window) || (job.tasks.empty() && AskQuestion(window, kNoTask))) {
        SelectTab(ControlOf(window, kTabs), kTasksTab);
        FocusOnTaskPath();
        return;
    }
    Close(window);
    Store(job);
}

void OnEnter(HWND window)
{
    if (!TakeTaskEnter())
        OnSave(window);
}

void OnCancel(HWND window)
{
    if (CollectJob(window) != editing.shown && !AskQuestion(window, kJobsUnsaved))
        return;
    if (!IsTaskKept(window))
        Close(window);
}

// A click on the chosen radio clears it again. A radio that only got the focus may tell of a click too, unchecked.
template <ScheduleKind Kind, int Radio>
void OnKind(HWND window)
{
    if (IsChecked(window, Radio))
        ShowKind(window, editing.kind == Kind ? ScheduleKind::Daily : Kind);
}

constexpr Command kCommands[] = {
    {kOnDate, OnKind<ScheduleKind::OnDate, kOnDate>},
    {kWeekly, OnKind<ScheduleKind::Weekly, kWeekly>},
    {kMonthly, OnKind<ScheduleKind::Monthly, kMonthly>},
    {kSave, OnSave},
    {kUpdate, OnSave},
    {kCancel, OnCancel},
    {IDOK, OnEnter},
    {IDCANCEL, OnCancel},
};

void OnCreate(HWND window)
{
    LimitText(window, kName, kMaxJobName);
    LimitText(window, kDescription, kMaxDescription);
}

constexpr WindowTables kTables = {kControls, kCommands, kJobHelpPage, OnCreate};

} // namespace

void OpenJobEditor(ScheduledJobs& jobs, std::size_t position, void (*stored)(std::size_t position))
{
    const HWND window = WindowOf(WindowId::JobEditor);
    editing = {&jobs, position, stored, ScheduleKind::Daily, {}, {}};
    const bool added = editing.Mode() == EditMode::Add;
    const TabPage pages[] = {{L"Actions", WindowOf(WindowId::JobActions)}, {L"Tasks", WindowOf(WindowId::JobTasks)}};
    SetTabs(ControlOf(window, kTabs), pages);
    editing.opened = added ? NewJob() : jobs[position];
    ShowJob(window, editing.opened);
    Show(window, kSave, added);
    Show(window, kUpdate, !added);
    editing.shown = CollectJob(window);
    ShowWindow(window, SW_SHOWNORMAL);
    EnableWindow(WindowOf(WindowId::JobList), FALSE);
    SetForegroundWindow(window);
    FocusOn(window, kName);
}

LRESULT CALLBACK JobEditorWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

} // namespace voltaro
