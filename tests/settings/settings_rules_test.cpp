#include "settings/settings_rules.h"

#include "settings/machine_texts.h"

#include <gtest/gtest.h>

namespace voltaro {

TEST(SettingsRulesTest, PortsAreTheirLeadingDigitsInRange)
{
    // Typed, and sent (null: out of range). Ports below 1024 pass; 1 in 32 or 64 bits does not.
    const std::pair<const wchar_t*, const wchar_t*> kPorts[] = {{L"1", L"1"}, {L"65535", L"65535"},
        {L" 00080 tcp", L"80"}, {L"0", nullptr}, {L"65536", nullptr}, {L"-65535", nullptr}, {L"tcp", nullptr},
        {L" ", nullptr}, {L"4294967297", nullptr}, {L"18446744073709551617", nullptr}};
    for (const auto& [typed, sent] : kPorts) {
        HostSettings tcp, udp;
        tcp.tcpPort = udp.udpPort = typed;
        tcp.udpPort = udp.tcpPort = L"4916";
        ProxySettings proxy{L"Yes", L"proxy", typed, L"No", L"", L"", L"No"};
        EXPECT_EQ(CheckHostSettings(tcp, {}), sent ? kNoFault : kTcpPortOutOfRange) << typed;
        EXPECT_EQ(CheckHostSettings(udp, {}), sent ? kNoFault : kUdpPortOutOfRange) << typed;
        EXPECT_EQ(CheckProxySettings(proxy, {}), sent ? kNoFault : kProxyPortOutOfRange) << typed;
        for (const FieldText& port : {tcp.tcpPort, udp.udpPort, proxy.port})
            EXPECT_EQ(port, sent ? sent : typed);
    }
    ProxySettings off{L"No", L"proxy", L"80", L"Yes", L"user", L"secret", L"No"};
    EXPECT_TRUE(CheckProxySettings(off, {}) == kNoFault && off.password.empty());
}

TEST(MachineTextsTest, LogoOfTheSystemName)
{
    const std::pair<const wchar_t*, SystemLogo> kRows[] = {{L"Microsoft Windows 10 Pro", SystemLogo::Panes},
        {L"Windows by Microsoft on Ubuntu Linux", SystemLogo::Panes}, {L"xubuntu Linux", SystemLogo::Ring},
        {L"Debian GNU/Linux", SystemLogo::Prompt}, {L"Windows 10", SystemLogo::None},
        {L"microsoft windows", SystemLogo::None}, {L"UBUNTU", SystemLogo::None}};
    for (const auto& [name, logo] : kRows)
        EXPECT_EQ(LogoOf(name), logo) << name;
}

} // namespace voltaro
