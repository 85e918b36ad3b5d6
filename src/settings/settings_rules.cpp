#include "settings/settings_rules.h"

#include "base/text.h"

namespace voltaro {
namespace {

constexpr const wchar_t* kNotControllable = L"NA";
constexpr const wchar_t* kDisabled = L"YES";
constexpr const wchar_t* kEnabled = L"NO";

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

bool IsControllable(std::wstring_view feature)
{
    return !EqualsIgnoreCase(feature, kNotControllable);
}

bool IsFeatureDisabled(std::wstring_view feature)
{
    return EqualsIgnoreCase(feature, kDisabled);
}

const wchar_t* FeatureText(bool disabled)
{
    return disabled ? kDisabled : kEnabled;
}

std::optional<std::uint32_t> AddressOf(std::wstring_view dotted)
{
    constexpr int kParts = 4;
    std::uint32_t address = 0;
    for (int part = 0; part < kParts; ++part) {
        const std::size_t digits = std::min(dotted.find_first_not_of(L"0123456789"), dotted.size());
        const std::int32_t number = LeadingNumber(dotted.substr(0, digits));
        if (digits == 0 || number > 255)
            return std::nullopt;
        address = address << 8 | static_cast<std::uint32_t>(number);
        dotted.remove_prefix(digits);
        if (part == kParts - 1)
            break;
        if (!dotted.starts_with(L'.'))
            return std::nullopt;
        dotted.remove_prefix(1);
    }
    return dotted.empty() ? std::optional(address) : std::nullopt;
}

FieldText DottedAddress(std::uint32_t address)
{
    const auto byte = [address](int shift) { return static_cast<int>(address >> shift & 0xFF); };
    return FieldText(Format(L"%d.%d.%d.%d", byte(24), byte(16), byte(8), byte(0)));
}

} // namespace voltaro
