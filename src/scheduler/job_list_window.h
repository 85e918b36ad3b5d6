#pragma once

#include "base/windows_api.h"

namespace voltaro {

// The window's messages.
LRESULT CALLBACK JobListWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Reads the agent's jobs, then fills and shows the window. An open window only comes to the front, with what the user
// changed; a lost agent or an answer without a job list is reported and opens nothing.
void OpenJobListWindow(HWND main);

} // namespace voltaro
