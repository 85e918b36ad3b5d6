#pragma once

#include "base/windows_api.h"

#include <functional>

namespace voltaro {

// The main window's own messages, beside the tray's callback.
inline constexpr UINT kTrayMessage = 1025;
inline constexpr UINT kRunOnUiMessage = WM_APP + 1;
inline constexpr UINT kPostedOnUiMessage = WM_APP + 2;
inline constexpr UINT kServeEventsMessage = WM_APP + 3;

// Runs a piece of work on the user-interface thread and returns when it is done; called there, it runs at once. Workers
// hand over what they read with it, so that records and controls are written by one thread. Once the program is ending
// the work is dropped.
void OnUi(const std::function<void()>& work);

// The same without waiting.
void PostOnUi(std::function<void()> work);

// For the main window's procedure.
void RunSentWork(LPARAM l);
void RunPostedWork();

} // namespace voltaro
