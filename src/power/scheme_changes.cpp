#include "power/scheme_changes.h"

#include "base/text.h"
#include "console/change.h"
#include "console/state.h"
#include "ui/boxes.h"

namespace voltaro {
namespace {

constexpr Box kSetFailed = {L"Set scheme failed ", L"Unable to Set."};
constexpr Box kSaveFailed = {L"Save failed", L"Failed to save settings."};
constexpr Box kDenied = {L"Permission denied", L"Access denied."};
constexpr Box kActiveScheme = {L"Cannot delete current active scheme ",
    L"Scheme '%ls' cannot be deleted as it is the current active scheme!\n\nHint: To delete a scheme that is currently "
    L"active, change the current active scheme, and try again."};
constexpr Box kDeleteQuestion
    = {L"Delete Scheme", L"Are you sure you want to delete the power scheme '%ls'?\n Press 'Yes' to continue..",
        BoxIcon::Question, BoxButtons::YesNo};
constexpr Box kDeleteFailed = {L"Delete failed ", L"Could not delete the scheme."};

constexpr const wchar_t* kPermissionDenied = L"Permission denied";

bool SendSettings(HWND editor, Operation operation, const PowerSchemeSettings& settings)
{
    const auto status = AnswerToChange(editor, kSaveFailed.caption, WithRecord(operation, settings));
    if (!status)
        return false;
    if (IsWord(*status, kSuccess))
        return true;
    const bool denied = operation == Operation::ApplyPowerSettings && IsWord(*status, kPermissionDenied);
    Tell(editor, denied ? kDenied : kSaveFailed);
    return false;
}

} // namespace

bool ApplyScheme(HWND editor, const std::wstring& scheme)
{
    const auto status
        = AnswerToChange(editor, kSetFailed.caption, WithText(Operation::ApplyPowerScheme, L"scheme", scheme));
    if (!status)
        return false;
    if (!IsWord(*status, kSuccess))
        Tell(editor, kSetFailed);
    // After any other word the scheme may be active; an answer without a word changes nothing on screen.
    return !status->empty() && !IsWord(*status, kFailure);
}

bool SaveScheme(HWND editor, const PowerSchemeSettings& settings)
{
    return SendSettings(editor, Operation::ApplyPowerSettings, settings);
}

bool CreateScheme(HWND editor, const PowerSchemeSettings& settings)
{
    return SendSettings(editor, Operation::CreateScheme, settings);
}

bool DeleteScheme(HWND editor, const std::wstring& scheme)
{
    if (EqualsIgnoreCase(scheme, state.currentScheme.powerScheme)) {
        Tell(editor, kActiveScheme, WithName(kActiveScheme.text, scheme));
        return false;
    }
    if (!Ask(editor, kDeleteQuestion, WithName(kDeleteQuestion.text, scheme)))
        return false;
    const auto status
        = AnswerToChange(editor, kDeleteFailed.caption, WithText(Operation::DeleteScheme, L"scheme", scheme));
    if (!status)
        return false;
    if (IsWord(*status, kSuccess))
        return true;
    Tell(editor, kDeleteFailed);
    return false;
}

} // namespace voltaro
