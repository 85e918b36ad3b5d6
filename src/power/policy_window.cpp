// The application sensor policy window: the rules of one policy. Opened from the scheme editor's strip.
#include "power/policy_window.h"

#include "console/agent_records.h"
#include "console/agent_state.h"
#include "console/change.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "power/names.h"
#include "power/policy.h"
#include "power/processor_strip.h"
#include "power/rule_window.h"
#include "power/scheme_window.h"
#include "ui/boxes.h"
#include "ui/list_view.h"
#include "ui/refusals.h"
#include "ui/window_class.h"

namespace voltaro {
namespace {

enum PrivateControl : int { kPolicyLabel = 4231, kNewPolicyLabel };

// clang-format off
constexpr Control kControls[] = {
    // kind              id               text                                      x    y    w    h
    {Kind::Label,        kPolicyLabel,    L"Application Sensor Policy Name:",       14,  18, 240,  18},
    {Kind::PlainEdit,    kPolicyName,     L"",                                     262,  18, 300,  18},
    {Kind::Label,        kNewPolicyLabel, L"New Application Sensor Policy Name:",   14,  18, 240,  18, kHidden},
    {Kind::Edit,         kNewPolicyName,  L"",                                     260,  14, 240,  24, kHidden},
    {Kind::GroupBox,     kNoId,           L"Exceptions List",                       12,  50, 720, 388},
    {Kind::ListView,     kRuleList,       L"",                                      24,  72, 696, 320, kPlain, L"Exceptions List"},
    {Kind::Push,         kAddRule,        L"Add Rule..",                            24, 402, 100,  25},
    {Kind::Push,         kModifyRule,     L"Modify Rule..",                        132, 402, 100,  25},
    {Kind::Push,         kDeleteRule,     L"Delete",                               240, 402, 100,  25},
    {Kind::DefaultPush,  kSavePolicy,     L"Save",                                 552, 448,  86,  25},
    {Kind::Push,         IDCANCEL,        L"Cancel",                               646, 448,  86,  25},
};

constexpr Column kColumns[] = {
    {L"Application Name", 130}, {L"Description", 150},      {L"Rule Status", 88}, {L"Dim Monitor", 90},
    {L"Turn Off Monitor", 116}, {L"Lock Screen", 94},       {L"Turn Off Hard disk", 126}, {L"Log Off", 60},
    {L"Standby", 70},           {L"Hibernate", 78},         {L"Shutdown", 78},
};
// clang-format on

static_assert(IdsAreUnique(kControls));
static_assert(FitInside(kControls, 744, 491)); // of 750 x 520, less the frame and the caption
static_assert(std::size(kColumns) == kRuleColumnCount);

constexpr int kNewRow[] = {kNewPolicyLabel, kNewPolicyName};
constexpr int kExistingRow[] = {kPolicyLabel, kPolicyName};
constexpr int kRuleButtons[] = {kModifyRule, kDeleteRule};

constexpr Box kSaveFailed = {L"Failed to save", L"Unable to save application sensor policy settings"};
constexpr Box kUnreadable = {L"Application Sensor Policy", L"Could not read the settings of the policy '%ls'."};
constexpr Box kCreateFailed = {L"Failed to save ", L"Unable to save new policy settings"};

struct Edited {
    EditMode mode = EditMode::Add;
    ApplicationSensorPolicy policy;
};
Edited edited;

HWND Window()
{
    return WindowOf(WindowId::Policy);
}

HWND List()
{
    return ControlOf(Window(), kRuleList);
}

std::optional<std::size_t> SelectedRule()
{
    const int row = OnlySelectedRow(List());
    return row >= 0 ? std::optional(static_cast<std::size_t>(row)) : std::nullopt;
}

void ShowButtons(HWND window)
{
    Enable(window, kRuleButtons, SelectedRule().has_value());
}

void ShowRules()
{
    const auto& rules = edited.policy.rules;
    FillList(List(), rules.size(),
        [&](std::size_t row, std::size_t column) { return (rules[row].*kRuleColumns[column]).c_str(); });
    ShowButtons(Window());
}

void Open(EditMode mode, ApplicationSensorPolicy policy)
{
    const HWND window = Window();
    const bool isNew = mode == EditMode::Add;
    edited = {mode, std::move(policy)};
    SetText(window, kPolicyName, edited.policy.name);
    SetText(window, kNewPolicyName, {});
    Show(window, kNewRow, isNew);
    Show(window, kExistingRow, !isNew);
    ClearList(List());
    ShowRules();
    ShowOverOwner(window);
    SetFocus(ControlOf(window, isNew ? kNewPolicyName : kRuleList));
}

// The rule dialog's "Save": in the place of the selected rule, or at the end.
void AcceptRule(const ApplicationRule& rule, std::optional<std::size_t> place)
{
    auto& rules = edited.policy.rules;
    if (!place) {
        place = rules.size();
        rules.emplace_back();
    }
    rules[*place] = rule;
    ShowRules();
    SelectRow(List(), static_cast<int>(*place));
    ListView_EnsureVisible(List(), static_cast<int>(*place), FALSE);
}

bool TellRefusal(HWND window, const Refusal* refusal)
{
    if (refusal != nullptr)
        ShowMessage(window, {refusal->title, refusal->text});
    return refusal != nullptr;
}

// --- handlers ---

void OnCreate(HWND window)
{
    edited = Edited();
    LimitText(window, kNewPolicyName, kMaxNameLength);
    SetColumns(ControlOf(window, kRuleList), kColumns);
}

void OnTyping(HWND window)
{
    CheckTyping(window, kNewPolicyName, kMaxNameLength, CheckTypedPolicyName);
}

void OnAddRule(HWND window)
{
    if (!TellRefusal(window, CheckRoomForRule(edited.policy.rules)))
        OpenRuleWindow(edited.policy.rules, std::nullopt, AcceptRule);
}

void OnModifyRule(HWND)
{
    if (const auto selected = SelectedRule())
        OpenRuleWindow(edited.policy.rules, selected, AcceptRule);
}

void OnDeleteRule(HWND)
{
    const auto selected = SelectedRule();
    if (!selected)
        return;
    auto& rules = edited.policy.rules;
    rules.erase(rules.begin() + static_cast<std::ptrdiff_t>(*selected));
    ShowRules();
    if (!rules.empty() && *selected == rules.size()) // the last one went
        SelectRow(List(), static_cast<int>(*selected) - 1);
}

void OnSave(HWND window)
{
    const bool isNew = edited.mode == EditMode::Add;
    if (isNew) {
        const std::wstring name = TextOf(window, kNewPolicyName);
        if (RefuseInput(window, kNewPolicyName, CheckNewPolicyName(name, agentRecords.policies), name))
            return;
        edited.policy.name = name;
    }
    if (TellRefusal(window, CheckRules(edited.policy.rules, edited.mode)))
        return;
    const Box& failed = isNew ? kCreateFailed : kSaveFailed;
    const Operation operation = isNew ? Operation::CreatePolicy : Operation::SetPolicySettings;
    if (SubmitChange(window, {failed.caption, failed}, WithPolicy(operation, edited.policy)) != ChangeResult::Done)
        return;
    HideFromOwner(window);
    if (ReadOrLose(ReadPolicies) != ReadResult::Lost)
        ShowPolicies(isNew ? std::wstring_view(edited.policy.name) : std::wstring_view());
}

void OnEnter(HWND window)
{
    if (GetFocus() == List() && SelectedRule())
        OnModifyRule(window);
    else
        OnSave(window);
}

constexpr Command kCommands[] = {
    {IDOK, OnEnter},
    {IDCANCEL, HideFromOwner},
    {kNewPolicyName, OnTyping, EN_CHANGE},
    {kAddRule, OnAddRule},
    {kModifyRule, OnModifyRule},
    {kDeleteRule, OnDeleteRule},
    {kSavePolicy, OnSave},
    {kRuleList, ShowButtons, LVN_ITEMCHANGED},
    {kRuleList, OnModifyRule, NM_DBLCLK},
    {kRuleList, OnDeleteRule, kDeleteKey},
};

constexpr WindowTables kTables = {kControls, kCommands, kSchemeHelpPage, OnCreate};

} // namespace

void OpenNewPolicy()
{
    Open(EditMode::Add, {});
}

void OpenPolicy(const std::wstring& name)
{
    std::optional<ApplicationSensorPolicy> policy;
    {
        Reply reply = SendOrLose(WithText(Operation::QueryPolicy, L"PolicyName", name));
        if (reply.Lost())
            return;
        if (const Element* root = reply.Root())
            policy = ReadPolicy(*root);
    }
    if (!policy)
        return ShowMessage(WindowOf(WindowId::Scheme), kUnreadable, WithName(kUnreadable.text, name));
    policy->name = name; // as the list of policies spells it
    Open(EditMode::Update, std::move(*policy));
}

LRESULT CALLBACK PolicyWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

} // namespace voltaro
