#pragma once

#include "base/platform_calls.h"

#include <optional>
#include <string>

namespace voltaro {

// A file-open dialog prepared once at start-up and shown when a window asks for it. `filter` is in the platform's form:
// pairs of NUL-separated texts.
struct FileDialog {
    const wchar_t* filter;
    const wchar_t* title;
};

// Lets the user choose an existing file; the full path, or nothing when it was cancelled. A path that the agent cannot
// use, longer than 259 units, is refused with a message box.
[[nodiscard]] std::optional<std::wstring> ChooseFile(HWND owner, const FileDialog& dialog);

} // namespace voltaro
