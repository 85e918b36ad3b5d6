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
    if (!CheckLicense(owner, texts.refused))
        return ChangeResult::NotMade;
    std::wstring status;
    {
        Reply reply = SendOrLose(request);
        if (reply.Lost() || reply.Result() == Outcome::Ending)
            return ChangeResult::NotMade;
        status = reply.Result() == Outcome::NotSent ? kFailure : reply.Status();
    }
    if (IsWord(status, kSuccess))
        return ChangeResult::Done;
    if (IsLicenseRefusal(owner, texts.refused, status))
        return ChangeResult::NotMade;
    const bool failed = IsWord(status, kFailure) || (status.empty() && !texts.onlyFailureFails);
    if (failed || !texts.onlyFailureFails)
        ShowMessage(owner, FailureBox(texts, status));
    return failed ? ChangeResult::Failed : ChangeResult::Unclear;
}

} // namespace voltaro
