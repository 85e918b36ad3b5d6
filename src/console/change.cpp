#include "console/change.h"

#include "console/activation.h"

namespace voltaro {

std::optional<std::wstring> AnswerToChange(HWND owner, const wchar_t* caption, const Request& request)
{
    if (!OpenGate(owner, caption))
        return std::nullopt;
    std::wstring status;
    {
        Reply reply = SendOrLose(request);
        if (reply.Lost() || reply.Result() == Outcome::Ending)
            return std::nullopt;
        status = reply.Result() == Outcome::NotSent ? kFailure : reply.Status();
    }
    return IsLicenceRefusal(owner, caption, status) ? std::nullopt : std::optional(status);
}

} // namespace voltaro
