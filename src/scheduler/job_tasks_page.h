#pragma once

#include "base/windows_api.h"
#include "scheduler/job.h"

#include <vector>

namespace voltaro {

// The "Tasks" page of the job editor: the programs that the job starts, and the fields to add or change one.
LRESULT CALLBACK JobTasksPageProc(HWND page, UINT message, WPARAM w, LPARAM l);

// Fills the list from a job's tasks, with empty fields; and the tasks as they stand in it, at most kMaxTasks.
void ShowTasks(const std::vector<ScheduledTask>& tasks);
[[nodiscard]] const std::vector<ScheduledTask>& TasksShown();

// True when the fields hold something that is in no task yet.
[[nodiscard]] bool AreTaskFieldsFilled();

// Enter with the focus on the page: on a task it loads it, in filled fields it adds or updates the task. False when it
// means the editor's own button.
[[nodiscard]] bool TakeTaskEnter();

// Where the user is sent to enter a task.
void FocusOnTaskPath();

} // namespace voltaro
