// The rule dialog: one application and what may happen while it runs. Opened from the policy window.
#include "power/rule_window.h"

#include "base/text_rules.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "power/policy.h"
#include "power/scheme_window.h"
#include "resources/resource_ids.h"
#include "ui/binding.h"
#include "ui/boxes.h"
#include "ui/file_dialog.h"
#include "ui/refusals.h"
#include "ui/tooltip.h"
#include "ui/window_class.h"

namespace voltaro {
namespace {

enum PrivateControl : int { kNameLabel = 4331, kModifiedLabel };

// clang-format off
constexpr Control kControls[] = {
    // kind              id                  text                          x    y    w    h
    {Kind::Label,        kNameLabel,         L"Application exe name :",    18,  22, 150,  18},
    {Kind::Edit,         kRuleName,          L"",                         170,  18, 230,  24},
    {Kind::Push,         kRuleFile,          L"...",                      406,  18,  36,  24, kPlain, L"Choose a program"},
    {Kind::Label,        kModifiedLabel,     L"Edit Settings for :",       18,  22, 150,  18, kHidden},
    {Kind::PlainEdit,    kModifiedName,      L"",                         172,  22, 270,  18, kHidden},
    {Kind::Label,        kNoId,              L"Description :",             18,  56, 150,  18},
    {Kind::Edit,         kRuleDescription,   L"",                         170,  52, 272,  24},
    {Kind::Label,        kNoId,              L"Please select the activities that you need to happen,", 18,  92, 424, 18},
    {Kind::Label,        kNoId,              L"when the above mentioned application is running.",      18, 110, 424, 18},
    {Kind::CheckBox,     kFirstRuleCheck,    L"Enable Rule",               18, 140, 220,  20},
    {Kind::CheckBox,     kFirstRuleCheck+1,  L"Dim Monitor Brightness",    18, 166, 220,  20},
    {Kind::CheckBox,     kFirstRuleCheck+2,  L"Turn Off Monitor",          18, 192, 220,  20},
    {Kind::CheckBox,     kFirstRuleCheck+3,  L"Lock Screen",               18, 218, 220,  20},
    {Kind::CheckBox,     kFirstRuleCheck+4,  L"Turn Off Hard Disk",        18, 244, 220,  20},
    {Kind::CheckBox,     kFirstRuleCheck+5,  L"Log Off",                   18, 270, 220,  20},
    {Kind::CheckBox,     kFirstRuleCheck+6,  L"Standby",                   18, 296, 220,  20},
    {Kind::CheckBox,     kFirstRuleCheck+7,  L"Hibernate",                 18, 322, 220,  20},
    {Kind::CheckBox,     kFirstRuleCheck+8,  L"Shutdown",                  18, 348, 220,  20},
    {Kind::DefaultPush,  kSaveRule,          L"Save",                     262, 388,  86,  25},
    {Kind::Push,         IDCANCEL,           L"Cancel",                   356, 388,  86,  25},
};

constexpr Binding<ApplicationRule> kBindings[] = {
    {kRuleName,         Shown::Text,     &ApplicationRule::applicationName},
    {kRuleDescription,  Shown::Text,     &ApplicationRule::description},
    {kFirstRuleCheck,   Shown::Status,   &ApplicationRule::ruleStatus},
    {kFirstRuleCheck+1, Shown::Activity, &ApplicationRule::dimMonitor},
    {kFirstRuleCheck+2, Shown::Activity, &ApplicationRule::monitorOff},
    {kFirstRuleCheck+3, Shown::Activity, &ApplicationRule::lockScreen},
    {kFirstRuleCheck+4, Shown::Activity, &ApplicationRule::hardDisk},
    {kFirstRuleCheck+5, Shown::Activity, &ApplicationRule::logOff},
    {kFirstRuleCheck+6, Shown::Activity, &ApplicationRule::standby},
    {kFirstRuleCheck+7, Shown::Activity, &ApplicationRule::hibernate},
    {kFirstRuleCheck+8, Shown::Activity, &ApplicationRule::shutdown},
};
// clang-format on

static_assert(IdsAreUnique(kControls));
static_assert(std::size(kBindings) == std::size(kApplicationRuleFields));
static_assert(FitInside(kControls, 464, 436)); // of 470 x 485, less the frame, the caption and the menu bar

constexpr int kNewRow[] = {kNameLabel, kRuleName, kRuleFile};
constexpr int kModifiedRow[] = {kModifiedLabel, kModifiedName};

constexpr FileDialog kChooseExecutable = {L"Execute Files (*.exe)\0*.exe\0", L"Select an exe file"};

struct Edited {
    std::span<const ApplicationRule> rules;
    std::optional<std::size_t> place;
    AcceptedRule accepted = nullptr;
    ApplicationRule rule; // as it was opened
    ShownTexts shown;     // what the controls held then; empty for a new rule, all of which is the user's
};
Edited edited;

void ShowRule(HWND window, const ApplicationRule& rule)
{
    SetText(window, kModifiedName, rule.applicationName);
    ShowFields(window, kBindings, rule);
}

ApplicationRule RuleOnScreen(HWND window)
{
    ApplicationRule rule = WithEntered(window, kBindings, edited.rule, edited.shown);
    for (const auto slot : {&ApplicationRule::applicationName, &ApplicationRule::description}) {
        if (rule.*slot != edited.rule.*slot) // an edit limits what is typed, not what a program puts in
            rule.*slot = Truncated(rule.*slot, ApplicationRule::kEditLimit);
    }
    return rule;
}

// --- handlers ---

void OnCreate(HWND window)
{
    edited = Edited();
    for (const int edit : {kRuleName, kRuleDescription})
        LimitText(window, edit, ApplicationRule::kEditLimit);
    SetTooltip(ControlOf(window, kRuleFile), kChooseExecutable.title);
}

// "Clear" empties the fields; the name of a rule that is being modified is not one of them.
void OnClear(HWND window)
{
    ApplicationRule empty;
    if (edited.place)
        empty.applicationName = edited.rule.applicationName;
    ShowRule(window, empty);
}

void OnChooseFile(HWND window)
{
    const auto path = ChooseFile(window, kChooseExecutable);
    if (!path)
        return;
    SetText(window, kRuleName, std::wstring_view(*path).substr(path->find_last_of(L"\\/") + 1));
    FocusOn(window, kRuleName);
}

void OnSave(HWND window)
{
    const ApplicationRule rule = RuleOnScreen(window);
    const std::wstring name(rule.applicationName);
    if (!edited.place && RefuseInput(window, kRuleName, CheckRuleName(name, edited.rules), name))
        return;
    HideFromOwner(window);
    edited.accepted(rule, edited.place);
}

constexpr Command kCommands[] = {
    {IDOK, OnSave},
    {IDCANCEL, HideFromOwner},
    {kRuleFile, OnChooseFile},
    {kSaveRule, OnSave},
    {ID_RULE_CLEAR, OnClear},
};

constexpr WindowTables kTables = {kControls, kCommands, kSchemeHelpPage, OnCreate};

} // namespace

void OpenRuleWindow(std::span<const ApplicationRule> rules, std::optional<std::size_t> place, AcceptedRule accepted)
{
    const HWND window = WindowOf(WindowId::Rule);
    edited = {rules, place, accepted, {}, {}};
    if (place)
        edited.rule = rules[*place];
    else
        edited.rule.ruleStatus = L"Enabled";
    ShowRule(window, edited.rule);
    if (place)
        edited.shown = EnteredTexts(window, kBindings);
    Show(window, kNewRow, !place);
    Show(window, kModifiedRow, place.has_value());
    ShowOverOwner(window);
    SetFocus(ControlOf(window, place ? kRuleDescription : kRuleName));
}

LRESULT CALLBACK RuleWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

} // namespace voltaro
