#include "console/change.h"

#include "console/activation.h"

namespace voltaro {
namespace {

const Box& FailureBox(const ChangeTexts& texts, std::wstring_view status)
{
    for (const WordBox& row : texts.words) {
        if (IsWord(status, row.word))
            return row.box;
    }
    return texts.failed;
}

} // namespace

ChangeResult SubmitChange(HWND owner, const ChangeTexts& texts, const Request& request)
{
    const auto status = SendChange(owner, texts, request);
    return status ? TellOutcome(owner, texts, *status) : ChangeResult::NotMade;
}

std::optional<std::wstring> SendChange(HWND owner, const ChangeTexts& texts, const Request& request)
{
    if (!CheckLicense(owner, texts.refused))
        return std::nullopt;
    std::wstring status;
    {
        Reply reply = SendOrLose(request);
        if (reply.Lost() || reply.Result() == Outcome::Ending)
            return std::nullopt;
        status = reply.Result() == Outcome::NotSent ? kFailure : reply.Status();
    }
    return IsLicenseRefusal(owner, texts.refused, status) ? std::nullopt : std::optional(status);
}

ChangeResult TellOutcome(HWND owner, const ChangeTexts& texts, std::wstring_view status)
{
    if (IsWord(status, kSuccess))
        return ChangeResult::Done;
    const bool failed = IsWord(status, kFailure) || (status.empty() && !texts.onlyFailureFails);
    if (failed || !texts.onlyFailureFails)
        ShowMessage(owner, FailureBox(texts, status));
    return failed ? ChangeResult::Failed : ChangeResult::Unclear;
}

} // namespace voltaro
