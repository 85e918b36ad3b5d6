#include "shell/closing.h"

#include "base/platform_calls.h"
#include "console/help.h"
#include "shell/main_commands.h"
#include "shell/main_menus.h"
#include "shell/main_window.h"
#include "shell/tray.h"
#include "shell/workers.h"
#include "ui/boxes.h"
#include "ui/menus.h"
#include "ui/ui_thread.h"

namespace voltaro {
namespace {

constexpr Box kCloseQuestion = {L"Close Voltaro Console ?",
    L"Voltaro will automatically close in 5 Seconds.\n\nDo you want to close Voltaro Console now?",
    BoxIcon::Information, BoxButtons::YesNo};
constexpr Box kCloseForUpdate = {L"Close Voltaro Console",
    L"Voltaro Console needs to be closed for applying update\n\nVoltaro will automatically close in 5 Seconds.",
    BoxIcon::Information};

// Shows one of the two self-closing boxes; the tray's "Close" is grey meanwhile.
Answer AskBeforeClosing(HWND main, const Box& box)
{
    EnableItem(TrayMenu(), kTrayClose, false);
    const Answer answer = AskWithTimeout(main, box, timing.selfClosingBox);
    EnableItem(TrayMenu(), kTrayClose, true);
    return answer;
}

} // namespace

void OnCloseQuestion(HWND main)
{
    if (AskBeforeClosing(main, kCloseQuestion) != Answer::No) {
        DestroyWindow(main);
        return;
    }
    ShowWindow(main, SW_RESTORE);
    ShowNormalControls(main);
}

void CloseForUpdate(HWND main)
{
    static_cast<void>(AskBeforeClosing(main, kCloseForUpdate)); // however it ends
    DestroyWindow(main);
}

LRESULT OnMainDestroyed()
{
    CloseHelp();
    EndWaits();
    SuppressMessageBoxes();
    StopWorkers(StopOrder::MainWindowDestroyed);
    RemoveTrayIcon();
    DestroyMainMenus();
    PostQuitMessage(0);
    return 0;
}

LRESULT OnQueryEndSession(LPARAM reason)
{
    constexpr LPARAM kStopsProgram = ENDSESSION_CLOSEAPP | ENDSESSION_CRITICAL | static_cast<LPARAM>(ENDSESSION_LOGOFF);
    if (reason & kStopsProgram) {
        CloseHelp();
        EndWaits();
        SuppressMessageBoxes();
        StopWorkers(StopOrder::SessionEnds);
        RemoveTrayIcon();
        PostQuitMessage(0);
    }
    return TRUE;
}

LRESULT OnEndSession(HWND main, WPARAM ending, LPARAM reason)
{
    if (!ending || !(reason & ENDSESSION_CLOSEAPP))
        return DefWindowProcW(main, WM_ENDSESSION, ending, reason);
    RemoveTrayIcon();
    PostQuitMessage(0);
    return 0;
}

} // namespace voltaro
