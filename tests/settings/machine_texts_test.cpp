#include "settings/machine_texts.h"

#include <gtest/gtest.h>

#include <tuple>

namespace voltaro {
namespace {

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

} // namespace
} // namespace voltaro
