#pragma once

#include "base/windows_api.h"
#include "console/agent_state.h"
#include "console/connection_state.h"

#include <string_view>

namespace voltaro {

// The agent last reported that it runs; the status poller reads the battery only then.
inline SharedFlag notPaused;

// Asks the agent to pause for that many hours (1 to 5); after a success the console goes to the tray.
void PauseFor(HWND main, int hours);

template <int Hours>
void OnPause(HWND main)
{
    PauseFor(main, Hours);
}

// Ends the pause. The running state is shown at once, before the agent answers, and stays whatever it answers: users
// know it so, and the next status that is read corrects it.
void OnResume(HWND main);

// Menus, tray icon and tooltip in the paused or the running state.
void ShowPausedState();
void ShowRunningState();

// Shows the state that a status text stands for: "Resumed", or the hours "1" to "5". Any other text changes nothing.
void ApplyPauseStatus(std::wstring_view status);

// The status request is built once, with the main window, and reused for every read, identifier included.
void PreparePauseStatus();
// Reads and applies the pause status, from any thread.
ReadResult ReadPauseStatus();

} // namespace voltaro
