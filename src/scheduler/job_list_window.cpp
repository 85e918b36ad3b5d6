// The job list: the machine's scheduled jobs, added, changed, deleted here and stored with the agent as a whole. Opened
// from the main window's menu.
#include "scheduler/job_list_window.h"

#include "base/computer_name.h"
#include "base/error_log.h"
#include "base/local_clock.h"
#include "base/text.h"
#include "console/activation.h"
#include "console/agent.h"
#include "console/change.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "scheduler/job_controls.h"
#include "scheduler/job_document.h"
#include "scheduler/job_editor_window.h"
#include "scheduler/job_texts.h"
#include "ui/boxes.h"
#include "ui/list_view.h"
#include "ui/row_tips.h"
#include "ui/theme.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace voltaro {
namespace {

enum Id : int {
    kTitle = 101,
    kHost,
    kJobs,
    kAdd,
    kModify,
    kDelete,
    kRemoveAll,
    kFullText,
    kFullHint,
    kSave,
    kOk,
    kCancel,
};

// clang-format off
constexpr Control kControls[] = {
    // kind             id          text                                  x    y    w    h
    {Kind::Label,       kTitle,     L"",                                  12,  10, 720,  22},
    {Kind::Label,       kNoId,      L"Host Name :",                       12,  42,  90,  18},
    {Kind::Edit,        kHost,      L"",                                 108,  39, 250,  23},
    {Kind::GroupBox,    kNoId,      L"Scheduled Job List",                 8,  70, 728, 324},
    {Kind::ListView,    kJobs,      L"",                                  16,  92, 712, 294, kPlain, L"Scheduled Job List"},
    {Kind::Push,        kAdd,       L"Add Job..",                         12, 402, 110,  25, kGroup},
    {Kind::Push,        kModify,    L"Modify Job..",                     130, 402, 110,  25},
    {Kind::Push,        kDelete,    L"Delete Job",                       248, 402, 110,  25},
    {Kind::Push,        kRemoveAll, L"Remove All Scheduled Jobs",        536, 402, 196,  25},
    {Kind::Label,       kFullText,  L"Voltaro users can schedule up to ten jobs. Ten jobs are already scheduled.", 12, 438, 720, 18, kHidden},
    {Kind::Label,       kFullHint,  L"Please delete one / more of the exisiting jobs, if you want to schedule new ones.", 12, 457, 720, 18, kHidden},
    {Kind::Push,        kSave,      L"Save",                             461, 486,  85,  25, kGroup | kDisabled},
    {Kind::DefaultPush, kOk,        L"OK",                               554, 486,  85,  25},
    {Kind::Push,        kCancel,    L"Cancel",                           647, 486,  85,  25},
};

constexpr Column kColumns[] = {
    {L"Scheduled Job Names", 132}, {L"Description", 102}, {L"Start Time", 74}, {L"Scheduled Type", 134},
    {L"No.Of EXEs", 82}, {L"Power Off", 68}, {L"Upon Idleness of", 116},
};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 744, 521));

constexpr int kNeedSelection[] = {kModify, kDelete};
constexpr int kFullLines[] = {kFullText, kFullHint};

constexpr const wchar_t* kTitleText = L"Job Scheduling To The Host :  ";
constexpr const wchar_t* kLicenseCaption = L"Save failed";

constexpr Box kDeleteJob = {L"Delete Job",
    L"If you delete the '%ls' job, all scheduled tasks associated with it will be deleted.\n\nDo you want to continue?",
    BoxIcon::Question, BoxButtons::YesNo};
constexpr Box kDeleteAll = {L"Delete all Jobs",
    L"Are you sure you want to remove all scheduled jobs from '%ls' System?\n\n All jobs and associated tasks will be "
    L"deleted.",
    BoxIcon::Question, BoxButtons::YesNo};
constexpr Box kSaveFailed = {L"Save failed", L"Unable to save the scheduled jobs."};
constexpr Box kReadFailed = {L"Job Scheduler", L"Unable to read the scheduled jobs."};

// The list as the screen shows it, and whether the agent's is another.
struct Session {
    ScheduledJobs jobs;
    bool edited = false;  // by the editor
    bool deleted = false; // a job was deleted

    [[nodiscard]] bool IsChanged() const { return edited || deleted; }
};
Session session;

HWND Window()
{
    return WindowOf(WindowId::JobList);
}

HWND ListOf(HWND window)
{
    return ControlOf(window, kJobs);
}

std::optional<std::size_t> SelectedJob(HWND window)
{
    const int row = OnlySelectedRow(ListOf(window));
    if (row < 0 || static_cast<std::size_t>(row) >= session.jobs.size())
        return std::nullopt;
    return static_cast<std::size_t>(row);
}

void EnableButtons(HWND window)
{
    const bool full = session.jobs.size() >= kMaxJobs;
    Show(window, kAdd, !full);
    Show(window, kFullLines, full);
    Enable(window, kNeedSelection, SelectedJob(window).has_value());
    Enable(window, kSave, session.IsChanged());
}

void FillJobs(HWND window)
{
    FillRows(ListOf(window), session.jobs, JobRow);
    EnableButtons(window);
}

std::wstring TipOf(HWND, int row)
{
    if (static_cast<std::size_t>(row) >= session.jobs.size())
        return {};
    return NextRunText(session.jobs[static_cast<std::size_t>(row)], LocalNow());
}

