#pragma once

#include "console/windows.h"

namespace voltaro {

inline constexpr const wchar_t* kMainClass = L"VLTConsoleMainWClass";
inline constexpr const wchar_t* kMainTitle = L"Voltaro Console - Standard Edition";

// Registers the program's window classes in their order. The first that Windows refuses is reported to the user and
// ends with false.
[[nodiscard]] bool RegisterClasses();

// Creates every window of the program in its order, all hidden but the tab pages inside their windows, and files their
// handles. The first that fails is reported to the user and ends with false.
[[nodiscard]] bool CreateWindows();

// One window: what its class is, where it stands and who owns it. For tests that walk all windows.
struct WindowRow {
    WindowId id;
    const wchar_t* className;
    const wchar_t* title;
    DWORD extendedStyle;
    DWORD style;
    int x;
    int y;
    int width;
    int height;
    WindowId owner; // Count: none; for a child its parent
    const wchar_t* creationFailure;
};
inline constexpr std::size_t kWindowCount = static_cast<std::size_t>(WindowId::Count);
[[nodiscard]] const WindowRow& WindowRowOf(std::size_t position);

} // namespace voltaro
