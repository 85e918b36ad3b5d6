// The update window: shows the outcome of an update check, which the agent makes. Opened by "Update Voltaro".
#include "shell/update_window.h"

#include "base/platform_calls.h"
#include "base/waiting.h"
#include "console/agent.h"
#include "console/ui_calls.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "shell/closing.h"
#include "shell/console_hold.h"
#include "shell/window_header.h"
#include "shell/workers.h"
#include "ui/theme.h"
#include "ui/window_class.h"

#include <atomic>

namespace voltaro {
namespace {

enum UpdateControl : int { kBar = 6016, kTitle = 8501, kDetail = 8502, kCloseVoltaro = 8504, kOk = 8505 };

constexpr const wchar_t* kDefaultTitle = L"Please wait, Voltaro is checking for updates...";
constexpr const wchar_t* kDefaultDetail = L"";

// clang-format off
constexpr Control kControls[] = {
    // kind                  id             text                      x    y    w    h
    {Kind::Progress,         kBar,          L"",                     100, 150, 370,  20, kPlain, L"Progress"},
    {Kind::CentredPlainEdit, kTitle,        kDefaultTitle,            80, 195, 410,  20, kPlain, L"Update"},
    {Kind::CentredPlainEdit, kDetail,       kDefaultDetail,           80, 220, 410,  20, kPlain, L"Details"},
    {Kind::DefaultPush,      kCloseVoltaro, L"Close Voltaro now ..", 375, 300, 165,  25, kHidden},
    {Kind::DefaultPush,      kOk,           L"OK",                   460, 300,  80,  25, kHidden},
};
// clang-format on
static_assert(IdsAreUnique(kControls));
static_assert(FitInside(kControls, 574, 351)); // of 580 x 380, less the frame and the caption

constexpr int kButtons[] = {kCloseVoltaro, kOk};

constexpr COLORREF kBarColour = RGB(0, 0, 192);
constexpr int kBarEnd = 200;
constexpr int kBarStep = 10;
constexpr DWORD kBarStaysMs = 50; // after the outcome is shown

// What the window shows after a check. Where the title or the detail is null, the agent's message stands there.
struct UpdateOutcome {
    const wchar_t* message; // of the agent
    const wchar_t* title;
    const wchar_t* detail;
    int button;
};

constexpr UpdateOutcome kUnanswered = {
    nullptr, L"Could not update, service not responding.", L"Please check if service is running and try again.", kOk};
constexpr UpdateOutcome kDownloaded = {nullptr, L"New updates were successfully downloaded.",
    L"Voltaro needs to be closed for applying new updates.", kCloseVoltaro};
constexpr UpdateOutcome kByMessage[] = {
    {L"You are already using the latest version of Voltaro.", nullptr, L"", kOk},
    {L"Please check your network connection and try again.", L"Could not update, connection closed.", nullptr, kOk},
    {L"Voltaro update failed, please try after some time.", L"Could not update, connection failed.", nullptr, kOk},
};

// What the update worker is signalled for.
enum class UpdateMode : std::int32_t { None = 0, Check = 3 };
std::atomic<std::int32_t> busyAnimation{0}; // 1: the bar is asked to move
std::atomic<UpdateMode> updateMode{UpdateMode::None};

HWND Window()
{
    return WindowOf(WindowId::Update);
}

// Null for a message that is not known.
const UpdateOutcome* OutcomeOf(std::wstring_view status, std::wstring_view message)
{
    if (IsWord(status, kSuccess))
        return &kDownloaded;
    for (const UpdateOutcome& row : kByMessage) {
        if (IsWord(message, row.message))
            return &row;
    }
    return nullptr;
}

void ShowChecking(HWND window)
{
    Show(window, kButtons, false);
    Show(window, kBar, true);
    SetText(window, kTitle, kDefaultTitle);
    SetText(window, kDetail, kDefaultDetail);
}

void ShowOutcome(const UpdateOutcome& outcome, const std::wstring& message)
{
    updateBusy = false;
    for (const int button : kButtons)
        Show(Window(), button, button == outcome.button);
    SetText(Window(), kTitle, outcome.title ? outcome.title : message);
    SetText(Window(), kDetail, outcome.detail ? outcome.detail : message);
    if (GetActiveWindow() == Window())
        FocusOn(Window(), outcome.button);
}

void HideBar()
{
    Show(Window(), kBar, false);
    Repaint(Window(), true);
}

void SetBar(int position)
{
    SendDlgItemMessageW(Window(), kBar, PBM_SETPOS, static_cast<WPARAM>(position), 0);
}

// --- handlers ---

void OnCreate(HWND window)
{
    SetBarColour(ControlOf(window, kBar), kBarColour);
    SendDlgItemMessageW(window, kBar, PBM_SETRANGE, 0, MAKELPARAM(0, kBarEnd));
}

void OnOk(HWND window)
{
    HideHolding(window, HoldReason::Update);
    ShowChecking(window);
}

void OnCloseVoltaro(HWND window)
{
    OnOk(window);
    CloseForUpdate(WindowOf(WindowId::Main));
}

void OnEnter(HWND window)
{
    if (IsWindowVisible(ControlOf(window, kOk)))
        OnOk(window);
    else if (IsWindowVisible(ControlOf(window, kCloseVoltaro)))
        OnCloseVoltaro(window);
}

// Esc does nothing, like the title bar's close: a check cannot be left.
constexpr Command kCommands[] = {
    {kOk, OnOk},
    {kCloseVoltaro, OnCloseVoltaro},
    {IDOK, OnEnter},
};

std::optional<LRESULT> OnMessage(HWND window, UINT message, WPARAM w, LPARAM l)
{
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    return AnswerHeader(window, message, w, l);
}

constexpr WindowTables kTables = {kControls, kCommands, L"update.htm", OnCreate, OnMessage};

} // namespace

void StartUpdateCheck(HWND)
{
    ShowChecking(Window());
    // A pause may have hidden the window in the middle of a check: that one is waited for, not made twice.
    if (!IsHeld(Operation::CheckForUpdates)) {
        busyAnimation = 1;
        updateMode = UpdateMode::Check;
        updateBusy = true;
        Wake(WorkerId::BusyAnimation);
        Wake(WorkerId::UpdateCheck);
    }
    ShowHolding(Window(), HoldReason::Update);
}

void RunUpdateCheck()
{
    if (updateMode.exchange(UpdateMode::None) != UpdateMode::Check)
        return;
    const UpdateOutcome* outcome = &kUnanswered;
    std::wstring message;
    {
        Reply reply = Send(Plain(Operation::CheckForUpdates));
        if (reply.Answered()) {
            const std::wstring status = reply.Status();
            if (reply.Root())
                message = TextAt(ResponseFields(*reply.Root()), 1);
            outcome = OutcomeOf(status, message);
        }
    }
    if (!outcome)
        return; // agents may answer again later: the bar keeps running and no button comes
    OnUi([&] { ShowOutcome(*outcome, message); });
    if (threadWait(nullptr, kBarStaysMs) == Waited::Ending)
        return;
    OnUi(HideBar);
}

void AnimateUpdateBar()
{
    if (busyAnimation != 1)
        return;
    busyAnimation = 0;
    for (int position = 0; updateBusy; position = position == kBarEnd ? 0 : position + kBarStep) {
        SetBar(position);
        if (threadWait(nullptr, timing.updateBarStep) == Waited::Ending)
            return;
    }
    SetBar(kBarEnd);
}

LRESULT CALLBACK UpdateWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

} // namespace voltaro
