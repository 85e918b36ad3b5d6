#include "settings/settings_rules.h"

#include "base/text.h"
#include "settings/machine_texts.h"

#include <gtest/gtest.h>

#include <tuple>

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
}

TEST(SettingsRulesTest, AProxyIsCheckedOnlyWhereItIsUsed)
{
    const std::pair<ProxySettings, std::size_t> kRows[] = {
        {{L"Yes", L"", L"", L"Yes", L"", L"", L""}, kServerBlank},
        {{L"Yes", L"proxy", L"", L"Yes", L"", L"", L""}, kProxyPortBlank},
        {{L"yes", L"proxy", L"0", L"Yes", L"", L"", L""}, kProxyPortOutOfRange},
        {{L"Yes", L"proxy", L"65535", L"Yes", L"", L"", L""}, kUserNameBlank},
        {{L"No", L"", L"99999", L"No", L"", L"", L""}, kNoFault},
    };
    for (const auto& [settings, fault] : kRows) {
        ProxySettings edited = settings;
        EXPECT_EQ(CheckProxySettings(edited, settings), fault) << settings.port.c_str();
        EXPECT_TRUE(edited == settings);
    }
    for (const wchar_t* save : {L"Yes", L"No"}) {
        ProxySettings edited{L"Yes", L"proxy", L"8080", L"Yes", L"jan", L"secret", save};
        EXPECT_EQ(CheckProxySettings(edited, {}), kNoFault);
        EXPECT_EQ(edited.password, IsYes(save) ? L"secret" : L"") << "not kept, not sent";
    }
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

TEST(MachineTextsTest, AllSectionsAsText)
{
    // clang-format off
    const Element details{L"details", L"", {
        {L"CPUInfo", L"", {TextElement(L"Name", L"HX4\twith\nbreaks")}}, {L"OSInfo", L"", {TextElement(L"OSName", L"Debian")}},
        {L"NetworkInfo", L"", {{L"Adapter", L"", {TextElement(L"IP", L"1")}}, {L"Adapter", L"", {TextElement(L"IP", L"")}}}},
        {L"LogicalDiskInfo", L"", {{L"LogicalDisk", L"", {TextElement(L"Drive", L"C:")}}}}}};
    // clang-format on
    SystemDetails machine;
    machine.Read(&details);
    EXPECT_EQ(SystemName(machine), L"Debian");
    EXPECT_EQ(Replaced(Replaced(DetailsText(machine), L"\r\nDescription\tValue\r\n", L"*"), L"\r\n", L"|"),
        L"CPU*Name\tHX4 with breaks||Operating System*OSName\tDebian||Power Capabilities*|"
        L"Network*IP\t1||IP\t|||Physical Disks*|Logical Disks*Drive\tC:|||");
}

TEST(MachineTextsTest, Battery)
{
    const std::tuple<std::vector<const wchar_t*>, int, const wchar_t*> kRows[]
        = {{{}, 0, L""}, {{L"On AC", L"No System battery", L"", L""}, 0, L"No System battery"},
            {{L"On Battery", L"", L"250 %", L"2 Hrs"}, 100, L"2 Hrs"},
            {{L"On Battery", L"Discharging", L"-7", L"", L"11.40 V"}, 0, L"Discharging"}};
    BatteryInfo info;
    for (const auto& [values, percent, line] : kRows) {
        info.rows.clear();
        for (const wchar_t* value : values)
            info.rows.push_back({L"Element", value});
        EXPECT_EQ(ChargePercent(info), percent) << line;
        EXPECT_EQ(BatteryStatusLine(info), line);
    }
}

} // namespace voltaro
