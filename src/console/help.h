#pragma once

#include "base/windows_api.h"

#include <string>

namespace voltaro {

// Opens a page of the help file, such as L"Main Window.htm", with `owner` as the viewer's owner. One box says so when
// the help file is missing.
void OpenHelp(HWND owner, const wchar_t* page);

// Closes the viewer's windows, which are windows of this process; for the end of the program.
void CloseHelp();

// The full topic: the help file below the installation directory, "::/" and the page.
[[nodiscard]] std::wstring HelpTopic(const wchar_t* page);

} // namespace voltaro
