// The rule dialog: one application and what may happen while it runs. Opened from the policy window.
#include "power/rule_window.h"

#include "base/text_rules.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "power/policy.h"
#include "power/scheme_window.h"
#include "resources/resource_ids.h"
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
// clang-format on

static_assert(IdsAreUnique(kControls));
static_assert(FitInside(kControls, 464, 436)); // of 470 x 485, less the frame, the caption and the menu bar

constexpr int kNewRow[] = {kNameLabel, kRuleName, kRuleFile};
constexpr int kModifiedRow[] = {kModifiedLabel, kModifiedName};

constexpr FileDialog kChooseExecutable = {L"Execute Files (*.exe)\0*.exe\0", L"Select an exe file"};

using RuleText = FixedText<256>; // what a user may enter

struct Edited {
    std::span<const ApplicationRule> rules;
    std::optional<std::size_t> place;
    AcceptedRule accepted = nullptr;
    ApplicationRule rule;         // as it was opened
    std::wstring openDescription; // as the edit shows it, which may not show every text
};
Edited edited;

int CheckOf(std::size_t check)
{
    return kFirstRuleCheck + static_cast<int>(check);
}

void ShowRule(HWND window, const ApplicationRule& rule)
{
    SetText(window, kRuleName, rule.applicationName);
    SetText(window, kModifiedName, rule.applicationName);
    SetText(window, kRuleDescription, rule.description);
    for (std::size_t i = 0; i < kRuleChecks.size(); ++i)
        SetChecked(window, CheckOf(i), IsRuleChecked(rule, i));
}

// What the user did not change stays as it was read, be it a text that the dialog cannot show.
ApplicationRule RuleOnScreen(HWND window)
{
    ApplicationRule rule = edited.rule;
    if (!edited.place)
        rule.applicationName = RuleText(TextOf(window, kRuleName)).view();
    if (const std::wstring description = TextOf(window, kRuleDescription); description != edited.openDescription)
        rule.description = RuleText(description).view();
    for (std::size_t i = 0; i < kRuleChecks.size(); ++i) {
        const bool checked = IsChecked(window, CheckOf(i));
        if (!edited.place || checked != IsRuleChecked(rule, i))
            SetRuleChecked(rule, i, checked);
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
        SetRuleChecked(edited.rule, 0, true); // a new rule is enabled
    ShowRule(window, edited.rule);
    edited.openDescription = TextOf(window, kRuleDescription);
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
