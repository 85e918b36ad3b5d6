// The "Tasks" page of the job editor: the list of programs, and the fields to add, change and delete one.
#include "scheduler/job_tasks_page.h"

#include "console/window_tables.h"
#include "console/windows.h"
#include "scheduler/job_controls.h"
#include "scheduler/job_rules.h"
#include "scheduler/job_texts.h"
#include "ui/boxes.h"
#include "ui/combo_box.h"
#include "ui/commands.h"
#include "ui/file_dialog.h"
#include "ui/list_view.h"
#include "ui/refusals.h"
#include "ui/tooltip.h"

#include <algorithm>
#include <string>
#include <utility>

namespace voltaro {
namespace {

enum Id : int { kPath = 101, kBrowse, kParameters, kEndTime, kRepeat, kInterval, kAdd, kUpdate, kDelete, kTasks };

// clang-format off
constexpr Control kControls[] = {
    // kind            id           text                                         x    y    w    h
    {Kind::Label,      kNoId,       L".exe/.bat File Path :",                   10,   8, 180,  18},
    {Kind::Edit,       kPath,       L"",                                       194,   5, 376,  23},
    {Kind::Push,       kBrowse,     L"...",                                    574,   4,  30,  25, kGroup, L"Choose a file"},
    {Kind::Label,      kNoId,       L"Command Line Parameters :",               10,  37, 180,  18},
    {Kind::Edit,       kParameters, L"",                                       194,  34, 410,  23},
    {Kind::Label,      kNoId,       L"End Time :",                              10,  66, 180,  18},
    {Kind::TimePicker, kEndTime,    L"",                                       194,  62, 120,  24},
    {Kind::CheckBox,   kRepeat,     L"Repeat Interval :",                      350,  63, 130,  22},
    {Kind::Combo,      kInterval,   L"",                                       484,  62, 120, 240, kPlain, L"Length of the repeat interval"},
    {Kind::Push,       kAdd,        L"Add Task",                               614,   4,  95,  25, kGroup},
    {Kind::Push,       kUpdate,     L"Update Task",                            614,  33,  95,  25},
    {Kind::Push,       kDelete,     L"Delete",                                 614,  62,  95,  25},
    {Kind::GroupBox,   kNoId,       L"Scheduled Task List",                      8,  88, 700, 110},
    {Kind::ListView,   kTasks,      L"",                                        16, 105, 684,  88, kPlain, L"Scheduled Task List"},
    {Kind::Label,      kNoId,       L"a) If entered path is not found, then the .exe/.bat file is neglected for execution.", 10, 200, 700, 17},
    {Kind::Label,      kNoId,       L"b) To modify the entered .exe/.bat details, double click that entry in the above list.", 10, 217, 700, 17},
};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 717, 236));

constexpr Column kColumns[] = {{L".exe/.bat File Path", 460}, {L"End Time", 100}, {L"Delay", 100}};

constexpr Box kLimitReached = {L"Max Task limit reached.",
    L"\nWith the addition of this task, max. limit of 7 tasks per Job is reached.\nIf you need to schedule more tasks, "
    L"either use a new Job or remove existing tasks from the current Job.",
    BoxIcon::Information};

constexpr FileDialog kProgramDialog = {L"Execute Files (*.exe;*.bat)\0*.exe;*.bat\0", L"Select an exe file"};

constexpr const wchar_t* kLastSecond = L"23:59:59";
constexpr int kNone = -1;

ScheduledJob edited;             // of it the tasks alone, as the list shows them
int loaded = kNone;              // the task that the fields were filled from
ScheduledTask filled;            // what the fields held before the user touched them
std::int32_t storedInterval = 0; // minutes; survives as long as the entry that shows it stays selected

HWND Page()
{
    return WindowOf(WindowId::JobTasks);
}

HWND ListOf(HWND page)
{
    return ControlOf(page, kTasks);
}

void EnableFields(HWND page)
{
    Enable(page, kInterval, IsChecked(page, kRepeat));
    Enable(page, kAdd, edited.tasks.size() < kMaxTasks);
    Enable(page, kUpdate, loaded != kNone);
    Enable(page, kDelete, OnlySelectedRow(ListOf(page)) >= 0);
}

ScheduledTask CollectTask(HWND page)
{
    ScheduledTask task = loaded != kNone ? edited.tasks[static_cast<std::size_t>(loaded)] : ScheduledTask();
    task.path = TextOf(page, kPath);
    task.parameters = TextOf(page, kParameters);
    task.delayEnabled = IsChecked(page, kRepeat);
    const auto selected = static_cast<std::size_t>(SelectedIndex(page, kInterval));
    if (task.delayEnabled)
        task.delayMinutes = ChosenNumber(kRepeatChoices, selected, storedInterval);
    task.endTime = TimeShown(page, kEndTime);
    return task;
}

