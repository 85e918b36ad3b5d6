// The strip below the scheme editor's pages: processor speed, and the application sensor policy with the buttons that
// open the policy window and delete a policy.
#include "power/processor_strip.h"

#include "base/text.h"
#include "console/agent_records.h"
#include "console/agent_state.h"
#include "console/change.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "power/levels.h"
#include "power/policy_window.h"
#include "power/scheme_pages.h"
#include "ui/boxes.h"
#include "ui/combo_box.h"
#include "ui/commands.h"
#include "ui/controls.h"
#include "ui/theme.h"
#include "ui/window_class.h"

namespace voltaro {
namespace {

// clang-format off
constexpr Control kControls[] = {
    // kind           id               text                           x    y    w    h
    {Kind::Label,     kNoId,           L"Processor Speed:",            0, 337, 116,  18},
    {Kind::Combo,     kProcessorSpeed, L"",                          116, 333,  94, 200},
    {Kind::GroupBox,  kNoId,           L"Application Sensor Policy", 222, 317, 310,  48},
    {Kind::Combo,     kPolicyList,     L"",                          230, 333, 136, 300, kPlain, L"Application Sensor Policy"},
    {Kind::Push,      kNewPolicy,      L"New ..",                    372, 332,  50,  25},
    {Kind::Push,      kEditPolicy,     L"Edit",                      425, 332,  46,  25},
    {Kind::Push,      kDeletePolicy,   L"Delete",                    474, 332,  52,  25},
};
// clang-format on

static_assert(IdsAreUnique(kControls));
static_assert(FitInside(kControls, kSchemePageWidth, kStripBottom));

constexpr Box kPolicyInUse
    = {L"Policy In Use.", L"'%ls' Policy cannot be deleted.\nIt is associated with the active power scheme."};
constexpr Box kDeleteQuestion
    = {L"Delete Policy", L"Are you sure you want to delete the policy '%ls'?\n Press 'Yes' to Continue..",
        BoxIcon::Question, BoxButtons::YesNo};
constexpr Box kDeleteFailed = {L"Delete failed ", L"Could not delete the policy."};

// The selected policy; empty for "(None)".
std::wstring SelectedPolicy(HWND strip)
{
    return SelectedIndex(strip, kPolicyList) > 0 ? SelectedText(strip, kPolicyList) : std::wstring();
}

void OnPolicy(HWND strip)
{
    EnablePolicyButtons(IsWindowEnabled(ControlOf(strip, kNewPolicy)));
}

void OnNewPolicy(HWND)
{
    OpenNewPolicy();
}

void OnEditPolicy(HWND strip)
{
    if (const std::wstring policy = SelectedPolicy(strip); !policy.empty())
        OpenPolicy(policy);
}

void OnDeletePolicy(HWND strip)
{
    const HWND editor = GetParent(strip);
    const std::wstring policy = SelectedPolicy(strip);
    if (policy.empty())
        return;
    if (EqualsIgnoreCase(policy, agentRecords.currentScheme.sensorPolicy))
        return ShowMessage(editor, kPolicyInUse, WithName(kPolicyInUse.text, policy));
    if (!AskQuestion(editor, kDeleteQuestion, WithName(kDeleteQuestion.text, policy)))
        return;
    const ChangeTexts texts{kDeleteFailed.caption, kDeleteFailed};
    if (SubmitChange(editor, texts, WithText(Operation::DeletePolicy, L"policy", policy)) != ChangeResult::Done)
        return;
    if (ReadOrLose(ReadPolicies) != ReadResult::Lost)
        ShowPolicies();
}

constexpr Command kCommands[] = {
    {kPolicyList, OnPolicy, CBN_SELCHANGE},
    {kNewPolicy, OnNewPolicy},
    {kEditPolicy, OnEditPolicy},
    {kDeletePolicy, OnDeletePolicy},
};

void OnCreate(HWND strip)
{
    FillCombo(
        strip, kProcessorSpeed, std::vector<std::wstring>(std::begin(kProcessorSpeeds), std::end(kProcessorSpeeds)));
    ClipToRows(strip, kStripTop, kStripBottom);
}

constexpr WindowTables kTables = {kControls, kCommands, nullptr, OnCreate};

} // namespace

void ShowPolicies(std::wstring_view selected)
{
    const HWND strip = WindowOf(WindowId::SchemeProcessor);
    const std::wstring former = SelectedText(strip, kPolicyList);
    std::vector<std::wstring> entries = {kNoPolicy};
    entries.insert(entries.end(), agentRecords.policies.begin(), agentRecords.policies.end());
    FillCombo(strip, kPolicyList, entries);
    // No selection stays so: the scheme names a policy that the agent did not list.
    if (SelectName(strip, kPolicyList, selected) < 0 && SelectName(strip, kPolicyList, former) < 0 && !former.empty())
        SelectIndex(strip, kPolicyList, 0);
    OnPolicy(strip);
}

void EnablePolicyButtons(bool enabled)
{
    const HWND strip = WindowOf(WindowId::SchemeProcessor);
    Enable(strip, kNewPolicy, enabled);
    const int needPolicy[] = {kEditPolicy, kDeletePolicy};
    Enable(strip, needPolicy, enabled && SelectedIndex(strip, kPolicyList) > 0);
}

LRESULT CALLBACK SchemeProcessorProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

} // namespace voltaro
