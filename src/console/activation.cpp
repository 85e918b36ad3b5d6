#include "console/activation.h"

#include "base/text.h"
#include "console/agent_records.h"
#include "console/main_view.h"
#include "ui/boxes.h"

namespace voltaro {
namespace {

constexpr const wchar_t* kNotActivated = L"Not Activated";
constexpr const wchar_t* kExpired = L"License Expired";

constexpr const wchar_t* kNotActivatedText
    = L"Voltaro on '%ls' is not activated.\nPlease activate Voltaro and try again.\n\nHint : To activate (in Voltaro "
      L"Console Menu) click on Activate now... .";
constexpr const wchar_t* kExpiredText = L"The license of Voltaro on '%ls' has expired.\nPlease renew the license and "
                                        L"try again.\n\nHint : To activate (in "
                                        L"Voltaro Console Menu) click on Activate now... .";

void Refuse(HWND owner, const wchar_t* caption, Licence licence)
{
    const wchar_t* text = licence == Licence::Expired ? kExpiredText : kNotActivatedText;
    Tell(owner, {caption, text}, Format(text, HostName().c_str()));
}

} // namespace

Licence LicenceOf(std::wstring_view status)
{
    if (EqualsIgnoreCase(status, kNotActivated))
        return Licence::NotActivated;
    return EqualsIgnoreCase(status, kExpired) ? Licence::Expired : Licence::Active;
}

ReadResult ReadActivationStatus()
{
    Reply reply = Send(Plain(Operation::GetActivationStatus));
    if (!reply.Answered())
        return reply.Lost() ? ReadResult::Lost : ReadResult::Unreadable;
    agentRecords.activationStatus = reply.Status();
    if (mainView.repaint)
        mainView.repaint();
    return agentRecords.activationStatus.empty() ? ReadResult::Unreadable : ReadResult::Read;
}

bool OpenGate(HWND owner, const wchar_t* caption)
{
    if (ReadOrLose(ReadActivationStatus) == ReadResult::Lost)
        return false;
    const Licence licence = LicenceOf(agentRecords.activationStatus);
    if (licence != Licence::Active)
        Refuse(owner, caption, licence);
    return licence == Licence::Active;
}

bool IsLicenceRefusal(HWND owner, const wchar_t* caption, std::wstring_view status)
{
    const Licence licence = LicenceOf(status);
    if (licence == Licence::Active)
        return false;
    Refuse(owner, caption, licence);
    ReadActivationStatus();
    return true;
}

std::wstring HostName()
{
    return L"Localhost";
}

} // namespace voltaro
