#pragma once

#include "base/fixed_text.h"
#include "base/installation.h"

namespace voltaro {

// Made at start-up from the installation directory and the version.
struct ProgramTexts {
    InstallDirectory installDirectory{};
    FixedText<512> binDirectory;   // 1,024 bytes
    FixedText<100> versionCaption; // for the about and update windows
    FixedText<100> trayTooltip;
};
inline ProgramTexts programTexts;

} // namespace voltaro
