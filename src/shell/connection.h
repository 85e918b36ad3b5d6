#pragma once

#include "base/windows_api.h"

namespace voltaro {

// Asks the agent three times whether it answers and loads everything from it; otherwise says so and greys what needs an
// agent. RunCheck calls it.
void CheckAgentConnection();

// The check with the main window disabled and the console not ready meanwhile, then painted anew.
void RunCheck(HWND main);

// Reads everything that the console shows, in a fixed order. Called by the check alone, once the agent answered.
void LoadConsoleData();

// The menu's "Refresh": schemes, policies, current settings, battery, activation and pause state.
void RefreshConsoleData(HWND main);

// "Reinitialize": the only way back from a lost agent.
void OnReinitialize(HWND main);

} // namespace voltaro
