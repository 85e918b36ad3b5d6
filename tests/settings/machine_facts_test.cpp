#include "settings/machine_facts.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

Element Group(const wchar_t* name, std::initializer_list<Element> children)
{
    return {name, L"", children};
}

TEST(MachineFactsTest, LogoOfTheSystemName)
{
    const struct {
        const wchar_t* name;
        SystemLogo logo;
    } kRows[] = {
        {L"Microsoft Windows 10 Pro", SystemLogo::Panes},
        {L"Windows by Microsoft on Ubuntu Linux", SystemLogo::Panes},
        {L"Windows 10", SystemLogo::None},
        {L"microsoft windows", SystemLogo::None},
        {L"Ubuntu 22.04 Linux", SystemLogo::Ring},
        {L"xubuntu", SystemLogo::Ring},
        {L"UBUNTU", SystemLogo::None},
        {L"Debian GNU/Linux", SystemLogo::Prompt},
        {L"linux", SystemLogo::None},
        {L"", SystemLogo::None},
    };
    for (const auto& row : kRows)
        EXPECT_EQ(LogoOf(row.name), row.logo) << row.name;
}

TEST(MachineFactsTest, AllSectionsAsText)
{
    const Element details = Group(L"details",
        {Group(L"CPUInfo", {TextElement(L"Name", L"HX4\twith\nbreaks")}),
            Group(L"OSInfo", {TextElement(L"OSName", L"Debian GNU/Linux")}), Group(L"PowerCapabilities", {}),
            Group(L"NetworkInfo",
                {Group(L"Adapter", {TextElement(L"IP", L"192.168.20.47")}),
                    Group(L"Adapter", {TextElement(L"IP", L"")})}),
            Group(L"LogicalDiskInfo", {Group(L"LogicalDisk", {TextElement(L"Drive", L"C:")})})});
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

TEST(MachineFactsTest, Battery)
{
    const auto battery = [](std::initializer_list<const wchar_t*> values) {
        BatteryInfo info;
        for (const wchar_t* value : values)
            info.rows.push_back({L"Element", value});
        return info;
    };
    const struct {
        BatteryInfo info;
        int percent;
        const wchar_t* line;
    } kRows[] = {
        {battery({}), 0, L""},
        {battery({L"On AC", L"No System battery", L"", L""}), 0, L"No System battery"},
        {battery({L"On AC", L"Charging", L"87 %", L"3 Hrs : 25 Mins"}), 87,
            L"Charging,  remaining time 3 Hrs : 25 Mins"},
        {battery({L"On Battery", L"", L"250 %", L"2 Hrs"}), 100, L"2 Hrs"},
        {battery({L"On Battery", L"Discharging", L"-7"}), 0, L"Discharging"},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(ChargePercent(row.info), row.percent) << row.line;
        EXPECT_EQ(BatteryStatusLine(row.info), row.line);
    }
    BatteryInfo five = battery({L"", L"", L"", L"", L"11.40 V"});
    five.rows[4].name = L"Voltage";
    EXPECT_STREQ(BatteryLabel(five, 3), L"Remaining Time");
    EXPECT_STREQ(BatteryLabel(five, 4), L"Voltage");
}

} // namespace
} // namespace voltaro
