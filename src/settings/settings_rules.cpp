#include "settings/settings_rules.h"

#include "base/text.h"

namespace voltaro {
namespace {

// What is sent while an alert is off.
constexpr const wchar_t* kIdleMinutesOff = L"5";
constexpr const wchar_t* kSchedulerMinutesOff = L"10";
constexpr const wchar_t* kSnoozeMinutesOff = L"20";

// Gives one of the two faults, or turns a changed text into its number. Ports 1 to 1023 pass, although the message of
// the communication ports names 1024 as the lowest: agents that listen there exist.
std::size_t CheckPort(FieldText& port, const FieldText& asRead, std::size_t blank, std::size_t outOfRange)
{
    constexpr std::int32_t kHighest = 65535;
    if (port.empty())
        return blank;
    const std::int32_t number = LeadingNumber(port);
    if (number < 1 || number > kHighest)
        return outOfRange;
    if (port != asRead)
        port = NumberText(number);
    return kNoFault;
}

bool IsNo(std::wstring_view flag)
{
    return EqualsIgnoreCase(flag, L"No");
}

} // namespace

std::size_t CheckHostSettings(HostSettings& edited, const HostSettings& asRead)
{
    const std::size_t fault = CheckPort(edited.tcpPort, asRead.tcpPort, kTcpPortBlank, kTcpPortOutOfRange);
    return fault != kNoFault ? fault : CheckPort(edited.udpPort, asRead.udpPort, kUdpPortBlank, kUdpPortOutOfRange);
}

std::size_t CheckProxySettings(ProxySettings& edited, const ProxySettings& asRead)
{
    if (IsNo(edited.savePassword))
        edited.password.Clear();
    if (!IsYes(edited.useProxy))
        return kNoFault;
    if (edited.server.empty())
        return kServerBlank;
    const std::size_t fault = CheckPort(edited.port, asRead.port, kProxyPortBlank, kProxyPortOutOfRange);
    if (fault != kNoFault)
        return fault;
    return IsYes(edited.useAuthentication) && edited.userName.empty() ? kUserNameBlank : kNoFault;
}

std::size_t CompleteSnoozeSettings(SnoozeSettings& edited, const SnoozeSettings&)
{
    if (IsNo(edited.idleAlert))
        edited.idleAlertMinutes = kIdleMinutesOff;
    if (IsNo(edited.schedulerAlert)) {
        edited.schedulerAlertMinutes = kSchedulerMinutesOff;
        edited.snoozeMinutes = kSnoozeMinutesOff;
    }
    return kNoFault;
}

} // namespace voltaro