// --- the agent ---

// An answer without details is an empty list. One that cannot be read or tells a failure is none: the next "Save" would
// delete the agent's jobs.
bool LoadJobs(HWND window, HWND boxOwner)
{
    Reply reply = SendOrLose(Plain(Operation::GetSchedulerSettings));
    if (!reply.Answered())
        return false;
    if (reply.Root() == nullptr || IsWord(reply.Status(), kFailure)) {
        ShowMessage(boxOwner, kReadFailed);
        return false;
    }
    const Element* details = FirstElement(*reply.Root(), L"details");
    ReadJobs read = details != nullptr ? ReadJobList(*details) : ReadJobs{};
    if (read.droppedJobs > 0)
        LogFault("job list", "jobs beyond the tenth, or not readable, are dropped");
    if (read.droppedTasks > 0)
        LogFault("job list", "tasks beyond a job's seventh, or not readable, are dropped");
    session = {std::move(read.jobs), false, false};
    FillJobs(window);
    return true;
}

// What the agent holds afterwards is read again. True when the list was stored.
bool StoreJobs(HWND window, ScheduledJobs jobs)
{
    // A list that is too long for a request counts as failed too: the agent is not to blame for it.
    const ChangeTexts texts{kLicenseCaption, kSaveFailed};
    if (SubmitChange(window, texts, {Operation::ApplySchedulerSettings, {BuildJobList(jobs)}}) != ChangeResult::Done)
        return false;
    session = {std::move(jobs), false, false};
    FillJobs(window);
    static_cast<void>(LoadJobs(window, window));
    return true;
}

// --- handlers ---

void OnStored(std::size_t position)
{
    session.edited = true;
    FillJobs(Window());
    SelectRow(ListOf(Window()), static_cast<int>(position));
}

void OnAdd(HWND)
{
    if (session.jobs.size() < kMaxJobs)
        OpenJobEditor(session.jobs, session.jobs.size(), OnStored);
}

void OnModify(HWND window)
{
    if (const auto job = SelectedJob(window))
        OpenJobEditor(session.jobs, *job, OnStored);
}

void OnDelete(HWND window)
{
    const auto job = SelectedJob(window);
    if (!job || !AskQuestion(window, kDeleteJob, WithName(kDeleteJob.text, session.jobs[*job].name)))
        return;
    session.jobs.erase(session.jobs.begin() + static_cast<std::ptrdiff_t>(*job));
    session.deleted = true;
    FillJobs(window);
    SelectRow(ListOf(window), std::min(static_cast<int>(*job), RowCount(ListOf(window)) - 1));
}

void OnRemoveAll(HWND window)
{
    if (AskQuestion(window, kDeleteAll, WithName(kDeleteAll.text, ComputerName())))
        StoreJobs(window, {});
}

void OnSave(HWND window)
{
    if (session.IsChanged())
        StoreJobs(window, session.jobs);
}

void OnOk(HWND window)
{
    if (!session.IsChanged() || StoreJobs(window, session.jobs))
        ShowWindow(window, SW_HIDE);
}

// What is dropped is not remembered: the next opening reads the agent's list.
void OnCancel(HWND window)
{
    if (session.IsChanged() && !AskQuestion(window, kJobsUnsaved))
        return;
    session = {};
    ShowWindow(window, SW_HIDE);
}

void OnEnter(HWND window)
{
    if (GetFocus() == ListOf(window))
        OnModify(window);
    else
        OnOk(window);
}

constexpr Command kCommands[] = {
    {kAdd, OnAdd},
    {kModify, OnModify},
    {kDelete, OnDelete},
    {kRemoveAll, OnRemoveAll},
    {kSave, OnSave},
    {kOk, OnOk},
    {kCancel, OnCancel},
    {IDOK, OnEnter},
    {IDCANCEL, OnCancel},
    {kJobs, EnableButtons, LVN_ITEMCHANGED},
    {kJobs, OnModify, NM_DBLCLK},
    {kJobs, OnDelete, kDeleteKey},
};

void OnCreate(HWND window)
{
    session = {};
    SendMessageW(ControlOf(window, kTitle), WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(18, 500)), FALSE);
    SendMessageW(ControlOf(window, kHost), EM_SETREADONLY, TRUE, 0);
    SetText(window, kTitle, kTitleText + ComputerName());
    SetText(window, kHost, ComputerName());
    // Seven columns find room side by side in smaller letters only.
    SendMessageW(ListOf(window), WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(13, 400)), FALSE);
    SetColumns(ListOf(window), kColumns);
    SetRowTips(ListOf(window), TipOf);
}

constexpr WindowTables kTables = {kControls, kCommands, kJobHelpPage, OnCreate};

} // namespace

void OpenJobListWindow(HWND main)
{
    const HWND window = Window();
    const HWND editor = WindowOf(WindowId::JobEditor);
    if (!IsWindowVisible(window) && !session.IsChanged()) {
        SelectRow(ListOf(window), -1);
        if (!LoadJobs(window, main))
            return;
    }
    const bool editing = IsWindowVisible(editor) != FALSE;
    EnableWindow(window, !editing);
    ShowWindow(window, SW_SHOWNORMAL);
    SetForegroundWindow(editing ? editor : window);
    if (!editing)
        SetFocus(ListOf(window));
}

LRESULT CALLBACK JobListWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

} // namespace voltaro
