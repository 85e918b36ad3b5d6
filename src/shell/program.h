#pragma once

#include "resources/version.h"

namespace voltaro {

inline constexpr const char* kVersion = VOLTARO_VERSION;

// The steps of start-up that tests take too.

// Bin directory, version caption and tray tooltip from the installation directory and the version.
void PrepareVersionTexts();

// The main window disabled, greyed and not connected, as it stands before the first check.
void PrepareForCheck();

} // namespace voltaro
