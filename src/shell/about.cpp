// The about box: product, version, machine and license. Opened by "About" of the menu bar and of the tray; a box of
// its own beside the windows that live as long as the program.
#include "shell/about.h"

#include "base/computer_name.h"
#include "base/error_log.h"
#include "base/text.h"
#include "console/activation.h"
#include "console/agent_lost.h"
#include "console/agent_records.h"
#include "console/agent_state.h"
#include "console/program_texts.h"
#include "console/windows.h"
#include "resources/resource_ids.h"
#include "shell/console_hold.h"
#include "shell/main_commands.h"
#include "shell/main_menus.h"
#include "shell/main_window.h"
#include "shell/window_header.h"
#include "ui/commands.h"
#include "ui/controls.h"
#include "ui/menus.h"
#include "ui/navigation.h"
#include "ui/theme.h"
#include "ui/window_class.h"

#include <utility>

namespace voltaro {
namespace {

enum AboutControl : int {
    kCaption = 8701,
    kHost,
    kVersion,
    kService,
    kLicense,
    kLicensedTo,
    kExpires,
    kLink,
};

// clang-format off
constexpr Control kControls[] = {
    // kind             id           text                      x    y    w    h
    {Kind::Label,       kCaption,    L"",                     105,  98, 450,  20},
    {Kind::Label,       kNoId,       L"Host :",               105, 132, 115,  18},
    {Kind::PlainEdit,   kHost,       L"",                     225, 132, 330,  18},
    {Kind::Label,       kNoId,       L"Service version :",    105, 154, 115,  18},
    {Kind::PlainEdit,   kVersion,    L"",                     225, 154, 330,  18},
    {Kind::Label,       kNoId,       L"Service :",            105, 176, 115,  18},
    {Kind::PlainEdit,   kService,    L"",                     225, 176, 330,  18},
    {Kind::Label,       kNoId,       L"License :",            105, 198, 115,  18},
    {Kind::PlainEdit,   kLicense,    L"",                     225, 198, 330,  18},
    {Kind::Label,       kNoId,       L"Licensed to :",        105, 220, 115,  18},
    {Kind::PlainEdit,   kLicensedTo, L"",                     225, 220, 330,  18},
    {Kind::Label,       kNoId,       L"Expires on :",         105, 242, 115,  18},
    {Kind::PlainEdit,   kExpires,    L"",                     225, 242, 330,  18},
    {Kind::Label,       kNoId,       kNoticeLine,             105, 276, 450,  18},
    {Kind::Label,       kNoId,       kRightsLine,             105, 295, 450,  18},
    {Kind::Link,        kLink,       L"",                     105, 325, 250,  18},
    {Kind::DefaultPush, IDOK,        L"OK",                   475, 322,  80,  25},
};
// clang-format on
static_assert(IdsAreUnique(kControls));
constexpr SIZE kClient = {574, 364};
static_assert(FitInside(kControls, kClient.cx, kClient.cy));

// Where a line's text stands in an answer's details.
struct AnswerLine {
    int control;
    std::size_t position;
};
constexpr AnswerLine kProductLines[] = {{kVersion, 0}, {kHost, 2}, {kService, 3}};
constexpr AnswerLine kLicenseLines[] = {{kLicense, 0}, {kLicensedTo, 2}, {kExpires, 5}};

constexpr const wchar_t* kNotAnswering = L"not responding";
constexpr const wchar_t* kUnknown = L"not known";

HWND about = nullptr;

// Lines that the answer does not hold stay as they are.
void ShowAnswer(HWND window, Operation operation, std::span<const AnswerLine> lines)
{
    Reply reply = Send(Plain(operation));
    if (!reply.Root())
        return;
    const std::span<const Element> fields = DetailsOrResponseFields(*reply.Root());
    for (const AnswerLine& line : lines) {
        const std::wstring_view text = TextAt(fields, line.position);
        if (!text.empty())
            SetText(window, line.control, text);
    }
}

void Fill(HWND window, bool answered)
{
    SetText(window, kCaption, programTexts.versionCaption);
    SetText(window, kHost, ComputerName());
    SetText(window, kService, answered ? L"Running" : kNotAnswering);
    SetText(window, kLicense, agentRecords.activationStatus.empty() ? kUnknown : agentRecords.activationStatus.c_str());
    SetText(window, kLink, Format(L"<a>%ls</a>", kWebSiteHost));
    if (!answered)
        return; // nor would the other two be
    ShowAnswer(window, Operation::GetVoltaroInfo, kProductLines);
    ShowAnswer(window, Operation::GetLicenseInfo, kLicenseLines);
}

// In pixels, whatever the resource's units make of them; over the main window, or where that is not seen, the desktop.
void Place(HWND window)
{
    RECT frame{0, 0, kClient.cx, kClient.cy};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)), FALSE, 0);
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    RECT around{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &around, 0);
    const HWND main = WindowOf(WindowId::Main);
    if (IsWindowVisible(main) && !IsIconic(main))
        GetWindowRect(main, &around);
    SetWindowPos(window, nullptr, std::max(around.left + (around.right - around.left - width) / 2, 0L),
        std::max(around.top + (around.bottom - around.top - height) / 2, 0L), width, height, SWP_NOZORDER);
}

