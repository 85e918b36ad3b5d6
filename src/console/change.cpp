#include "console/change.h"

#include "console/activation.h"

namespace voltaro {

std::optional<std::wstring> AnswerToChange(HWND owner, const wchar_t* caption, const Request& request)
{
    if (!OpenGate(owner, caption))
        return std::nullopt;
    std::optional<std::wstring> status;
    {
        Reply reply = SendOrLose(request);
        if (reply.Root() || !reply.Sent())
            status = reply.Status();
    }
    if (status && IsLicenceRefusal(owner, caption, *status))
        return std::nullopt;
    return status;
}

} // namespace voltaro