// Fills the fields from the task of that number, or empties them.
void Load(HWND page, int number)
{
    ScheduledTask task;
    task.endTime = kLastSecond;
    if (number != kNone)
        task = edited.tasks[static_cast<std::size_t>(number)];
    loaded = number;
    SetText(page, kPath, task.path);
    SetText(page, kParameters, task.parameters);
    ShowTime(page, kEndTime, task.endTime);
    SetChecked(page, kRepeat, task.delayEnabled);
    storedInterval = task.delayEnabled ? task.delayMinutes : kRepeatChoices[0].number;
    ShowNumber(page, kInterval, kRepeatChoices, storedInterval);
    filled = CollectTask(page);
    EnableFields(page);
}

void FillTasks(HWND page)
{
    FillRows(ListOf(page), edited.tasks, TaskRow);
    EnableFields(page);
}

bool PathPasses(HWND page, EditMode mode)
{
    const auto path = CollectTask(page).path;
    return !RefuseInput(page, kPath, CheckTaskPath(path, edited, mode), path);
}

// --- handlers ---

void OnAdd(HWND page)
{
    if (edited.tasks.size() >= kMaxTasks || !PathPasses(page, EditMode::Add))
        return;
    edited.tasks.push_back(CollectTask(page));
    FillTasks(page);
    Load(page, kNone);
    FocusOn(page, kPath);
    if (edited.tasks.size() == kMaxTasks)
        ShowMessage(GetParent(page), kLimitReached);
}

void OnUpdate(HWND page)
{
    if (loaded == kNone || !PathPasses(page, EditMode::Update))
        return;
    ScheduledTask& stored = edited.tasks[static_cast<std::size_t>(loaded)];
    ScheduledTask task = CollectTask(page);
    for (const auto slot : {&ScheduledTask::path, &ScheduledTask::parameters, &ScheduledTask::endTime}) {
        if (task.*slot == filled.*slot)
            task.*slot = stored.*slot; // perhaps a text that the field cannot show, such as an end time that is none
    }
    stored = std::move(task);
    FillTasks(page);
    Load(page, kNone);
    FocusOn(page, kPath);
}

void OnDelete(HWND page)
{
    const int row = OnlySelectedRow(ListOf(page));
    if (row < 0)
        return;
    edited.tasks.erase(edited.tasks.begin() + row);
    if (loaded == row)
        Load(page, kNone);
    else if (loaded > row)
        --loaded;
    FillTasks(page);
    SelectRow(ListOf(page), std::min(row, RowCount(ListOf(page)) - 1));
}

void OnEdit(HWND page)
{
    const int row = OnlySelectedRow(ListOf(page));
    if (row < 0)
        return;
    Load(page, row);
    FocusOn(page, kPath);
}

void OnBrowse(HWND page)
{
    if (const auto path = ChooseFile(GetParent(page), kProgramDialog)) {
        SetText(page, kPath, *path);
        FocusOn(page, kPath);
    }
}

constexpr Command kCommands[] = {
    {kBrowse, OnBrowse},
    {kRepeat, EnableFields},
    {kAdd, OnAdd},
    {kUpdate, OnUpdate},
    {kDelete, OnDelete},
    {kTasks, EnableFields, LVN_ITEMCHANGED},
    {kTasks, OnEdit, NM_DBLCLK},
    {kTasks, OnDelete, kDeleteKey},
};

void OnCreate(HWND page)
{
    SetColumns(ListOf(page), kColumns);
    SetTooltip(ControlOf(page, kBrowse), L"Choose a file");
    LimitText(page, kPath, kMaxTaskText);
    LimitText(page, kParameters, kMaxTaskText);
}

constexpr WindowTables kTables = {kControls, kCommands, nullptr, OnCreate};

} // namespace

void ShowTasks(const std::vector<ScheduledTask>& tasks)
{
    edited.tasks = tasks;
    SelectRow(ListOf(Page()), kNone);
    FillTasks(Page());
    Load(Page(), kNone);
}

const std::vector<ScheduledTask>& TasksShown()
{
    return edited.tasks;
}

bool AreTaskFieldsFilled()
{
    return CollectTask(Page()) != filled;
}

bool TakeTaskEnter()
{
    const HWND page = Page();
    const HWND focus = GetFocus();
    if (focus == nullptr || !IsChild(page, focus))
        return false;
    if (focus == ListOf(page))
        OnEdit(page);
    else if (loaded != kNone)
        OnUpdate(page);
    else if (AreTaskFieldsFilled() && edited.tasks.size() < kMaxTasks)
        OnAdd(page);
    else
        return false;
    return true;
}

void FocusOnTaskPath()
{
    FocusOn(Page(), kPath);
}

LRESULT CALLBACK JobTasksPageProc(HWND page, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, page, message, w, l);
}

} // namespace voltaro
