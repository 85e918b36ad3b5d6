// The program: finds its installation, makes all windows and workers, checks the agent, then serves messages.
#include "base/windows_api.h"
#include "console/connection_state.h"
#include "console/program_texts.h"
#include "console/windows.h"
#include "shell/connection.h"
#include "shell/main_menus.h"
#include "shell/program.h"
#include "shell/tray.h"
#include "shell/window_table.h"
#include "shell/workers.h"
#include "ui/boxes.h"
#include "ui/navigation.h"
#include "ui/ui_thread.h"

namespace {

using namespace voltaro;

constexpr Box kNoInstallation = {L"Could not read Environment variable 'VOLTARO_HOME'",
    L"Hint : If you have newly installed Voltaro,\n          Please restart your machine once, for VOLTARO to work."};

// A second console never starts; the first is restored, and not brought to the foreground beyond that.
bool RestoreRunningConsole()
{
    const HWND running = FindWindowW(kMainClass, kMainTitle);
    if (running)
        ShowWindow(running, SW_RESTORE);
    return running != nullptr;
}

void ShowMainWindow(HWND main)
{
    // Twice: Windows takes the first call's state from whoever started the program, and the window opens normal always.
    ShowWindow(main, SW_SHOWNORMAL);
    ShowWindow(main, SW_SHOWNORMAL);
    UpdateWindow(main);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int)
{
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    AdoptUiThread();
    if (RestoreRunningConsole())
        return 0;
    if (!ReadInstallPath(programTexts.installDirectory)) {
        ShowMessage(nullptr, kNoInstallation);
        return 0;
    }
    PrepareVersionTexts();
    if (!RegisterClasses() || !CreateWindows() || !StartWorkers())
        return 0;
    const HWND main = WindowOf(WindowId::Main);
    AddTrayIcon(main);
    ShowMainWindow(main);
    PrepareForCheck();
    RunCheck(main);
    return RunMessageLoop();
}
