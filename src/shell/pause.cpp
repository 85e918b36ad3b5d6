#include "shell/pause.h"

#include "base/text.h"
#include "console/activation.h"
#include "console/connection_state.h"
#include "console/program_texts.h"
#include "console/ui_calls.h"
#include "console/windows.h"
#include "resources/resource_ids.h"
#include "shell/about.h"
#include "shell/console_hold.h"
#include "shell/main_commands.h"
#include "shell/main_menus.h"
#include "shell/main_window.h"
#include "shell/tray.h"
#include "ui/boxes.h"
#include "ui/controls.h"
#include "ui/menus.h"
#include "ui/tooltip.h"

#include <iterator>

namespace voltaro {
namespace {

constexpr Box kPauseFailed = {L"Pause Failed", L"Could not Pause"};
constexpr Box kResumeFailed = {L"Resume Failed", L"Could not Resume"};
constexpr const wchar_t* kPauseRefused = L"Unable to pause";
constexpr const wchar_t* kPausedTooltip = L"Voltaro Paused";

// What the paused state needs of the main window when the agent, not the user, says that it is paused.
constexpr int kNeededWhilePaused[] = {kResumeButton, kSavingsList}; // and the quick actions

void CheckHours(int hours)
{
    for (int i = 1; i <= kPauseHours; ++i)
        CheckItem(PauseMenu(), static_cast<unsigned>(kPauseNone + i), i == hours);
}

void EnableHours(bool enabled)
{
    for (int i = 1; i <= kPauseHours; ++i)
        EnableItem(PauseMenu(), static_cast<unsigned>(kPauseNone + i), enabled);
}

void EnableResumeItems(bool enabled)
{
    EnableItem(MainMenuBar(), kResume, enabled);
    EnableItem(TrayMenu(), kResume, enabled);
}

// The pause sends the console to the tray. While a secondary window has the console, that goes too.
void HideConsole(HWND main)
{
    if (!IsConsoleReady()) {
        for (const HWND window : windowHandles) {
            if (window == main || GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD)
                continue;
            ShowWindow(window, SW_HIDE);
            EnableWindow(window, TRUE); // a dialog of its own may have disabled it, and is hidden too
        }
        CloseAbout();
        ReleaseAllHolders();
    }
    SendToTray(main);
}

std::wstring TimeOfDay()
{
    wchar_t time[80] = L"";
    GetTimeFormatEx(
        LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, nullptr, nullptr, time, static_cast<int>(std::size(time)));
    return time;
}

// The "Resume" button says for how long the agent is paused, as it last told, and when that was.
void TellHoursOnResumeButton(int hours)
{
    const wchar_t* unit = hours == 1 ? L"hour" : L"hours";
    SetTooltip(ControlOf(WindowOf(WindowId::Main), kResumeButton),
        Format(L"Paused for %d %ls, read at %ls", hours, unit, TimeOfDay().c_str()));
}

std::wstring StatusTextOf(Reply& reply)
{
    return reply.Root() ? std::wstring(TextAt(DetailsOrResponseFields(*reply.Root()), 0)) : std::wstring();
}

// Sends a request and takes the result text; nothing when the agent does not answer, which nobody is told. A request
// that could not be sent has failed.
std::optional<std::wstring> SendForResult(const Request& request)
{
    Reply reply = Send(request);
    if (reply.Result() == Outcome::NotSent)
        return kFailure;
    if (!reply.Answered())
        return std::nullopt;
    return StatusTextOf(reply);
}

} // namespace

void PauseFor(HWND main, int hours)
{
    const auto status = SendForResult(WithText(Operation::Pause, L"duration", NumberText(hours)));
    if (!status || IsLicenseRefusal(main, kPauseRefused, *status))
        return;
    if (IsWord(*status, kFailure)) {
        ShowMessage(main, kPauseFailed);
    } else if (IsWord(*status, kSuccess)) {
        notPaused = false;
        Enable(main, kChange, false);
        HideConsole(main);
        CheckHours(hours);
        ShowPausedState();
        TellHoursOnResumeButton(hours);
        ShowNormalControls(main);
    }
}

void OnResume(HWND main)
{
    ShowRunningState();
    const auto status = SendForResult(Plain(Operation::Resume));
    if (!status)
        return;
    if (IsWord(*status, kFailure))
        ShowMessage(main, kResumeFailed);
    else if (IsWord(*status, kSuccess))
        ShowNormalControls(main);
}

void ShowPausedState()
{
    EnableItem(MainMenuBar(), kPauseNone, false);
    EnableResumeItems(true);
    EnableHours(false);
    notPaused = false;
    ChangeTrayIcon(IDI_PAUSED, kPausedTooltip);
}

void ShowRunningState()
{
    EnableItem(MainMenuBar(), kPauseNone, true);
    EnableResumeItems(false);
    CheckHours(0);
    EnableHours(true);
    const HWND main = WindowOf(WindowId::Main);
    if (connection.connected) // else the load enables it
        Enable(main, kChange, true);
    SetTooltip(ControlOf(main, kResumeButton), {});
    ChangeTrayIcon(IDI_RUNNING, programTexts.trayTooltip);
}

void ApplyPauseStatus(std::wstring_view status)
{
    if (EqualsIgnoreCase(status, L"Resumed")) {
        notPaused = true;
        ShowRunningState();
        return;
    }
    if (status.size() != 1 || status[0] < L'1' || status[0] > L'5')
        return;
    CheckHours(status[0] - L'0');
    ShowPausedState();
    TellHoursOnResumeButton(status[0] - L'0');
    Enable(WindowOf(WindowId::Main), kNeededWhilePaused, true);
    Enable(WindowOf(WindowId::Main), kQuickActionButtons, true);
}

void PreparePauseStatus()
{
    PrepareRequest(Plain(Operation::PauseStatus));
}

ReadResult ReadPauseStatus()
{
    Reply reply = SendPrepared(Operation::PauseStatus);
    if (reply.Lost())
        return ReadResult::Lost;
    if (!reply.Root())
        return ReadResult::Unreadable;
    OnUi([status = StatusTextOf(reply)] { ApplyPauseStatus(status); });
    return ReadResult::Read;
}

} // namespace voltaro
