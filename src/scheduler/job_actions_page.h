#pragma once

#include "base/windows_api.h"
#include "scheduler/job.h"

namespace voltaro {

// The "Actions" page of the job editor: wake up, power scheme, power off.
LRESULT CALLBACK JobActionsPageProc(HWND page, UINT message, WPARAM w, LPARAM l);

// Fills the page from a job, and puts what it shows into one. What an unset scheme or power-off leaves out is empty.
void ShowActions(const ScheduledJob& job);
void CollectActions(ScheduledJob& job);

} // namespace voltaro
