// The pages "Display Control" and "Poweroff Options" of the scheme editor, and what binds them and the
// processor strip to a scheme's settings.
#include "power/scheme_pages.h"

#include "base/error_log.h"
#include "console/agent_records.h"
#include "console/program_texts.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "power/capabilities.h"
#include "power/levels.h"
#include "power/timeouts.h"
#include "ui/binding.h"
#include "ui/combo_box.h"
#include "ui/commands.h"
#include "ui/controls.h"
#include "ui/theme.h"
#include "ui/tooltip.h"

#include <array>
#include <span>
#include <utility>
#include <vector>

namespace voltaro {
namespace {

enum PageControl : int { kHeading = 4161, kStandbyLabel, kHibernateLabel, kFirstNote, kSecondNote, kScriptFolder };

// clang-format off
constexpr Control kDisplayControls[] = {
    // kind             id                  text                                     x    y    w    h
    {Kind::Label,       kHeading,           L"IF THE System IS IDLE ...",            16,  12, 300,  18},
    {Kind::Label,       kNoId,              L"System's Working Brightness Level",    16,  48, 215,  18},
    {Kind::Trackbar,    kWorkingBrightness, L"",                                    228,  42, 288,  32},
    {Kind::Label,       kNoId,              L"System's Idle Brightness Level",       16,  88, 215,  18},
    {Kind::Trackbar,    kIdleBrightness,    L"",                                    228,  82, 288,  32},
    {Kind::Label,       kNoId,              L"Dim Monitor Brightness",               16, 134, 215,  18},
    {Kind::Combo,       kDim,               L"",                                    236, 130, 120, 300},
    {Kind::Label,       kNoId,              L"Turn Off Monitor",                     16, 166, 215,  18},
    {Kind::Combo,       kMonitorOff,        L"",                                    236, 162, 120, 300},
    {Kind::Label,       kNoId,              L"Lock Screen",                          16, 198, 215,  18},
    {Kind::Combo,       kLock,              L"",                                    236, 194, 120, 300},
    {Kind::Label,       kNoId,              L"(From Monitor Turn Off time)",        362, 198, 168,  18},
    {Kind::CheckBox,    kScreenSaverOff,    L"Disable Screen Saver",                 16, 232, 220,  20},
};

constexpr Control kPowerOffControls[] = {
    // kind             id                  text                                     x    y    w    h
    {Kind::Label,       kHeading,           L"IF THE System IS IDLE ...",            16,   8, 300,  18},
    {Kind::Label,       kNoId,              L"Turn Off Hard Disk :",                 16,  36, 130,  18},
    {Kind::Combo,       kHardDisk,          L"",                                    150,  32, 115, 300},
    {Kind::Label,       kNoId,              L"Log Off :",                           306,  36,  90,  18},
    {Kind::Combo,       kSchemeLogOff,      L"",                                    401,  32, 115, 300},
    {Kind::Radio,       kSleepChoice,       L"Standby / Hibernate",                  16,  63, 160,  20, kGroup},
    {Kind::Radio,       kShutdownChoice,    L"Shutdown:",                           306,  63,  92,  20},
    {Kind::Label,       kStandbyLabel,      L"Standby :",                            34,  91, 110,  18},
    {Kind::Combo,       kStandbyTime,       L"",                                    150,  87, 115, 300},
    {Kind::Label,       kHibernateLabel,    L"Hibernate :",                         306,  91,  90,  18},
    {Kind::Combo,       kHibernateTime,     L"",                                    401,  87, 115, 300},
    {Kind::Combo,       kShutdownTime,      L"",                                    401,  60, 115, 300, kHidden, L"Shutdown"},
    {Kind::CheckBox,    kResumePassword,    L"On Resume Password Protect",           16, 115, 300,  20},
    {Kind::GroupBox,    kNoId,              L"Before Shutdown, execute",              8, 137, 516,  82},
    {Kind::CheckBox,    kScript,            L"\" Voltaro_Poweroff.bat \" script",    20, 153, 300,  20},
    {Kind::Label,       kFirstNote,
        L"* Batch script commands which needs to be executed before shutting down the system,", 20, 173, 500, 14},
    {Kind::Label,       kSecondNote,
        L"  can be put inside Voltaro_Poweroff.bat file, located at below mentioned path.",     20, 187, 500, 14},
    {Kind::PlainEdit,   kScriptFolder,      L"",                                     26, 201, 490,  15, kPlain, L"Folder of the script"},
    {Kind::GroupBox,    kNoId,              L"Do not Poweroff",                       8, 222, 516,  89},
    {Kind::CheckBox,    kDownloads,         L"Over any active copy/delete/download activity", 20, 238, 400, 20},
    {Kind::CheckBox,    kPrinter,           L"Over any connected printer in 'ON' state", 20, 260, 400,  20},
    {Kind::CheckBox,    kCpuLoadCheck,      L"If CPU utilization is above",          20, 283, 185,  20},
    {Kind::Combo,       kCpuLoad,           L"",                                    208, 281,  56, 300, kPlain, L"CPU utilization in percent"},
    {Kind::Label,       kNoId,              L"%",                                   270, 285,  20,  16},
};
// clang-format on

// Which control shows which setting.
// clang-format off
constexpr Binding<PowerSchemeSettings> kDisplayBindings[] = {
    {kWorkingBrightness, Shown::Step,  &PowerSchemeSettings::workingBrightness, kBrightnessSteps},
    {kIdleBrightness,    Shown::Step,  &PowerSchemeSettings::idleBrightness,    kBrightnessSteps},
    {kDim,               Shown::List,  &PowerSchemeSettings::dimTime,           kDimChoices},
    {kMonitorOff,        Shown::List,  &PowerSchemeSettings::monitorTime,       kMonitorOffChoices},
    {kLock,              Shown::List,  &PowerSchemeSettings::lockScreenTime,    kLockChoices},
    {kScreenSaverOff,    Shown::YesNo, &PowerSchemeSettings::screensaver},
};

constexpr Binding<PowerSchemeSettings> kPowerOffBindings[] = {
    {kHardDisk,       Shown::List,  &PowerSchemeSettings::hardDiskTime,  kHardDiskChoices},
    {kSchemeLogOff,   Shown::List,  &PowerSchemeSettings::logOffTime,    kLogOffChoices},
    {kShutdownChoice, Shown::YesNo, &PowerSchemeSettings::shutdownFlag},
    {kStandbyTime,    Shown::List,  &PowerSchemeSettings::standbyTime,   kStandbyChoices},
    {kHibernateTime,  Shown::List,  &PowerSchemeSettings::hibernateTime, kHibernateChoices},
    {kShutdownTime,   Shown::List,  &PowerSchemeSettings::shutdownTime,  kStandbyChoices},
    {kResumePassword, Shown::YesNo, &PowerSchemeSettings::passwordOnResume},
    {kScript,         Shown::YesNo, &PowerSchemeSettings::scriptBeforePowerOff},
    {kDownloads,      Shown::YesNo, &PowerSchemeSettings::downloadsFlag},
    {kPrinter,        Shown::YesNo, &PowerSchemeSettings::printerFlag},
    {kCpuLoadCheck,   Shown::YesNo, &PowerSchemeSettings::idleCpuLoadFlag},
    {kCpuLoad,        Shown::List,  &PowerSchemeSettings::idleCpuLoad,   kCpuLoads},
};

// The strip's; its controls are in a file of their own.
constexpr Binding<PowerSchemeSettings> kProcessorBindings[] = {
    {kProcessorSpeed, Shown::Name,         &PowerSchemeSettings::cpuSpeed},
    {kPolicyList,     Shown::OptionalName, &PowerSchemeSettings::sensorPolicy},
};
// clang-format on

constexpr struct {
    WindowId page;
    std::span<const Binding<PowerSchemeSettings>> bindings;
} kPages[] = {
    {WindowId::SchemeDisplay, kDisplayBindings},
    {WindowId::SchemePowerOff, kPowerOffBindings},
    {WindowId::SchemeProcessor, kProcessorBindings},
};
// All but the scheme's name.
static_assert(std::size(kDisplayBindings) + std::size(kPowerOffBindings) + std::size(kProcessorBindings) + 1
    == std::size(kPowerSchemeFields));

static_assert(IdsAreUnique(kDisplayControls) && IdsAreUnique(kPowerOffControls));
static_assert(FitInside(kDisplayControls, kSchemePageWidth, kSchemePageBottom));
static_assert(FitInside(kPowerOffControls, kSchemePageWidth, kSchemePageBottom));

constexpr int kSleepControls[] = {kStandbyLabel, kStandbyTime, kHibernateLabel, kHibernateTime};

struct FormState {
    PowerSchemeSettings settings; // as shown last, before the user changed anything
    std::array<ShownTexts, std::size(kPages)> shown;
    PowerCapabilities capabilities;
};
FormState form;

// Of the machine, as the system details tell them.
PowerCapabilities Capabilities()
{
    std::vector<std::pair<std::wstring_view, std::wstring_view>> fields;
    for (std::size_t i = 0; i < agentRecords.details.RowCount(DetailSection::PowerCapabilities); ++i) {
        const NamedValue& row = agentRecords.details.Row(DetailSection::PowerCapabilities, i);
        fields.emplace_back(row.name, row.value);
    }
    return ReadPowerCapabilities(fields);
}

// --- linked lists ---

void PutList(HWND page, int combo, const ComboList& list)
{
    FillChoices(page, combo, list.choices, list.selected);
}

void OnMonitorOff(HWND page)
{
    PutList(page, kLock, LockList(SelectedText(page, kMonitorOff), SelectedText(page, kLock)));
}

void OnDim(HWND page)
{
    PutList(page, kMonitorOff, MonitorOffList(SelectedText(page, kDim), SelectedText(page, kMonitorOff)));
    OnMonitorOff(page);
}

void OnStandby(HWND page)
{
    const std::wstring standby = SelectedText(page, kStandbyTime);
    const std::wstring hibernate = SelectedText(page, kHibernateTime);
    PutList(page, kHibernateTime, HibernateList(form.capabilities.hibernate, standby, hibernate));
}

void OnPowerOffChoice(HWND page)
{
    const bool shutdown = IsChecked(page, kShutdownChoice);
    Show(page, kSleepControls, !shutdown);
    Show(page, kShutdownTime, shutdown);
}

void OnCpuLoadCheck(HWND page)
{
    Enable(page, kCpuLoad, IsChecked(page, kCpuLoadCheck));
}

// What the controls show, once the linked lists are filled.
void KeepShown()
{
    if (!form.capabilities.standby)
        form.settings.standbyTime.Clear();
    if (!form.capabilities.hibernate)
        form.settings.hibernateTime.Clear();
    for (std::size_t i = 0; i < std::size(kPages); ++i) {
        const auto& [page, bindings] = kPages[i];
        form.shown[i] = EnteredTexts(WindowOf(page), bindings);
        for (std::size_t k = 0; k < bindings.size(); ++k) {
            FieldText& setting = form.settings.*bindings[k].slot;
            if (setting.empty())
                setting = form.shown[i][k].value_or(FieldText());
        }
    }
}

// --- messages of the pages ---

void SetFont(HWND page, int control, HFONT font)
{
    SendMessageW(ControlOf(page, control), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

void MakePage(HWND page)
{
    SetFont(page, kHeading, FontOf(15, 600));
    ClipToRows(page, 0, kSchemePageBottom);
}

void MakePowerOffPage(HWND page)
{
    MakePage(page);
    for (const int note : {kFirstNote, kSecondNote, kScriptFolder})
        SetFont(page, note, FontOf(13, 300));
    SetText(page, kScriptFolder, programTexts.binDirectory);
}

// The tooltip of a slider says where it stands.
void ShowSteps(HWND page)
{
    for (const int slider : {kWorkingBrightness, kIdleBrightness})
        SetTooltip(ControlOf(page, slider), EnteredText(page, slider, Shown::Step, kBrightnessSteps).value_or(L""));
}

// While the thumb is dragged its value stands above it.
std::optional<LRESULT> OnSlide(HWND page, UINT message, WPARAM w, LPARAM l)
{
    if (message != WM_HSCROLL)
        return std::nullopt;
    const HWND slider = reinterpret_cast<HWND>(l);
    ShowSteps(page);
    SetThumbTip(slider, LOWORD(w) == TB_THUMBTRACK ? TooltipOf(slider) : L"");
    return 0;
}

constexpr Command kDisplayCommands[] = {
    {kDim, OnDim, CBN_SELCHANGE},
    {kMonitorOff, OnMonitorOff, CBN_SELCHANGE},
};
constexpr Command kPowerOffCommands[] = {
    {kStandbyTime, OnStandby, CBN_SELCHANGE},
    {kSleepChoice, OnPowerOffChoice},
    {kShutdownChoice, OnPowerOffChoice},
    {kCpuLoadCheck, OnCpuLoadCheck},
};

constexpr WindowTables kDisplayPage = {kDisplayControls, kDisplayCommands, nullptr, MakePage, OnSlide};
constexpr WindowTables kPowerOffPage = {kPowerOffControls, kPowerOffCommands, nullptr, MakePowerOffPage};

} // namespace

void ClipToRows(HWND page, int top, int bottom)
{
    const HRGN region = Checked(CreateRectRgn(0, top, kSchemePageWidth, bottom), "CreateRectRgn");
    SetWindowRgn(page, region, FALSE); // the window owns the region
}

void ShowSettings(const PowerSchemeSettings& settings)
{
    form = {settings, {}, Capabilities()};
    for (const auto& [page, bindings] : kPages)
        ShowFields(WindowOf(page), bindings, settings);
    const HWND display = WindowOf(WindowId::SchemeDisplay);
    const HWND powerOff = WindowOf(WindowId::SchemePowerOff);
    ShowSteps(display);
    OnDim(display);
    PutList(powerOff, kStandbyTime, StandbyList(form.capabilities.standby, SelectedText(powerOff, kStandbyTime)));
    OnStandby(powerOff);
    SetChecked(powerOff, kSleepChoice, !IsChecked(powerOff, kShutdownChoice));
    OnPowerOffChoice(powerOff);
    OnCpuLoadCheck(powerOff);
    KeepShown();
}

PowerSchemeSettings EditedSettings()
{
    PowerSchemeSettings settings = form.settings;
    for (std::size_t i = 0; i < std::size(kPages); ++i)
        settings = WithEntered(WindowOf(kPages[i].page), kPages[i].bindings, std::move(settings), form.shown[i]);
    return settings;
}

void EnableSettings(bool enabled)
{
    for (const auto& [page, bindings] : kPages) {
        for (const auto& binding : bindings)
            Enable(WindowOf(page), binding.id, enabled);
    }
    const HWND powerOff = WindowOf(WindowId::SchemePowerOff);
    Enable(powerOff, kSleepChoice, enabled);
    if (enabled)
        OnCpuLoadCheck(powerOff);
}

LRESULT CALLBACK SchemeDisplayProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kDisplayPage, window, message, w, l);
}

LRESULT CALLBACK SchemePowerOffProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kPowerOffPage, window, message, w, l);
}

} // namespace voltaro
