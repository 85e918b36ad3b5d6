#pragma once

#include "base/timing.h"
#include "base/windows_api.h"

#include <cstdint>
#include <optional>
#include <string>

namespace voltaro {

enum class Answer : std::uint8_t;
struct BoxCall;
struct FileDialog;

// The calls of the platform that tests answer themselves; null is the platform's own. What they are for stands with the
// functions that make them.
struct PlatformCalls {
    Timing timing;
    Answer (*showMessageBox)(const BoxCall& call) = nullptr;                                   // ui/boxes.h
    std::optional<std::wstring> (*chooseFile)(HWND owner, const FileDialog& dialog) = nullptr; // ui/file_dialog.h
    void (*showHelp)(HWND owner, const std::wstring& topic) = nullptr;                         // console/help.h
    void (*lockScreen)() = nullptr;                                                            // shell/quick_actions.h
    bool (*hasHighContrast)() = nullptr;                                                       // ui/theme.h
    std::optional<COLORREF> (*tabBodyColour)() = nullptr;                                      // ui/theme.h
    MONITORINFO (*screenOf)(HWND window) = nullptr;                                            // ui/theme.h
    int (*trayIconSize)() = nullptr;                                                           // ui/theme.h
};
inline PlatformCalls platformCalls;
inline Timing& timing = platformCalls.timing;

} // namespace voltaro
