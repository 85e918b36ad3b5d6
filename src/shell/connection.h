#pragma once

#include "base/windows_api.h"

namespace voltaro {

// Asks the agent three times whether it answers and loads everything from it; otherwise says so and greys what needs an
// agent. Start-up and "Reinitialize" call it, with the main window disabled.
void CheckAgentConnection();

// Reads everything that the console shows, in a fixed order. Called by the check alone, once the agent answered.
void LoadConsoleData();

// The menu's "Refresh": schemes, policies, current settings, battery, activation and pause state.
void RefreshConsoleData();
void OnRefresh(HWND main);

// "Reinitialize": the only way back from a lost agent.
void OnReinitialize(HWND main);

} // namespace voltaro