// --- handlers ---

void OnInit(HWND window)
{
    about = window;
    SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(SmallIcon(IDI_RUNNING)));
    CreateControls(window, kControls, WindowFont());
    SendMessageW(ControlOf(window, kCaption), WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(17, 500)), FALSE);
    Place(window);
}

void OnClose(HWND window)
{
    HideHolding(window, HoldReason::About);
    DestroyWindow(window);
}

void OnDestroyed()
{
    about = nullptr;
    EnableItem(TrayMenu(), kTrayAbout, true);
}

void OnLink(HWND)
{
    SendMessageW(WindowOf(WindowId::Main), WM_COMMAND, kWebSite, 0);
}

constexpr Command kCommands[] = {
    {IDOK, OnClose},
    {IDCANCEL, OnClose},
    {kLink, OnLink, NM_CLICK},
    {kLink, OnLink, NM_RETURN},
};

INT_PTR CALLBACK AboutProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    NavigateWith(window);
    if (AnswerHeader(window, message, w, l)) {
        SetWindowLongPtrW(window, DWLP_MSGRESULT, message == WM_ERASEBKGND);
        return TRUE;
    }
    switch (message) {
    case WM_INITDIALOG: OnInit(window); return TRUE;
    case WM_COMMAND: return Dispatch(kCommands, window, w);
    case WM_NOTIFY: return Dispatch(kCommands, window, *reinterpret_cast<const NMHDR*>(l));
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
    case WM_SETTINGCHANGE:
    case WM_CTLCOLORSTATIC: return DefaultAnswer(window, message, w, l);
    case WM_DESTROY: OnDestroyed(); return TRUE;
    default: return FALSE;
    }
}

} // namespace

void OnAbout(HWND main)
{
    if (about) {
        SetForegroundWindow(about);
        return;
    }
    EnableItem(TrayMenu(), kTrayAbout, false);
    const bool answered = ReadActivationStatus() != ReadResult::Lost;
    const HWND window = Checked(
        CreateDialogParamW(Instance(), MAKEINTRESOURCEW(IDD_ABOUT), main, AboutProc, 0), "CreateDialogParamW");
    if (!window) {
        EnableItem(TrayMenu(), kTrayAbout, true);
        return;
    }
    Fill(window, answered);
    ShowHolding(window, HoldReason::About);
    FocusOn(window, IDOK); // the dialog was made without controls, and found none to give the focus to
    if (!answered)
        OnAgentLost();
}

void CloseAbout()
{
    if (about)
        OnClose(about);
}

HWND AboutWindow()
{
    return about;
}

} // namespace voltaro
