#include "settings/settings_rules.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

constexpr struct {
    const wchar_t* typed;
    const wchar_t* sent; // null: out of range
} kPorts[] = {
    {L"1", L"1"},
    {L"80", L"80"}, // below 1024 passes
    {L"65535", L"65535"},
    {L"00080", L"80"},
    {L" 4916", L"4916"},
    {L"4916 tcp", L"4916"},
    {L"0", nullptr},
    {L"65536", nullptr},
    {L"-1", nullptr},
    {L"-65535", nullptr},
    {L"tcp", nullptr},
    {L" ", nullptr},
    {L"4294967297", nullptr},           // 1 in 32 bits
    {L"18446744073709551617", nullptr}, // 1 in 64 bits
    {L"99999999999999999999999999999999999999", nullptr},
};

HostSettings Ports(const wchar_t* tcp, const wchar_t* udp)
{
    HostSettings edited;
    edited.tcpPort = tcp;
    edited.udpPort = udp;
    return edited;
}

TEST(HostSettingsTest, Ports)
{
    for (const auto& row : kPorts) {
        HostSettings tcp = Ports(row.typed, L"4917");
        EXPECT_EQ(CheckHostSettings(tcp), row.sent ? kNoFault : kTcpPortOutOfRange) << row.typed;
        EXPECT_EQ(tcp.tcpPort, row.sent ? row.sent : row.typed);
        HostSettings udp = Ports(L"4916", row.typed);
        EXPECT_EQ(CheckHostSettings(udp), row.sent ? kNoFault : kUdpPortOutOfRange) << row.typed;
        EXPECT_EQ(udp.udpPort, row.sent ? row.sent : row.typed);
    }
}

TEST(HostSettingsTest, StopsAtTheFirstFault)
{
    HostSettings blank;
    EXPECT_EQ(CheckHostSettings(blank), kTcpPortBlank);
    HostSettings blankUdp = Ports(L"4916", L"");
    EXPECT_EQ(CheckHostSettings(blankUdp), kUdpPortBlank);
    HostSettings both = Ports(L"70000", L"");
    EXPECT_EQ(CheckHostSettings(both), kTcpPortOutOfRange);
}

TEST(ProxySettingsTest, ChecksOnlyWhatIsUsed)
{
    const struct {
        const wchar_t *proxy, *server, *port, *authentication, *user;
        std::size_t fault;
        const wchar_t* sent;
    } kRows[] = {
        {L"Yes", L"", L"", L"Yes", L"", kServerBlank, L""},
        {L"Yes", L"proxy", L"", L"Yes", L"", kProxyPortBlank, L""},
        {L"yes", L"proxy", L"0", L"Yes", L"", kProxyPortOutOfRange, L"0"},
        {L"Yes", L"proxy", L"65536", L"No", L"", kProxyPortOutOfRange, L"65536"},
        {L"Yes", L"proxy", L"65535", L"Yes", L"", kUserNameBlank, L"65535"},
        {L"Yes", L"proxy", L"8080x", L"Yes", L"jan", kNoFault, L"8080"},
        {L"Yes", L"proxy", L"8080", L"No", L"", kNoFault, L"8080"},
        {L"No", L"", L"", L"Yes", L"", kNoFault, L""},
        {L"No", L"", L"99999", L"No", L"", kNoFault, L"99999"},
    };
    for (const auto& row : kRows) {
        ProxySettings edited{row.proxy, row.server, row.port, row.authentication, row.user, L"", L"No"};
        EXPECT_EQ(CheckProxySettings(edited), row.fault) << row.server << L"|" << row.port;
        EXPECT_EQ(edited.port, row.sent);
    }
    for (const auto& row : kPorts) {
        ProxySettings edited{L"Yes", L"proxy", row.typed, L"No", L"", L"", L"No"};
        EXPECT_EQ(CheckProxySettings(edited), row.sent ? kNoFault : kProxyPortOutOfRange) << row.typed;
    }
}

TEST(SnoozeSettingsTest, EveryChoiceHasItsMinutes)
{
    const auto expect = [](std::span<const wchar_t* const> choices, std::initializer_list<const wchar_t*> minutes) {
        ASSERT_EQ(choices.size(), minutes.size());
        for (std::size_t i = 0; i < choices.size(); ++i)
            EXPECT_EQ(MinutesOf(choices[i]), minutes.begin()[i]);
    };
    expect(kNotificationTimes, {L"1", L"2", L"3", L"4", L"5"});
    expect(kSnoozeAlertTimes, {L"5", L"10", L"15", L"20", L"30"});
    expect(kSnoozeDurations, {L"10", L"20", L"30", L"45", L"60"});
    for (const wchar_t* none : {L"", L"5", L"5 mins", L"60 Mins"})
        EXPECT_EQ(MinutesOf(none), L"") << none;
}

TEST(SnoozeSettingsTest, AnAlertThatIsOffHasFixedTimes)
{
    const SnoozeSettings lists{L"", L"", L"3", L"30", L"60"};
    const struct {
        const wchar_t *idle, *scheduler;
        const wchar_t *idleMinutes, *schedulerMinutes, *snooze;
    } kRows[] = {
        {L"Yes", L"Yes", L"3", L"30", L"60"},
        {L"No", L"Yes", L"5", L"30", L"60"},
        {L"Yes", L"No", L"3", L"10", L"20"},
        {L"No", L"No", L"5", L"10", L"20"},
    };
    for (const auto& row : kRows) {
        SnoozeSettings edited = lists;
        edited.idleAlert = row.idle;
        edited.schedulerAlert = row.scheduler;
        EXPECT_EQ(CompleteSnoozeSettings(edited), kNoFault);
        const SnoozeSettings expected{row.idle, row.scheduler, row.idleMinutes, row.schedulerMinutes, row.snooze};
        EXPECT_TRUE(edited == expected) << row.idle << L"|" << row.scheduler;
    }
}

TEST(DeviceSettingsTest, WhatCannotBeControlledStays)
{
    const struct {
        const wchar_t* current;
        bool controllable, disabled;
        const wchar_t *checked, *unchecked;
    } kRows[] = {
        {L"YES", true, true, L"YES", L"NO"},
        {L"yes", true, true, L"YES", L"NO"},
        {L"NO", true, false, L"YES", L"NO"},
        {L"No", true, false, L"YES", L"NO"},
        {L"", true, false, L"YES", L"NO"},
        {L"NAN", true, false, L"YES", L"NO"},
        {L"NA", false, false, L"NA", L"NA"},
        {L"Na", false, false, L"NA", L"NA"},
        {L"na", false, false, L"NA", L"NA"},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(IsControllable(row.current), row.controllable) << row.current;
        EXPECT_EQ(IsFeatureDisabled(row.current), row.disabled) << row.current;
        EXPECT_EQ(FeatureValue(row.current, true), row.checked) << row.current;
        EXPECT_EQ(FeatureValue(row.current, false), row.unchecked) << row.current;
    }
}

TEST(AddressTest, DottedAddresses)
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
