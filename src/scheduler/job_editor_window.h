#pragma once

#include "base/windows_api.h"
#include "scheduler/job.h"
#include "ui/boxes.h"

#include <cstddef>

namespace voltaro {

inline constexpr const wchar_t* kJobHelpPage = L"Job Scheduler.htm"; // of the job list window and the editor

// Asked by both before changes are dropped.
inline constexpr Box kJobsUnsaved
    = {L"Changes not saved", L"Are you sure you want to cancel the changes?", BoxIcon::Question, BoxButtons::YesNo};

// The editor's messages.
LRESULT CALLBACK JobEditorWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Opens the editor on the job at `position` of the list, or on a new one where position is jobs.size(). The job list
// window is disabled while it is open. "Save" and "Update" write the record into `jobs`, which must live until then,
// and call `stored` with its position; an update that changes nothing does not.
void OpenJobEditor(ScheduledJobs& jobs, std::size_t position, void (*stored)(std::size_t position));

} // namespace voltaro
