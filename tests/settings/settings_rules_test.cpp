#include "settings/settings_rules.h"

#include <gtest/gtest.h>

#include <tuple>

namespace voltaro {
namespace {

HostSettings Ports(const wchar_t* tcp, const wchar_t* udp)
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

TEST(SettingsRulesTest, FeatureWordsInAnyCase)
{
    const std::tuple<const wchar_t*, bool, bool> kRows[] = {{L"yes", true, true}, {L"No", true, false},
        {L"", true, false}, {L"NAN", true, false}, {L"NA", false, false}, {L"na", false, false}};
    for (const auto& [feature, controllable, disabled] : kRows) {
        EXPECT_EQ(IsControllable(feature), controllable) << feature;
        EXPECT_EQ(IsFeatureDisabled(feature), disabled) << feature;
    }
}

TEST(SettingsRulesTest, DottedAddresses)
{
    EXPECT_EQ(AddressOf(L"192.168.20.11"), 0xC0A8140BU);
    EXPECT_EQ(AddressOf(L"0.0.0.0"), 0U);
    EXPECT_EQ(AddressOf(L"255.255.255.255"), 0xFFFFFFFFU);
    for (const wchar_t* none : {L"", L"1.2.3", L"1.2.3.", L"1.2.3.4.5", L"1.2.3.4 ", L" 1.2.3.4", L"1..3.4",
             L"1.2.3.256", L"1.2.3.-4", L"1.2.3.99999999999", L"host.example"})
        EXPECT_EQ(AddressOf(none), std::nullopt) << none;
    EXPECT_EQ(DottedAddress(0xC0A8140BU), L"192.168.20.11");
    EXPECT_EQ(DottedAddress(0), L"0.0.0.0");
}

} // namespace
} // namespace voltaro
