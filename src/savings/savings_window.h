#pragma once

#include "base/windows_api.h"

namespace voltaro {

// The savings report: a day's figures and its graph on three pages.
LRESULT CALLBACK SavingsWindowProc(HWND window, UINT message, WPARAM w, LPARAM l);

// Shows the window with the day chosen last; asks the agent for nothing.
void OpenSavingsWindow(HWND main);

// Works the shown day's figures out again, for a consumption profile that has changed.
void RecomputeSavings();

} // namespace voltaro
