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

void RefuseChange(HWND owner, const wchar_t* caption, License license)
{
    const wchar_t* text = license == License::Expired ? kExpiredText : kNotActivatedText;
    ShowMessage(owner, {caption, text}, Format(text, HostName().c_str()));
}

} // namespace

License LicenseOf(std::wstring_view status)
{
    if (EqualsIgnoreCase(status, kNotActivated))
        return License::NotActivated;
    return EqualsIgnoreCase(status, kExpired) ? License::Expired : License::Active;
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

bool CheckLicense(HWND owner, const wchar_t* caption)
{
    if (ReadOrLose(ReadActivationStatus) == ReadResult::Lost)
        return false;
    const License license = LicenseOf(agentRecords.activationStatus);
    if (license != License::Active)
        RefuseChange(owner, caption, license);
    return license == License::Active;
}

bool IsLicenseRefusal(HWND owner, const wchar_t* caption, std::wstring_view status)
{
    const License license = LicenseOf(status);
    if (license == License::Active)
        return false;
    RefuseChange(owner, caption, license);
    ReadActivationStatus();
    return true;
}

std::wstring HostName()
{
    return L"Localhost";
}

} // namespace voltaro
