#include "power/scheme_changes.h"

#include "base/text.h"
#include "console/agent_records.h"
#include "console/change.h"
#include "ui/boxes.h"

namespace voltaro {
namespace {

constexpr Box kSetFailed = {L"Set scheme failed ", L"Unable to Set."};
constexpr Box kSaveFailed = {L"Save failed", L"Failed to save settings."};
constexpr Box kActiveScheme = {L"Cannot delete current active scheme ",
    L"Scheme '%ls' cannot be deleted as it is the current active scheme!\n\nHint: To delete a scheme that is currently "
    L"active, change the current active scheme, and try again."};
constexpr Box kDeleteQuestion
    = {L"Delete Scheme", L"Are you sure you want to delete the power scheme '%ls'?\n Press 'Yes' to continue..",
        BoxIcon::Question, BoxButtons::YesNo};
constexpr Box kDeleteFailed = {L"Delete failed ", L"Could not delete the scheme."};

constexpr WordBox kSaveWords[] = {{L"Permission denied", {L"Permission denied", L"Access denied."}}};

} // namespace

bool ApplyScheme(HWND editor, const std::wstring& scheme)
{
    const ChangeResult result = SubmitChange(
        editor, {kSetFailed.caption, kSetFailed}, WithText(Operation::ApplyPowerScheme, L"scheme", scheme));
    return result == ChangeResult::Done || result == ChangeResult::Unclear; // the scheme may be active
}

bool SaveScheme(HWND editor, const PowerSchemeSettings& settings)
{
    return SubmitChange(editor, {kSaveFailed.caption, kSaveFailed, kSaveWords},
               WithRecord(Operation::ApplyPowerSettings, settings))
        == ChangeResult::Done;
}

bool CreateScheme(HWND editor, const PowerSchemeSettings& settings)
{
    return SubmitChange(editor, {kSaveFailed.caption, kSaveFailed}, WithRecord(Operation::CreateScheme, settings))
        == ChangeResult::Done;
}

bool DeleteScheme(HWND editor, const std::wstring& scheme)
{
    if (EqualsIgnoreCase(scheme, agentRecords.currentScheme.powerScheme)) {
        ShowMessage(editor, kActiveScheme, WithName(kActiveScheme.text, scheme));
        return false;
    }
    if (!AskQuestion(editor, kDeleteQuestion, WithName(kDeleteQuestion.text, scheme)))
        return false;
    return SubmitChange(
               editor, {kDeleteFailed.caption, kDeleteFailed}, WithText(Operation::DeleteScheme, L"scheme", scheme))
        == ChangeResult::Done;
}

} // namespace voltaro
