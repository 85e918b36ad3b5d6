// The power scheme editor, opened from the main window: choose, apply, edit, create and delete power schemes. The pages
// and the strip that show a scheme's settings are files of their own, and so are the changes asked of the agent and
// the readings of it.
#include "power/scheme_window.h"

#include "base/error_log.h"
#include "base/handles.h"
#include "console/agent.h"
#include "console/agent_lost.h"
#include "console/agent_records.h"
#include "console/background_refresh.h"
#include "console/change.h"
#include "console/connection_state.h"
#include "console/ui_calls.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "power/names.h"
#include "power/processor_strip.h"
#include "power/scheme_changes.h"
#include "power/scheme_pages.h"
#include "power/scheme_reading.h"
#include "power/timeouts.h"
#include "ui/combo_box.h"
#include "ui/commands.h"
#include "ui/controls.h"
#include "ui/menus.h"
#include "ui/refusals.h"
#include "ui/tabs.h"
#include "ui/waiting.h"

namespace voltaro {
namespace {

enum PrivateControl : int { kNewSchemeLabel = 4031 };

// clang-format off
constexpr Control kControls[] = {
    // kind              id               text                          x    y    w    h
    {Kind::Label,        kNoId,           L"Select Power Scheme :",     13,  18, 172,  18},
    {Kind::Combo,        kEditorScheme,   L"",                         190,  14, 240, 300},
    {Kind::Push,         kApplyScheme,    L"Apply",                    438,  13, 107,  25, kHidden},
    {Kind::Label,        kNewSchemeLabel, L"New Power Scheme Name :",   13,  54, 172,  18, kHidden},
    {Kind::Edit,         kNewSchemeName,  L"",                         190,  50, 240,  24, kHidden},
    {Kind::Push,         kSaveNewScheme,  L"Save",                     438,  49, 107,  25, kHidden},
    {Kind::BusyBar,      kEditorBusy,     L"",                         190,  55, 240,  14, kHidden, L"Progress"},
    {Kind::Tab,          kSchemeTab,      L"",                           9,  94, 540, 342, kPlain, L"Settings"},
    {Kind::Push,         kEditSettings,   L"Edit Settings",             13, 500, 108,  25},
    {Kind::Push,         kSaveAndApply,   L"Save and Apply",           128, 500, 118,  25},
    {Kind::Push,         kDeleteScheme,   L"Delete Scheme",            253, 500, 112,  25},
    {Kind::DefaultPush,  kEditorOk,       L"OK",                       381, 500,  78,  25},
    {Kind::Push,         IDCANCEL,        L"Cancel",                   467, 500,  78,  25},
};

constexpr MenuItem kCreateItems[] = {{L"&New Scheme..", kNewScheme}};
constexpr MenuItem kMenu[] = {Popup(L"&Create", kCreateItems), {L"&Help", kEditorHelp}, {L"&Refresh", kEditorRefresh}};
// clang-format on

static_assert(IdsAreUnique(kControls));
static_assert(FitInside(kControls, 559, 541)); // of 565 x 590, less the frame, the caption and the menu bar

constexpr int kNewSchemeRow[] = {kNewSchemeLabel, kNewSchemeName, kSaveNewScheme};

struct Editor {
    bool isNew = false;                // a new scheme's name is being entered
    bool isPicked = false;             // the user picked the scheme on screen
    bool isBusy = false;               // a background refresh runs
    bool isStale = false;              // the current settings could not be read again: what is on screen is not sent
    std::wstring shownScheme;          // whose settings are on screen
    PowerSchemeSettings shownSettings; // as the controls gave them back before the user changed any
    UniqueHandle closed;
};
Editor editor;

// What is visible and what is enabled in each mode; nothing else shows or greys these controls.
void ShowMode(HWND window)
{
    const bool ready = !editor.isBusy;
    const bool known = SelectedIndex(window, kEditorScheme) >= 0;
    Show(window, kNewSchemeRow, editor.isNew);
    Show(window, kApplyScheme, editor.isPicked && !editor.isNew);
    Show(window, kEditorBusy, editor.isBusy);
    SendMessageW(ControlOf(window, kEditorBusy), PBM_SETMARQUEE, editor.isBusy, 0);
    Enable(window, kEditorScheme, ready);
    Enable(window, kApplyScheme, ready && known && !editor.isStale);
    Enable(window, kSaveNewScheme, !editor.isStale);
    Enable(window, kEditSettings, ready);
    Enable(window, kSaveAndApply, ready && known && !editor.isNew && !editor.isStale);
    Enable(window, kDeleteScheme, ready && known && !editor.isNew);
    EnableSettings(ready);
    EnablePolicyButtons(ready);
    SendMessageW(ControlOf(window, kSaveNewScheme), BM_SETSTYLE, editor.isNew ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
    SendMessageW(ControlOf(window, kEditorOk), BM_SETSTYLE, editor.isNew ? BS_PUSHBUTTON : BS_DEFPUSHBUTTON, TRUE);
    for (const int item : {kNewScheme, kEditorRefresh})
        EnableItem(GetMenu(window), static_cast<unsigned>(item), ready);
    DrawMenuBar(window);
}

// --- showing what was read ---

void ShowScheme(HWND window, const std::wstring& scheme, const PowerSchemeSettings& settings)
{
    SelectName(window, kEditorScheme, scheme);
    editor.shownScheme = scheme;
    ShowSettings(settings);
    editor.shownSettings = EditedSettings();
}

void ShowCurrentScheme(HWND window)
{
    editor.isPicked = false;
    PowerSchemeSettings settings = agentRecords.currentScheme;
    if (settings.powerScheme.empty()) { // none was read
        settings = {};
        settings.logOffTime = NumberText(kLogOffChoices[kInitialLogOff].number);
    }
    ShowScheme(window, std::wstring(settings.powerScheme), settings);
}

// Shows the lists, and the current settings or, if they could not be read, what was on screen.
void ShowAll(HWND window, bool keep, ReadResult current)
{
    editor.isNew = false;
    editor.isBusy = false;
    editor.isStale = current != ReadResult::Read;
    FillCombo(window, kEditorScheme, agentRecords.schemes);
    ShowPolicies();
    if (!keep || !editor.isStale)
        ShowCurrentScheme(window);
    else
        SelectName(window, kEditorScheme, editor.shownScheme);
    ShowMode(window);
}

void ReadAndShow(HWND window, std::span<const Reader> readers)
{
    const ReadResult current = ReadOrLose(readers);
    if (current != ReadResult::Lost)
        return ShowAll(window, true, current);
    editor.isStale = true;
    ShowMode(window);
}

void Close(HWND window)
{
    editor.isNew = false;
    editor.isBusy = false;
    ShowWindow(window, SW_HIDE);
}

// --- handlers ---

void OnCreate(HWND window)
{
    editor = Editor();
    editor.closed = UniqueHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    LimitText(window, kNewSchemeName, kMaxNameLength);
    Checked(SetMenu(window, BuildMenuBar(kMenu, std::size(kMenu)).Release()), "SetMenu"); // destroyed with the window
}

void OnPickScheme(HWND window)
{
    const std::wstring scheme = SelectedText(window, kEditorScheme);
    std::optional<PowerSchemeSettings> settings;
    {
        Reply reply = SendOrLose(WithText(Operation::QueryPowerScheme, L"scheme", scheme));
        settings = reply.Read<PowerSchemeSettings>();
    }
    if (!settings) { // the name must not stand over another scheme's settings
        SelectName(window, kEditorScheme, editor.shownScheme);
        return;
    }
    editor.isNew = false;
    editor.isPicked = true;
    editor.isStale = false;
    ShowScheme(window, scheme, *settings);
    ShowMode(window);
}

void OnApplyScheme(HWND window)
{
    if (ApplyScheme(window, SelectedText(window, kEditorScheme)))
        ReadAndShow(window, kAfterApplying);
}

// What the controls hold as the settings of that scheme.
PowerSchemeSettings SettingsFor(std::wstring_view scheme)
{
    PowerSchemeSettings settings = EditedSettings();
    settings.powerScheme = scheme;
    return settings;
}

void OnSaveAndApply(HWND window)
{
    if (SaveScheme(window, SettingsFor(SelectedText(window, kEditorScheme))))
        ReadAndShow(window, kAfterSaving);
}

void OnSaveNewScheme(HWND window)
{
    const std::wstring name = TextOf(window, kNewSchemeName);
    if (RefuseInput(window, kNewSchemeName, CheckNewSchemeName(name, agentRecords.schemes), name))
        return;
    if (CreateScheme(window, SettingsFor(name)))
        ReadAndShow(window, kReload);
}

void OnDeleteScheme(HWND window)
{
    if (DeleteScheme(window, SelectedText(window, kEditorScheme)))
        ReadAndShow(window, kReload);
}

void OnNewScheme(HWND window)
{
    editor.isNew = true;
    SetText(window, kNewSchemeName, {});
    ShowMode(window);
    FocusOn(window, kNewSchemeName);
}

void OnTyping(HWND window)
{
    CheckTyping(window, kNewSchemeName, kMaxNameLength, CheckTypedSchemeName);
}

void OnEditSettings(HWND window)
{
    editor.isNew = false;
    ShowMode(window);
    constexpr WindowId kPages[] = {WindowId::SchemeDisplay, WindowId::SchemePowerOff};
    const HWND page = WindowOf(kPages[SelectedTab(ControlOf(window, kSchemeTab)) == 1 ? 1 : 0]);
    SetFocus(GetNextDlgTabItem(page, nullptr, FALSE));
}

void OnRefresh(HWND window)
{
    if (editor.isBusy)
        return;
    if (!connection.connected) { // the worker reads nothing then
        ReadAndShow(window, kReload);
        return;
    }
    editor.isBusy = true;
    editor.isNew = false;
    ShowMode(window);
    RequestBackgroundRefresh(kRefreshPowerData);
}

void OnRefreshKey(HWND window)
{
    if (editor.isBusy || EditedSettings() == editor.shownSettings || AskQuestion(window, kDiscardChanges))
        OnRefresh(window);
}

void OnOk(HWND window)
{
    Close(window);
    SetEvent(editor.closed.Get());
}

void OnEnter(HWND window)
{
    if (!editor.isNew)
        OnOk(window);
    else if (!editor.isStale) // else its button is grey
        OnSaveNewScheme(window);
}

void OnCancel(HWND window)
{
    Close(window);
    ReadOrLose(kAfterSaving);
}

// clang-format off
constexpr Command kCommands[] = {
    {IDOK,           OnEnter},
    {IDCANCEL,       OnCancel},
    {kEditorScheme,  OnPickScheme, CBN_SELCHANGE},
    {kApplyScheme,   OnApplyScheme},
    {kNewSchemeName, OnTyping,     EN_CHANGE},
    {kSaveNewScheme, OnSaveNewScheme},
    {kEditSettings,  OnEditSettings},
    {kSaveAndApply,  OnSaveAndApply},
    {kDeleteScheme,  OnDeleteScheme},
    {kEditorOk,      OnOk},
    {kNewScheme,     OnNewScheme},
    {kEditorHelp,    ShowHelp},
    {kEditorRefresh, OnRefresh},
    {kRefreshKey,    OnRefreshKey},
};
// clang-format on

std::optional<LRESULT> OnMessage(HWND, UINT message, WPARAM, LPARAM)
{
    if (message != WM_SETCURSOR || !editor.isBusy)
        return std::nullopt;
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    return TRUE;
}

constexpr WindowTables kTables = {kControls, kCommands, kSchemeHelpPage, OnCreate, OnMessage};

// The pages are made after the editor, so they are bound at the first opening.
void BindPages(HWND window)
{
    const HWND tab = ControlOf(window, kSchemeTab);
    const TabPage pages[] = {{L"Display Control", WindowOf(WindowId::SchemeDisplay)},
        {L"Poweroff Options", WindowOf(WindowId::SchemePowerOff)}};
    SetTabs(tab, pages);
    // Tab goes from the pages to the strip, then to the buttons.
    SetWindowPos(WindowOf(WindowId::SchemeProcessor), tab, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

} // namespace

void OpenSchemeWindow(HWND)
{
    const HWND window = WindowOf(WindowId::Scheme);
    if (!IsWindowVisible(window)) {
        BindPages(window);
        const ReadResult current = ReadOrLose(kReload);
        if (current == ReadResult::Lost)
            return;
        ShowAll(window, false, current); // nothing is left of the last opening, even if no answer could be read
        ResetEvent(editor.closed.Get());
        ShowWindow(window, SW_SHOWNORMAL);
        SetFocus(ControlOf(window, kEditorScheme));
    }
    const HWND popup = GetLastActivePopup(window); // a window or box over the editor, which takes no input then
    SetForegroundWindow(IsWindowVisible(popup) ? popup : window);
}

HANDLE SchemeWindowClosed()
{
    return editor.closed.Get();
}

void OnPowerRefreshed(ReadResult current)
{
    OnUi([current] {
        if (editor.isBusy)
            ShowAll(WindowOf(WindowId::Scheme), true, current);
    });
}

void OnPowerRefreshFailed()
{
    OnUi([] {
        if (!std::exchange(editor.isBusy, false))
            return;
        editor.isStale = true;
        ShowMode(WindowOf(WindowId::Scheme));
    });
    OnAgentLost();
}

LRESULT CALLBACK SchemeWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

} // namespace voltaro
