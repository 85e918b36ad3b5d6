#include "settings/settings_rules.h"

#include "settings/machine_texts.h"

#include <gtest/gtest.h>

#include <tuple>

namespace voltaro {

static HostSettings Ports(const wchar_t* tcp, const wchar_t* udp)
{
    return {{}, tcp, udp, {}, {}, {}, {}, {}, {}, {}, {}, {}};
}

TEST(SettingsRulesTest, PortsAreTheirLeadingDigitsInRange)
{
    // Typed, and sent (null: out of range). Ports below 1024 pass; 1 in 32 or 64 bits does not.
    const std::pair<const wchar_t*, const wchar_t*> kPorts[] = {{L"1", L"1"}, {L"65535", L"65535"}, {L"00080", L"80"},
        {L" 4916", L"4916"}, {L"4916 tcp", L"4916"}, {L"0", nullptr}, {L"65536", nullptr}, {L"-1", nullptr},
        {L"-65535", nullptr}, {L"tcp", nullptr}, {L" ", nullptr}, {L"4294967297", nullptr},
        {L"18446744073709551617", nullptr}, {L"99999999999999999999999999999999999999", nullptr}};
    for (const auto& [typed, sent] : kPorts) {
        HostSettings tcp = Ports(typed, L"4917"), udp = Ports(L"4916", typed);
        ProxySettings proxy{L"Yes", L"proxy", typed, L"No", L"", L"", L"No"};
        EXPECT_EQ(CheckHostSettings(tcp, {}), sent ? kNoFault : kTcpPortOutOfRange) << typed;
        EXPECT_EQ(CheckHostSettings(udp, {}), sent ? kNoFault : kUdpPortOutOfRange) << typed;
        EXPECT_EQ(CheckProxySettings(proxy, {}), sent ? kNoFault : kProxyPortOutOfRange) << typed;
        for (const FieldText& port : {tcp.tcpPort, udp.udpPort, proxy.port})
            EXPECT_EQ(port, sent ? sent : typed);
    }
    HostSettings both = Ports(L"70000", L"");
    EXPECT_EQ(CheckHostSettings(both, {}), kTcpPortOutOfRange) << "the first fault is told";
}

TEST(SettingsRulesTest, AProxyIsCheckedOnlyWhereItIsUsed)
{
    const std::pair<ProxySettings, std::size_t> kRows[] = {
        {{L"Yes", L"", L"", L"Yes", L"", L"", L""}, kServerBlank},
        {{L"Yes", L"proxy", L"", L"Yes", L"", L"", L""}, kProxyPortBlank},
        {{L"yes", L"proxy", L"0", L"Yes", L"", L"", L""}, kProxyPortOutOfRange},
        {{L"Yes", L"proxy", L"65535", L"Yes", L"", L"", L""}, kUserNameBlank},
        {{L"Yes", L"proxy", L"8080", L"Yes", L"jan", L"", L""}, kNoFault},
        {{L"No", L"", L"", L"Yes", L"", L"", L""}, kNoFault},
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

TEST(SettingsRulesTest, ASnoozeAlertThatIsOffHasFixedTimes)
{
    const SnoozeSettings kRows[] = {{L"Yes", L"Yes", L"3", L"30", L"60"}, {L"No", L"Yes", L"5", L"30", L"60"},
        {L"Yes", L"No", L"3", L"10", L"20"}, {L"No", L"No", L"5", L"10", L"20"}};
    for (const SnoozeSettings& expected : kRows) {
        SnoozeSettings edited{expected.idleAlert, expected.schedulerAlert, L"3", L"30", L"60"};
        EXPECT_EQ(CompleteSnoozeSettings(edited, {}), kNoFault);
        EXPECT_TRUE(edited == expected) << expected.idleAlert.c_str();
    }
}

TEST(MachineTextsTest, LogoOfTheSystemName)
{
    const std::pair<SystemLogo, std::vector<const wchar_t*>> kRows[] = {
        {SystemLogo::Panes, {L"Microsoft Windows 10 Pro", L"Windows by Microsoft on Ubuntu Linux"}},
        {SystemLogo::Ring, {L"Ubuntu 22.04 Linux", L"xubuntu"}},
        {SystemLogo::Prompt, {L"Debian GNU/Linux"}},
        {SystemLogo::None, {L"Windows 10", L"microsoft windows", L"UBUNTU", L"linux", L""}},
    };
    for (const auto& [logo, names] : kRows)
        for (const wchar_t* name : names)
            EXPECT_EQ(LogoOf(name), logo) << name;
}

TEST(MachineTextsTest, AllSectionsAsText)
{
    // clang-format off
    const Element details{L"details", L"", {
        {L"CPUInfo", L"", {TextElement(L"Name", L"HX4\twith\nbreaks")}},
        {L"OSInfo", L"", {TextElement(L"OSName", L"Debian GNU/Linux")}}, {L"PowerCapabilities", L"", {}},
        {L"NetworkInfo", L"", {{L"Adapter", L"", {TextElement(L"IP", L"192.168.20.47")}},
                               {L"Adapter", L"", {TextElement(L"IP", L"")}}}},
        {L"LogicalDiskInfo", L"", {{L"LogicalDisk", L"", {TextElement(L"Drive", L"C:")}}}}}};
    // clang-format on
    SystemDetails machine;
    machine.Read(&details);
    EXPECT_EQ(SystemName(machine), L"Debian GNU/Linux");
    EXPECT_EQ(DetailsText(machine),
        L"CPU\r\nDescription\tValue\r\nName\tHX4 with breaks\r\n\r\n"
        L"Operating System\r\nDescription\tValue\r\nOSName\tDebian GNU/Linux\r\n\r\n"
        L"Power Capabilities\r\nDescription\tValue\r\n\r\n"
        L"Network\r\nDescription\tValue\r\nIP\t192.168.20.47\r\n\r\nIP\t\r\n\r\n\r\n"
        L"Physical Disks\r\nDescription\tValue\r\n\r\n"
        L"Logical Disks\r\nDescription\tValue\r\nDrive\tC:\r\n\r\n\r\n");
}

TEST(MachineTextsTest, Battery)
{
    const std::tuple<std::vector<const wchar_t*>, int, const wchar_t*> kRows[] = {
        {{}, 0, L""},
        {{L"On AC", L"No System battery", L"", L""}, 0, L"No System battery"},
        {{L"On AC", L"Charging", L"87 %", L"3 Hrs : 25 Mins"}, 87, L"Charging, remaining time 3 Hrs : 25 Mins"},
        {{L"On Battery", L"", L"250 %", L"2 Hrs"}, 100, L"2 Hrs"},
        {{L"On Battery", L"Discharging", L"-7", L"", L"11.40 V"}, 0, L"Discharging"},
    };
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
