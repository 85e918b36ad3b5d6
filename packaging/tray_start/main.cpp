// VoltaroTrayStart.exe: starts the console at logon and sends it to the notification area once it has loaded. The
// console itself has no command line. When the agent does not answer the console stays on screen and says so.

#include "shell/main_commands.h"
#include "shell/main_window.h"
#include "shell/window_table.h"

#include <array>
#include <string>
#include <string_view>

namespace voltaro {
namespace {

constexpr DWORD kPatience = 120'000; // ms; a logon is a busy time
constexpr DWORD kBetweenLooks = 100; // ms

// The console lies beside this program.
bool StartConsole()
{
    std::wstring path(32'767, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    path = path.substr(0, path.rfind(L'\\') + 1) + L"VoltaroConsoleSE.exe";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    if (!CreateProcessW(path.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &made))
        return false;
    CloseHandle(made.hThread);
    CloseHandle(made.hProcess);
    return true;
}

bool HasLoaded(HWND main)
{
    std::array<wchar_t, 100> text{};
    const HWND line = GetDlgItem(main, kHostLine);
    SendMessageTimeoutW(
        line, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL, 1000, nullptr);
    return IsWindowEnabled(main) && std::wstring_view(text.data()).starts_with(L"Hostname");
}

} // namespace
} // namespace voltaro

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int)
{
    using namespace voltaro;
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (FindWindowW(kMainClass, kMainTitle))
        return 0; // started by the user meanwhile
    if (!StartConsole())
        return 1;
    for (DWORD waited = 0; waited < kPatience; waited += kBetweenLooks) {
        const HWND main = FindWindowW(kMainClass, kMainTitle);
        if (main && HasLoaded(main)) {
            PostMessageW(main, WM_COMMAND, kMenuExitToTray, 0);
            return 0;
        }
        Sleep(kBetweenLooks);
    }
    return 0;
}
